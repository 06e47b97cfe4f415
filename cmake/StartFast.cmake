# Links a shared library so that pages start fast: a page starts anew for each request. The gain of
# each option is in docs/performance.md.
function(orvgui_start_fast target)
    if(ORVGUI_SANITIZE)
        return()  # the sanitizers intercept calls between libraries
    endif()
    # Calls inside the library are resolved when it is linked, not by name at each start.
    target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions -Wl,-O1)
    # Two mappings instead of four: each is two system calls and some page faults at each start.
    target_link_options(${target} PRIVATE -Wl,-z,noseparate-code)
    # Most names that the loader looks up are the C++ library's, which it then searches first.
    target_link_options(${target} INTERFACE
        "LINKER:--push-state,--no-as-needed,-lstdc++,--pop-state")
endfunction()
