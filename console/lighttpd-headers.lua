-- Gives every answer of the web server the security headers: files, and its own answers to requests
-- that it refuses, even those that it cannot read. Pages set these headers themselves.
local headers = lighty.r.resp_header
local closed = "default-src 'self'; object-src 'none'; base-uri 'none'; form-action 'none'; "
    .. "frame-ancestors 'self'"

-- A style sheet, script or image may be kept, but is asked for again, so that an update shows at once.
local path = lighty.r.req_attr["uri.path"] or ""
local status = lighty.r.req_item["http_status"]
local is_file = (status == 200 or status == 304)
    and (path == "/default.css" or path == "/console.js" or path:find("^/images/[^/]*$"))

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
