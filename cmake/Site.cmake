# The site, with the files that a web server serves and the library reads, is made in the build
# folder. Paths below it are the same as those below / on a board.
set(ORVGUI_STAGE ${PROJECT_BINARY_DIR}/site)
set(ORVGUI_STAGE_SKELETONS ${ORVGUI_STAGE}/usr/local/www/skel)
set(ORVGUI_STAGE_PAGES ${ORVGUI_STAGE}/usr/local/www/htdocs)
set(ORVGUI_STAGE_CATALOGUES ${ORVGUI_STAGE}/etc/orv/trace)

# It is installed where the library looks for it, whatever the prefix is.
set(ORVGUI_PAGES_FOLDER ${ORVGUI_SITE_ROOT}/usr/local/www/htdocs)
set(ORVGUI_CATALOGUES ${ORVGUI_SITE_ROOT}/etc/orv/trace)

# The folder of the back-end daemon's socket.
file(MAKE_DIRECTORY ${ORVGUI_STAGE}/var/run)

# Copies files of the source tree to a folder of the site whenever they change, and installs them:
# orvgui_stage(TARGET FOLDER FILE…).
function(orvgui_stage target folder)
    set(staged)
    foreach(file IN LISTS ARGN)
        cmake_path(GET file FILENAME name)
        cmake_path(ABSOLUTE_PATH file OUTPUT_VARIABLE source)
        add_custom_command(
            OUTPUT ${folder}/${name}
            COMMAND ${CMAKE_COMMAND} -E copy ${source} ${folder}/${name}
            DEPENDS ${source})
        list(APPEND staged ${folder}/${name})
    endforeach()
    add_custom_target(${target} ALL DEPENDS ${staged})
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${ORVGUI_STAGE} OUTPUT_VARIABLE below)
    install(FILES ${ARGN} DESTINATION ${ORVGUI_SITE_ROOT}/${below} COMPONENT Console)
endfunction()
