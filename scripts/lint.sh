#!/usr/bin/env bash
# Layout and static checks over every source of the project: lint.sh BUILD_FOLDER
set -u
cd "$(dirname "$0")/.." || exit 1
build=$1

sources() {
    find include src platform multicall protocol board bench console tools scripts tests fuzz -name "$1" 2>/dev/null
}

# ruff as WebAssembly where npm can fetch it, otherwise pyflakes3.
check_python() {
    local node=$build/node settings files
    mapfile -t files < <(find bench docs scripts tests -name "*.py" -o -name record_pages)
    mkdir -p "$node" && cp scripts/package.json "$node"
    if npm install --prefix "$node" --no-package-lock --no-audit --no-fund >"$node/log" 2>&1; then
        settings=$(/usr/bin/python3 -c 'import json, tomllib
print(json.dumps(tomllib.load(open("pyproject.toml", "rb"))["tool"]["ruff"]))')
        node scripts/ruff.mjs "$settings" "$(realpath "$node")" "${files[@]}"
    else
        echo "npm cannot fetch ruff: checking with pyflakes3"
        pyflakes3 "${files[@]}"
    fi
}

status=0
/usr/bin/python3 -B scripts/check_documents.py "$build" || status=1
/usr/bin/python3 -B scripts/check_includes.py || status=1
check_python || status=1
grep -lE '^#(!/usr/bin/env | shellcheck shell=)bash' run test .ci/run ./*/run scripts/* \
    2>/dev/null | xargs shellcheck -x || status=1
sources '*.h' | cat - <(sources '*.cpp') | xargs clang-format --dry-run -Werror || status=1
sources '*.cpp' | xargs cppcheck --quiet -j "$(nproc)" --std=c++17 --language=c++ \
    --library=googletest --enable=warning,performance,portability --error-exitcode=1 \
    --suppressions-list=scripts/cppcheck.txt -DORVGUI_SITE_ROOT='""' -I include -I platform/include \
    -I platform -I platform/host -I src -I board -I console -I tests -I bench || status=1
# The compiler's own warnings are its business; clang does not know all of their names, nor all of
# GCC's options.
mkdir -p "$build/tidy"
sed 's/ -fno-gnu-unique//' "$build/compile_commands.json" >"$build/tidy/compile_commands.json"
sources '*.cpp' | grep -v OperatorTextsJapanese |
    xargs run-clang-tidy -quiet -p "$build/tidy" -extra-arg=-Wno-unknown-warning-option \
        >"$build/tidy.log" 2>&1 || {
    grep -E 'error:|warning:' "$build/tidy.log" | sort -u
    status=1
}
exit $status
