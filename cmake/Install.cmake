# Where everything lies once installed: pages, skeletons and catalogues at the library's fixed
# paths, libraries and programs below the prefix.
include(GNUInstallDirs)

install(TARGETS orvgui orvplatform LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS orvboardd boardctl RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# The pages, each at the same path below the document root as in the build folder's site.
get_property(targets DIRECTORY console PROPERTY BUILDSYSTEM_TARGETS)
foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        get_target_property(folder ${target} RUNTIME_OUTPUT_DIRECTORY)
        cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${ORVGUI_STAGE} OUTPUT_VARIABLE path)
        install(TARGETS ${target} RUNTIME DESTINATION /${path})
    endif()
endforeach()
install(DIRECTORY ${ORVGUI_STAGE_SKELETONS}/ DESTINATION /usr/local/www/skel)
install(DIRECTORY ${ORVGUI_STAGE_CATALOGUES}/ DESTINATION /etc/orv/trace)
install(DIRECTORY ${ORVGUI_STAGE_PAGES}/ DESTINATION /usr/local/www/htdocs
        PATTERN *.cgi EXCLUDE)
