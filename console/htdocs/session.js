// The end of a session: a warning before it, a message after it, and the input of a form that the
// board did not get. Of the pages with a session, those of functions load this: with frames, one
// frame. So does the answer to a request whose session has ended.
"use strict";

(function () {

// What the board has done: `renewed` the session, `refused` the form that this page answers.
const page = document.currentScript.dataset;

// --- What the tab remembers ---------------------------------------------------------------------
//
// sessionStorage belongs to this tab and site. Logging out clears it (console.js).

const KEPT_INPUT = "console.input", SESSION_STATE = "console.session";

function remember(key, value) {
    try {
        sessionStorage.setItem(key, JSON.stringify(value));
    } catch (error) {
        // Storage is full or switched off: the page works as it does without this comfort.
        console.info(error);
    }
}

function forget(key) {
    try {
        sessionStorage.removeItem(key);
    } catch (error) {
        console.info(error);
    }
}

function recall(key) {
    try {
        return JSON.parse(sessionStorage.getItem(key));
    } catch (error) {
        console.info(error);
        return null;
    }
}

// --- Input that is kept -------------------------------------------------------------------------
//
// A record: `user`, `time`, `path` of the page, `top` of the window with its frames, the `fields`
// as [name, value, checked], and a `state`. "sent": the form's answer is awaited. "lost": the
// session had ended. `led` counts the pages that the user was led to, to get there again.

const LONGEST_AGE = 60 * 60 * 1000;  // milliseconds
const LARGEST_RECORD = 32 * 1024;  // characters
const KEEPABLE = "textarea, select, input:is([type=text], [type=checkbox], [type=radio])";

let pagePath = location.pathname + location.search;

function windowPath() {
    return top.location.pathname + top.location.search;
}

function isConfirmation() {
    return Boolean(document.querySelector("[type=submit][name=back]"));
}

// The name of the session's user, which the information strip shows. Null without a strip.
function userName() {
    const windows = [window, ...Array.from({ length: top.frames.length }, (_, i) => top.frames[i])];
    const shown = windows.map((each) => each.document.querySelector("[data-user]"));
    return shown.find(Boolean)?.textContent || null;
}

// Never passwords, files, or hidden fields such as the CSRF token; nor a consent, which is given
// once, for what the page says at that moment.
function inputsOf(form) {
    return Array.from(form.elements).filter((input) => input.name && !input.disabled &&
        !input.readOnly && input.matches(KEEPABLE) && !input.closest(".consent"));
}

function keepInput(form, state) {
    const user = userName();
    const record = {
        user, state, time: Date.now(), path: pagePath, top: windowPath(), led: 0,
        fields: inputsOf(form).map((input) => [input.name, input.value, Boolean(input.checked)]),
    };
    forget(KEPT_INPUT);
    if (!user || !record.fields.length || JSON.stringify(record).length > LARGEST_RECORD) {
        return false;
    }
    remember(KEPT_INPUT, record);
    return true;
}

// A confirmation has nothing to type: the record is that of the form before it.
document.addEventListener("submit", function (event) {
    if (!event.defaultPrevented && event.target.method === "post" && !isConfirmation()) {
        keepInput(event.target, "sent");
    }
});

function loseInput() {
    const record = recall(KEPT_INPUT);
    if (record && record.state === "sent") {
        remember(KEPT_INPUT, { ...record, state: "lost" });
        return true;
    }
    return false;
}

// Keeps what was typed into the page when the session has ended under it.
function keepUnsent() {
    if (isConfirmation()) {
        return loseInput();
    }
    const form = Array.from(document.forms).find((each) => each.method === "post" &&
        inputsOf(each).length);
    return Boolean(window.isUnsaved && form) && keepInput(form, "lost");
}

// A page of a living session is the answer to the form. That of a confirmation keeps the record,
// because nothing has been applied yet. A form of an earlier session was refused: its user has
// logged in again in another tab.
function noteAnswer() {
    const record = recall(KEPT_INPUT);
    if (!record || record.state !== "sent") {
        return;
    }
    if (!location.search && record.path.split("?")[0] === location.pathname) {
        pagePath = record.path;  // the answer's own address has lost the query
    }
    if (page.refused) {
        loseInput();
    } else if (!isConfirmation()) {
        forget(KEPT_INPUT);
    }
}

// Whoever does not arrive may no longer use the page.
function lead(record, target, path, led) {
    if (record.led >= led || !/^\/[^/\\]/.test(path)) {
        forget(KEPT_INPUT);
        return;
    }
    remember(KEPT_INPUT, { ...record, led });
    target.location.replace(path);
}

function fillInput(input, value, isChecked) {
    const isButton = input.type === "radio" || input.type === "checkbox";
    if (isButton && input.value === value) {
        input.checked = isChecked;
    } else if (!isButton && (!input.options ||
               Array.from(input.options).some((option) => option.value === value))) {
        input.value = value;
    }
    input.dispatchEvent(new Event("input", { bubbles: true }));
    input.dispatchEvent(new Event("change", { bubbles: true }));
}

function putInputBack(fields) {
    const form = Array.from(document.forms).find((each) => {
        const inputs = inputsOf(each);
        return inputs.length === fields.length &&
            inputs.every((input, i) => input.name === fields[i][0]);
    });
    if (!form) {
        return;
    }
    inputsOf(form).forEach((input, i) => fillInput(input, fields[i][1], fields[i][2]));
    const message = document.createElement("p");
    message.className = "warning_string";
    message.setAttribute("role", "status");
    message.tabIndex = -1;
    message.textContent = document.getElementById("input_back").content.textContent;
    form.prepend(message);
    message.focus();
}

// Whether this is the page of the record. Asked for it, the board may have left the query out.
function isPageOf(record) {
    return record.path === location.pathname + location.search ||
        (record.led === 2 && record.path.split("?")[0] === location.pathname);
}

// Leads the user of lost input to its page, and puts it back there.
function resumeInput() {
    const record = recall(KEPT_INPUT), user = userName();
    if (!record || !user) {
        return;
    }
    if (record.user !== user || Date.now() - record.time > LONGEST_AGE) {
        forget(KEPT_INPUT);
    } else if (record.state === "lost" && isPageOf(record)) {
        forget(KEPT_INPUT);
        putInputBack(record.fields);
    } else if (record.state === "lost" && record.led === 0 && record.top !== windowPath()) {
        lead(record, top, record.top, 1);
    } else if (record.state === "lost") {
        lead(record, window, record.path, 2);
    }
}

// --- The end of the session ---------------------------------------------------------------------
//
// The state: `end` of the session, as far as it is known, and `timeout`, after which an unused one
// ends, both in milliseconds; `isSure` that the board was asked when the warning was due;
// `isClosed` that the user has closed the warning. Other tabs may have made the session last
// longer: before the page warns, and before it says that the session has ended, it asks.

const LONGEST_WARNING = 2 * 60 * 1000, LONGEST_SLEEP = 30 * 1000, SECOND = 1000;  // milliseconds
const ADDRESS = "/common/session.cgi";
const ending = document.getElementById("session_ending");
const ended = document.getElementById("session_ended");
let timer = 0, isAsking = false;

function readState() {
    const state = recall(SESSION_STATE);
    return state && state.end - Date.now() <= state.timeout ? state : null;
}

function warningTime(timeout) {
    return Math.min(LONGEST_WARNING, timeout / 2);
}

function setState(left, timeout, wasAsked) {
    const isSure = wasAsked && left <= warningTime(timeout);
    remember(SESSION_STATE, { end: Date.now() + left, timeout, isSure, isClosed: false });
}

function sleep(time) {
    clearTimeout(timer);
    timer = setTimeout(watch, Math.min(time, LONGEST_SLEEP));
}

async function ask(options) {
    isAsking = true;
    try {
        const response = await fetch(ADDRESS, options);
        const { left, timeout } = await response.json();
        if (left === 0 || !response.ok) {
            sayEnded();  // or another session has begun, in another tab
            return true;
        }
        setState(left * SECOND, timeout * SECOND, true);
    } catch (error) {
        console.info(error);  // neither network nor board need be there
        sleep(LONGEST_SLEEP);
        return false;
    } finally {
        isAsking = false;
    }
    watch();
    return true;
}

// Decides what to do now, and when to look again. A tab that nobody sees waits until it is shown.
function watch() {
    if (document.hidden || isAsking || ended.dataset.shown) {
        return;
    }
    const state = readState();
    const left = state ? state.end - Date.now() : 0;
    const warning = state ? warningTime(state.timeout) : 0;
    if (!state || left <= 0 || (left <= warning && !state.isSure)) {
        ask();
    } else if (left > warning) {
        ending.close();
        sleep(left - warning);
    } else {
        warn(state, left);
        sleep(left % SECOND || SECOND);
    }
}

function warn(state, left) {
    const seconds = Math.ceil(left / SECOND);
    ending.querySelector("[role=timer]").textContent =
        Math.floor(seconds / 60) + ":" + String(seconds % 60).padStart(2, "0");
    if (!state.isClosed && !ending.open) {
        ending.querySelector(".failed").hidden = true;
        ending.showModal();
    }
}

function closeWarning() {
    const state = readState();
    if (state) {
        remember(SESSION_STATE, { ...state, isClosed: true });
    }
    ending.close();
}

async function stay() {
    const token = ending.querySelector("[name=form_end]").value;
    const failure = ending.querySelector(".failed");
    failure.hidden = true;
    failure.setAttribute("role", "alert");
    failure.hidden = await ask({ method: "POST", body: new URLSearchParams({ form_end: token }) });
}

function sayEnded() {
    clearTimeout(timer);
    forget(SESSION_STATE);
    ended.dataset.shown = "yes";
    ended.querySelector(".kept").hidden = !keepUnsent();
    ending.close();
    ended.showModal();
}

function watchSession() {
    const state = recall(SESSION_STATE);
    if (state && page.renewed) {
        setState(state.timeout, state.timeout, false);
    }
    ending.addEventListener("cancel", closeWarning);
    ending.querySelector("[value=close]").addEventListener("click", closeWarning);
    ending.querySelector("[value=stay]").addEventListener("click", stay);
    ended.querySelector("[value=close]").addEventListener("click", () => ended.close());
    document.addEventListener("visibilitychange", function () {
        const shown = readState();
        if (shown && !document.hidden) {
            remember(SESSION_STATE, { ...shown, isSure: false });
        }
        watch();
    });
    watch();
}

if (document.getElementById("session_over")) {
    loseInput();
    forget(SESSION_STATE);
} else {
    noteAnswer();
    // The information strip, which has the user's name, may be in another frame.
    const whole = top.document.readyState === "complete" ? window : top;
    whole.addEventListener("load", resumeInput);
    window.addEventListener("load", () => (window.requestIdleCallback || setTimeout)(watchSession));
}

})();
