#!/bin/sh
# Runs a page for fcgiwrap. Its input is the body of the request, which nginx has stored in a file.
# fcgiwrap itself does not read what a page prints until the page has read the whole body.
cd "${PAGE_FILE%/*}" && SCRIPT_FILENAME=$PAGE_FILE exec "$PAGE_FILE" <"${BODY_FILE:-/dev/null}"
