// Checks Python files with ruff: node scripts/ruff.mjs SETTINGS FOLDER FILE…
// SETTINGS are those of pyproject.toml as JSON; FOLDER is where npm installed scripts/package.json.
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";

const [settings, folder, ...files] = process.argv.slice(2);
const ruff = createRequire(`${folder}/`)("@astral-sh/ruff-wasm-nodejs");
const workspace = new ruff.Workspace(JSON.parse(settings), ruff.PositionEncoding.Utf32);
for (const file of files) {
    for (const found of workspace.check(readFileSync(file, "utf8"))) {
        console.log(`${file}:${found.start_location.row}: ${found.code} ${found.message}`);
        process.exitCode = 1;
    }
}
