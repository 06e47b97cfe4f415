# Links a shared library so that a page, which starts anew for each request, starts fast. What each
# option gives is in docs/performance.md.
function(orvgui_start_fast target)
    if(ORVGUI_SANITIZE)
        return()  # the sanitizers put themselves between callers and functions
    endif()
    # Calls inside the library are settled when it is linked, not looked up by name at each start.
    target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions -Wl,-O1)
    # Two mappings instead of four: each is two system calls and some page faults at each start.
    target_link_options(${target} PRIVATE -Wl,-z,noseparate-code)
    # The C++ library's own names, most of all that are looked up, are found in it first.
    target_link_options(${target} INTERFACE
        "LINKER:--push-state,--no-as-needed,-lstdc++,--pop-state")
endfunction()
