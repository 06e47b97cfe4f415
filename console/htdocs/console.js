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

// The menu shows where the user is, however long it is.
document.addEventListener("DOMContentLoaded", function () {
    var current = document.querySelector(".menu a.current");
    if (current) {
        current.scrollIntoView({ block: "nearest" });
    }
});

// The text box of a file field shows the chosen file as soon as the dialog closes.
document.addEventListener("change", function (event) {
    var chooser = event.target;
    if (chooser.type !== "file" || chooser.name.indexOf("browse_") !== 0 || !chooser.form) {
        return;
    }
    var shown = chooser.form.elements[chooser.name.slice("browse_".length)];
    if (shown) {
        shown.value = chooser.value;
    }
});
