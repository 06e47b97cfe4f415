-- Adds the security headers to files and to the web server's own answers, also to requests that it
-- cannot read. Pages set these headers themselves.
local headers = lighty.r.resp_header
local closed = "default-src 'self'; object-src 'none'; base-uri 'none'; form-action 'none'; "
    .. "frame-ancestors 'self'"

-- A browser may cache a style sheet, script or image, but must check it again: updates show at once.
local path = lighty.r.req_attr["uri.path"] or ""
local status = lighty.r.req_item["http_status"]
local is_file = (status == 200 or status == 304)
    and (path == "/default.css" or path == "/console.js" or path == "/session.js"
        or path:find("^/images/[^/]*$"))

for name, value in pairs({
    ["X-Content-Type-Options"] = "nosniff",
    ["Referrer-Policy"] = "same-origin",
    ["Content-Security-Policy"] = closed,
    ["Cache-Control"] = is_file and "no-cache" or "no-store",
}) do
    if not headers[name] then
        headers[name] = value
    end
end

-- The server's own answers are ASCII.
if status ~= 304 and (headers["Content-Type"] or "text/html") == "text/html" then
    headers["Content-Type"] = "text/html; charset=utf-8"
end
return 0
