// Walks through each kind of page in Firefox: firefox.mjs PACKAGES URL IMAGE. PACKAGES is the folder
// with puppeteer-core, IMAGE a firmware image. Exits with 1 and a line on standard error when a page
// is not as it should be.
import assert from "node:assert/strict";
import { createRequire } from "node:module";

const [packages, url, image] = process.argv.slice(2);
const puppeteer = createRequire(`${packages}/`)("puppeteer-core");
const browser = await puppeteer.launch({
    browser: "firefox", executablePath: "/usr/bin/firefox-esr", headless: true,
});
const page = await browser.newPage();
const complaints = [];
page.on("pageerror", (error) => complaints.push(String(error)));
page.on("console", (message) => {
    if (["error", "warn"].includes(message.type())) {
        complaints.push(message.text());
    }
});

const textOf = async () => (await page.$eval("body", (body) => body.innerText)).replaceAll("\xa0", " ");
const leave = (action) => Promise.all([page.waitForNavigation(), action()]);
const press = (name) => leave(() => page.click(`main [name=${name}]`));

async function fill(fields) {
    for (const [name, value] of Object.entries(fields)) {
        await page.$eval(`[name=${name}]`, (box) => { box.value = ""; });
        await page.type(`[name=${name}]`, value);
    }
}

// The page says `text`, fits the window, and has one heading.
async function see(kind, text) {
    assert.ok(text.test(await textOf()), `${kind} does not say ${text}`);
    const [excess, headings] = await page.evaluate(() => [
        document.documentElement.scrollWidth - document.documentElement.clientWidth,
        document.querySelectorAll("h1").length]);
    assert.equal(excess, 0, `${kind} scrolls sideways`);
    assert.equal(headings, 1, `${kind} has ${headings} headings`);
    console.log(`Firefox: ${kind}`);
}

async function open(path, kind, text) {
    await page.goto(url + path);
    await see(kind, text);
}

async function login(user) {
    await page.goto(`${url}/`);
    await fill({ user, password: `${user}-pass` });
    await leave(() => page.click("[name=login]"));
}

const REFRESH = "/network/orv_refresh_set.cgi";

async function walkSettings() {
    await leave(() => page.click(`nav a[href*="${REFRESH}"]`));
    await see("form", /Refresh interval/);
    await fill({ interval: "4801" });
    await press("submit");
    await see("wrong input", /from 0 to 3600/);
    await fill({ interval: "47" });
    await press("submit");
    await see("confirmation", /47/);
    await press("submit");
    await see("completion", /have been changed/);
    await page.reload();
    await see("completion, again", /have been changed/);
}

async function walkUpload() {
    await open("/maintenance/orv_firmup.cgi", "upload", /Firmware image/);
    await (await page.$("input[type=file]")).uploadFile(image);
    await press("submit");
    await see("upload, confirmation", /2\.0\.1/);
    await press("back");
    await see("upload, cancelled", /Cancelled/);
}

try {
    await page.setViewport({ width: 1280, height: 900 });
    await login("admin");
    await see("console", /User name:\s+admin/);
    await walkSettings();
    await open("/system/sys_status.cgi", "status", /31 C/);
    await open("/user/list.cgi", "list", /operator/);
    await open("/system/pel.cgi", "events", /Power/);
    await open("/partition/boot_control.cgi?partition=2", "partition", /Boot control/);
    await walkUpload();
    await open("/common/gallery.cgi", "gallery", /Component Gallery/);
    await leave(() => page.goto(`${url}${REFRESH}`));
    await leave(() => page.click("[name=logout]"));
    await see("log-out", /You are logged out/);
    await login("guest");
    await open("/user/list.cgi", "error", /do not have the right/);
    assert.deepEqual(complaints, []);
} catch (error) {
    console.error(error.message, `at ${page.url()}`);
    process.exitCode = 1;
} finally {
    await browser.close();
}
