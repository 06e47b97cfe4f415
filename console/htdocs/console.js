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

// The text box of a file field shows the name of the chosen file, as soon as the dialog closes. The
// field's button puts a path there whose folder does not exist; this listener runs after it.
function showFileName(chooser) {
    var shown = chooser.form.elements[chooser.name.slice("browse_".length)];
    if (shown) {
        shown.value = chooser.files.length ? chooser.files[0].name : "";
    }
}

["change", "click"].forEach(function (type) {
    document.addEventListener(type, function (event) {
        var part = event.target;
        if (part.form && part.matches("[type=file], [type=button]")) {
            part.parentElement.querySelectorAll("[type=file][name^=browse_]").forEach(showFileName);
        }
    });
});

// --- The boxes of an address --------------------------------------------------------------------

var IPV4 = /^((?:\d{1,3}\.){3}\d{1,3})(?:\/(\d{1,2}))?$/;
var MAC = /^([\da-f]{2}([:.-]?)(?:[\da-f]{2}\2){4}[\da-f]{2}|[\da-f]{4}(?:\.[\da-f]{4}){2})$/i;

// All boxes of the address that a box is part of, such as address0 to address3. Four boxes of three
// digits are an IPv4 address, which a box of two digits for the mask may follow; six of two digits
// are a MAC address. Empty for any other input.
function boxesOf(input) {
    if (!input.form || input.type !== "text") {
        return [];
    }
    var name = input.name.replace(/\d$/, ""), lengths = "", boxes = [];
    for (var box; (box = input.form.elements[name + boxes.length]) && box.type === "text";) {
        boxes.push(box);
        lengths += box.maxLength;
    }
    return /^(3333|33332|222222)$/.test(lengths) && boxes.includes(input) ? boxes : [];
}

// The texts for the boxes, when a text is an address of their kind.
function partsOf(text, boxes) {
    var stripped = text.replace(/\s/g, "");
    if (boxes.length === 6) {
        return MAC.test(stripped) ? stripped.replace(/[^\da-f]/gi, "").match(/../g) : [];
    }
    var [, address, mask] = IPV4.exec(stripped) || [null, "", null];
    var parts = mask ? address.split(".").concat(mask) : address.split(".");
    var isGood = address && parts.length <= boxes.length && !(mask > 32) &&
        parts.every((part) => part <= 255);
    return isGood ? parts : [];
}

// An address that is pasted into the first box fills all boxes.
document.addEventListener("paste", function (event) {
    var boxes = boxesOf(event.target);
    if (!boxes.length || boxes[0] !== event.target) {
        return;
    }
    var parts = partsOf(event.clipboardData.getData("text"), boxes);
    parts.forEach(function (part, i) {
        boxes[i].value = part;
        boxes[i].dispatchEvent(new Event("input", { bubbles: true }));
        boxes[i].dispatchEvent(new Event("change", { bubbles: true }));
    });
    if (parts.length) {
        event.preventDefault();
        boxes[parts.length - 1].focus();
    }
});

// The sign after the digits of a box leads to the next one.
document.addEventListener("beforeinput", function (event) {
    var boxes = boxesOf(event.target), next = boxes[boxes.indexOf(event.target) + 1];
    var isSign = [".", ":", "-", "/"].includes(event.data);
    if (next && isSign && /^[\da-f]*$/i.test(event.target.value)) {
        event.preventDefault();
        if (event.target.value) {
            next.focus();
            next.select();
        }
    }
});

// --- Keys ---------------------------------------------------------------------------------------

// Backspace in an empty box leads to the box before. Escape on a confirmation leads back to the
// form, which keeps the input.
document.addEventListener("keydown", function (event) {
    if (event.defaultPrevented || event.isComposing) {
        return;
    }
    if (event.key === "Backspace" && event.target.value === "") {
        var boxes = boxesOf(event.target), before = boxes[boxes.indexOf(event.target) - 1];
        if (before) {
            event.preventDefault();
            before.focus();
            before.setSelectionRange(before.value.length, before.value.length);
        }
    } else if (event.key === "Escape" && !document.querySelector("dialog[open]")) {
        var back = document.querySelector("[type=submit][name=back]");
        if (back) {
            back.click();
        }
    }
});

// --- Input that is not sent yet -----------------------------------------------------------------

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
