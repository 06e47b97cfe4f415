# A console's pages, as one program or as one program for each page:
#
#   orvgui_add_page(console system/led_config.cgi led_config.cpp LIBRARIES orvgui::page)
#   orvgui_add_console(console FOLDER ${CMAKE_CURRENT_BINARY_DIR}/htdocs INSTALL /usr/local/www/htdocs)
#
# With ORVGUI_PAGES=multicall, orvgui_add_console() links the pages into FOLDER/../orvguid, and makes a
# hard link to it at the path of each page. A page is unaware of the others: its names are local to it,
# and the constructors of its global objects run for this page alone. With ORVGUI_PAGES=separate each
# page is a program of its own.
set(ORVGUI_PAGES multicall CACHE STRING "How pages are linked: multicall or separate")
set_property(CACHE ORVGUI_PAGES PROPERTY STRINGS multicall separate)
if(NOT ORVGUI_PAGES MATCHES "^(multicall|separate)$")
    message(FATAL_ERROR "ORVGUI_PAGES is ${ORVGUI_PAGES}: set it to multicall or separate")
endif()

# The program is linked statically where the C library allows this at a random address, and where
# there is a static library of the platform. Sanitizers do not support static programs.
include(CheckCXXSourceCompiles)
set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie)
check_cxx_source_compiles("int main() { return 0; }" ORVGUI_HAS_STATIC_PIE)
# Linkers for some machines only warn that they do not pack relocations.
set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie LINKER:-z,pack-relative-relocs LINKER:--fatal-warnings)
check_cxx_source_compiles("int main() { return 0; }" ORVGUI_HAS_PACKED_RELOCATIONS)
unset(CMAKE_REQUIRED_LINK_OPTIONS)
set(static OFF)
if(ORVGUI_PAGES STREQUAL "multicall" AND ORVGUI_HAS_STATIC_PIE AND NOT ORVGUI_SANITIZE
        AND TARGET orvgui::orvplatform_static)
    set(static ON)
endif()
set(ORVGUI_STATIC_PAGES ${static} CACHE INTERNAL "Whether the pages are linked statically")

# The library that pages and the libraries of a console link: the static one or the shared one.
add_library(orvgui::page INTERFACE IMPORTED GLOBAL)
if(ORVGUI_STATIC_PAGES)
    target_link_libraries(orvgui::page INTERFACE orvgui::orvgui_static)
else()
    target_link_libraries(orvgui::page INTERFACE orvgui::orvgui)
endif()

# Links a program statically, at a random address. A call that the static C library answers only by
# loading shared libraries is an error.
function(orvgui_link_statically target)
    # The C library refuses to start a static program that has a run path.
    set_target_properties(${target} PROPERTIES SKIP_BUILD_RPATH ON INSTALL_RPATH "")
    target_link_options(${target} PRIVATE
        LINKER:--gc-sections LINKER:--fatal-warnings
        $<$<BOOL:${ORVGUI_HAS_PACKED_RELOCATIONS}>:LINKER:-z,pack-relative-relocs>
        LINKER:-Map=${CMAKE_CURRENT_BINARY_DIR}/${target}.map LINKER:--cref)
    target_link_libraries(${target} PRIVATE -static-pie)  # after, and in place of, -pie
endfunction()

# Adds a page to a console: orvgui_add_page(CONSOLE FOLDER/NAME.cgi SOURCE… LIBRARIES LIBRARY…).
function(orvgui_add_page console path)
    cmake_parse_arguments(PARSE_ARGV 2 page "" "" "LIBRARIES")
    string(MAKE_C_IDENTIFIER "${console}_${path}" target)
    if(ORVGUI_PAGES STREQUAL "separate")
        add_executable(${target} ${page_UNPARSED_ARGUMENTS})
    else()
        add_library(${target} OBJECT ${page_UNPARSED_ARGUMENTS})
        # A symbol of this kind cannot be made local.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    endif()
    target_link_libraries(${target} PRIVATE ${page_LIBRARIES})
    set_property(GLOBAL APPEND PROPERTY ${console}_PATHS ${path})
    set_property(GLOBAL APPEND PROPERTY ${console}_LIBRARIES ${page_LIBRARIES})
endfunction()

# Makes one object of a page, in which all names but those in the program's table are local. Appends
# the object to `objects`, and the page's entries to `declarations` and `entries`.
function(orvgui_join_page console path)
    string(MAKE_C_IDENTIFIER "${console}_${path}" target)
    set(object ${CMAKE_CURRENT_BINARY_DIR}/${target}.o)
    set(script ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/page.ld)
    separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
    set(renamed --redefine-sym main=${target} --keep-global-symbol=${target})
    foreach(name IN ITEMS Constructors ConstructorsEnd Destructors DestructorsEnd)
        list(APPEND renamed --redefine-sym orvguiPage${name}=${target}_${name}
                            --keep-global-symbol=${target}_${name})
    endforeach()
    add_custom_command(OUTPUT ${object}
        COMMAND ${CMAKE_CXX_COMPILER} ${flags} -r -nostdlib -Wl,-T,${script} -o ${object}
                $<TARGET_OBJECTS:${target}>
        COMMAND ${CMAKE_OBJCOPY} ${renamed} ${object}
        DEPENDS ${target} $<TARGET_OBJECTS:${target}> ${script}
        COMMAND_EXPAND_LISTS VERBATIM)
    set(objects ${objects} ${object} PARENT_SCOPE)
    set(steps "${target}_Constructors, ${target}_ConstructorsEnd, ${target}_Destructors")
    string(APPEND declarations "int ${target}(int, char**, char**);\n"
        "extern const Step ${target}_Constructors[], ${target}_ConstructorsEnd[];\n"
        "extern const Step ${target}_Destructors[], ${target}_DestructorsEnd[];\n")
    set(declarations "${declarations}" PARENT_SCOPE)
    string(APPEND entries
        "    {\"${path}\", ${target}, ${steps}, ${target}_DestructorsEnd},\n")
    set(entries "${entries}" PARENT_SCOPE)
endfunction()

# Puts the pages that were added to a console into a folder, and installs them:
# orvgui_add_console(CONSOLE FOLDER FOLDER INSTALL FOLDER). A relative folder of INSTALL is below the
# prefix.
function(orvgui_add_console console)
    cmake_parse_arguments(PARSE_ARGV 1 console "" "FOLDER;INSTALL" "")
    get_property(paths GLOBAL PROPERTY ${console}_PATHS)
    get_property(libraries GLOBAL PROPERTY ${console}_LIBRARIES)
    if(ORVGUI_PAGES STREQUAL "separate")
        foreach(path IN LISTS paths)
            string(MAKE_C_IDENTIFIER "${console}_${path}" target)
            cmake_path(GET path PARENT_PATH folder)
            cmake_path(GET path FILENAME name)
            set_target_properties(${target} PROPERTIES
                OUTPUT_NAME ${name} RUNTIME_OUTPUT_DIRECTORY ${console_FOLDER}/${folder})
            install(TARGETS ${target} DESTINATION ${console_INSTALL}/${folder} COMPONENT Console)
        endforeach()
        return()
    endif()

    foreach(path IN LISTS paths)
        orvgui_join_page(${console} ${path})
    endforeach()
    file(CONFIGURE OUTPUT ${console}_pages.cpp @ONLY CONTENT [[
#include "multicall/Pages.h"

using ORVLib::MultiCall::Step;

extern "C" {
@declarations@}

namespace ORVLib::MultiCall {

const Page PAGES[] = {
@entries@};
const std::size_t PAGE_COUNT = sizeof PAGES / sizeof *PAGES;

}  // namespace ORVLib::MultiCall
]])
    cmake_path(GET console_FOLDER PARENT_PATH folder)
    add_executable(${console} ${CMAKE_CURRENT_BINARY_DIR}/${console}_pages.cpp ${objects})
    set_target_properties(${console} PROPERTIES
        OUTPUT_NAME orvguid RUNTIME_OUTPUT_DIRECTORY ${folder})
    list(REMOVE_DUPLICATES libraries)
    target_link_libraries(${console} PRIVATE orvgui::orvmulticall ${libraries})
    if(ORVGUI_STATIC_PAGES)
        orvgui_link_statically(${console})
    endif()

    # A page's file is a hard link, made anew whenever the program is linked.
    set(links ${CMAKE_CURRENT_BINARY_DIR}/${console}_links.cmake)
    list(JOIN paths " " path_words)
    file(CONFIGURE OUTPUT ${links} @ONLY CONTENT [[
foreach(path IN ITEMS @path_words@)
    cmake_path(GET path PARENT_PATH folder)
    file(MAKE_DIRECTORY ${root}/${folder})
    file(CREATE_LINK ${root}/../orvguid ${root}/${path} COPY_ON_ERROR)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES ${root}/${path})
endforeach()
]])
    add_custom_command(TARGET ${console} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -D root=${console_FOLDER} -P ${links} VERBATIM)
    cmake_path(GET console_INSTALL PARENT_PATH folder)
    install(TARGETS ${console} DESTINATION ${folder} COMPONENT Console)
    install(CODE "
        cmake_path(SET root ${console_INSTALL})
        cmake_path(ABSOLUTE_PATH root BASE_DIRECTORY \${CMAKE_INSTALL_PREFIX})
        set(root \$ENV{DESTDIR}\${root})
        include(${links})" COMPONENT Console)
endfunction()
