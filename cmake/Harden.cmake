# Options that make a fault harder to exploit with hostile input. docs/security.md lists the cost of
# each, and why others are left out.
target_compile_definitions(orvgui_options INTERFACE _GLIBCXX_ASSERTIONS)
if(ORVGUI_SANITIZE)
    return()  # the sanitizers check the same places, and more of them
endif()

# Without optimisation, glibc's checks do nothing but warn.
target_compile_options(orvgui_options INTERFACE
    -fstack-protector-strong -fstack-clash-protection
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
target_link_options(orvgui_options INTERFACE LINKER:-z,relro LINKER:-z,noexecstack)

# A program is loaded at a random address and binds its calls when it starts; their table is
# read-only from then on. A library binds each call when it is first made: a page makes few of the
# calls, and starts anew for each request.
target_link_options(orvgui_options INTERFACE
    "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie;LINKER:-z,now>")
