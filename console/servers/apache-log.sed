# Restores the lines that pages write to the trace log: mod_cgi puts words before them and doubles each
# backslash.
/^AH01215: stderr from /{
s/^AH01215: stderr from [^:]*: //
s/\\\\/\\/g
}
