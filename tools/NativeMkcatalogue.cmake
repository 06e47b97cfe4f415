# A cross build makes mkcatalogue for the building machine: the C library for the board comes without
# the character sets that mkcatalogue converts to.
find_program(ORVGUI_BUILD_CXX NAMES c++ g++ clang++ REQUIRED)
list(TRANSFORM mkcatalogue_sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE sources)
file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/mkcatalogue/*.h)
set(program ${CMAKE_CURRENT_BINARY_DIR}/mkcatalogue-native)
add_custom_command(
    OUTPUT ${program}
    COMMAND ${ORVGUI_BUILD_CXX} -std=c++17 -O1 -I${PROJECT_SOURCE_DIR}/platform ${sources}
            -o ${program}
    DEPENDS ${sources} ${headers})
add_custom_target(native_mkcatalogue DEPENDS ${program})
add_executable(mkcatalogue IMPORTED GLOBAL)
set_target_properties(mkcatalogue PROPERTIES IMPORTED_LOCATION ${program})
add_dependencies(mkcatalogue native_mkcatalogue)
