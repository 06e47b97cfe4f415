// Windows that pages open in addition to the console. The time-out page calls these functions in the
// top window, from any frame, to close them.
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

// In narrow windows the menu is over the page while the address names it. Escape closes it, as its
// link does.
document.addEventListener("keydown", function (event) {
    if (event.key === "Escape" && location.hash === "#menu") {
        location.hash = "#content";
    }
});

// A long menu scrolls to the current function.
document.addEventListener("DOMContentLoaded", function () {
    var current = document.querySelector(".menu a.current");
    if (current) {
        current.scrollIntoView({ block: "nearest" });
    }
});

// A page that answers a form can be reloaded, and found again with "back", without sending the form once
// more. Most forms are answered by another page's address; this is for those that are not.
document.addEventListener("DOMContentLoaded", function () {
    var form = document.querySelector("form[data-address]");
    if (form && form.dataset.address) {
        history.replaceState(null, "", form.dataset.address);
    }
});

// The first wrong input, or otherwise what the page says about its form, gets the focus, so that a
// screen reader says it.
document.addEventListener("DOMContentLoaded", function () {
    var wrong = document.querySelector("[aria-invalid]:is(input, select)");
    var message = document.querySelector(":is([role=alert], [role=status]):not(:empty)");
    if (!wrong && message) {
        message.tabIndex = -1;
    }
    if (wrong || message) {
        (wrong || message).focus();
    }
});

// A table that is wider than its frame scrolls by keys, too. Some browsers do this themselves.
function reachScrollers() {
    document.querySelectorAll(".card, .events").forEach(function (frame) {
        if (frame.scrollWidth > frame.clientWidth) {
            frame.tabIndex = 0;
        } else {
            frame.removeAttribute("tabindex");
        }
    });
}

window.addEventListener("load", reachScrollers);
window.addEventListener("resize", reachScrollers);

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

// Whether the page has input that the board does not have yet: typed, refused, or to be confirmed.
var isUnsaved = false;
document.addEventListener("input", function (event) {
    isUnsaved = isUnsaved || Boolean(event.target.form);
});
document.addEventListener("DOMContentLoaded", function () {
    isUnsaved = isUnsaved || Boolean(document.querySelector(".wrong, [name=back]"));
});

function isAnyUnsaved() {
    if (isUnsaved) {
        return true;
    }
    for (var i = 0; i < top.frames.length; i++) {
        if (top.frames[i].isUnsaved) {
            return true;
        }
    }
    return false;
}

// The form to log out asks only when input would be lost. A form that may take seconds says so.
document.addEventListener("submit", function (event) {
    var question = event.target.getAttribute("data-question");
    if (question && isAnyUnsaved() && !confirm(question)) {
        event.preventDefault();
        return;
    }
    if (event.target.getAttribute("action") === "/common/logout.cgi") {
        sessionStorage.clear();  // what session.js keeps is for a user who is logged in
    }
    var waiting = event.target.querySelector(".waiting");
    if (waiting) {
        waiting.hidden = false;
    }
});
