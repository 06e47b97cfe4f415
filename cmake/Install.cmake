# The components of `cmake --install`:
#
#   Runtime      the libraries
#   Development  headers, link names, orvgui.pc, the CMake package, mkcatalogue
#   Console      the sample console at its fixed paths: pages, skeletons, catalogues
#   Board        orvboardd and boardctl
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Installed programs find the library without the loader's configuration.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(CMAKE_INSTALL_RPATH ${CMAKE_INSTALL_FULL_LIBDIR})
endif()

# A build with a site of its own would install its pages over the site.
if(ORVGUI_SITE_ROOT STREQUAL ORVGUI_STAGE)
    install(CODE [[
        if("$ENV{DESTDIR}" STREQUAL "")
            message(FATAL_ERROR "This build serves its site from its own folder: "
                                "install the preset release, or set DESTDIR")
        endif()]] ALL_COMPONENTS)
endif()

# Installs a library, and gives it the name here that it has in the installed package.
function(orvgui_install_library target)
    add_library(orvgui::${target} ALIAS ${target})
    install(TARGETS ${target} EXPORT orvgui
        LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
        ARCHIVE COMPONENT Development)
endfunction()

# The platform's part of a page's link line: the host's library, or the libraries that a board build
# names. Each of those is a path, a linker option or a bare library name.
set(platform_flags)
set(platform_libraries orvplatform)
if(ORVGUI_PLATFORM_INCLUDE)
    set(platform_flags -I${ORVGUI_PLATFORM_INCLUDE})
    set(platform_libraries ${ORVGUI_PLATFORM_LIBRARIES})
endif()
list(TRANSFORM platform_libraries PREPEND "-l" REGEX "^[^-/]" OUTPUT_VARIABLE platform_words)
list(JOIN platform_words " " platform_words)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
    BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE prefix_from_pc)
configure_file(cmake/orvgui.pc.in orvgui.pc @ONLY)
write_basic_package_version_file(orvguiConfigVersion.cmake COMPATIBILITY SameMajorVersion)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/orvgui)
install(FILES ${PROJECT_BINARY_DIR}/orvgui.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT Development)
install(FILES ${PROJECT_BINARY_DIR}/orvguiConfigVersion.cmake DESTINATION ${package_folder}
        COMPONENT Development)
install(FILES cmake/orvguiConfig.cmake cmake/Console.cmake cmake/page.ld
        DESTINATION ${package_folder} COMPONENT Development)
install(EXPORT orvgui FILE orvguiTargets.cmake NAMESPACE orvgui:: DESTINATION ${package_folder}
        COMPONENT Development)
