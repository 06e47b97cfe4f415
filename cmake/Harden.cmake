# What makes a fault harder to use for somebody who sends hostile bytes. What each option costs, and
# why others are left out, is in docs/security.md.
add_compile_definitions(_GLIBCXX_ASSERTIONS)
if(ORVGUI_SANITIZE)
    return()  # the sanitizers check the same places, and more of them
endif()

# glibc's checks need an optimised build, and say so with a warning.
add_compile_options(
    -fstack-protector-strong -fstack-clash-protection
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
add_link_options(LINKER:-z,relro LINKER:-z,noexecstack)

# A program's own calls are bound when it starts, and their table is read-only then. The libraries'
# are bound as they are called: a page makes few of the calls, and starts anew for each request.
add_link_options("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:LINKER:-z,now>")

# Programs are laid at a random address, as libraries are.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
