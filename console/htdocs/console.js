// Windows that pages open beside the console. A time-out closes them, from whichever frame it is
// noticed in; a page without such windows has nothing to close.
var helpWindow = null;
var vorpaWindow = null;

function help_close() {
    if (helpWindow) {
        helpWindow.close();
    }
    helpWindow = null;
}

function vorpa_close() {
    if (vorpaWindow) {
        vorpaWindow.close();
    }
    vorpaWindow = null;
}
