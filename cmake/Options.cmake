# How the project's own targets are compiled and linked: each links orvgui_options PRIVATE, so that
# programs which use the library get none of it.
add_library(orvgui_options INTERFACE)
target_compile_features(orvgui_options INTERFACE cxx_std_17)

# platform/common is for every target of the project, and not installed.
target_include_directories(orvgui_options INTERFACE ${PROJECT_SOURCE_DIR}/platform)

# File sizes and times have 64 bits on a 32-bit board too.
target_compile_definitions(orvgui_options INTERFACE _FILE_OFFSET_BITS=64 _TIME_BITS=64)

target_compile_options(orvgui_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wcast-qual -Wundef -Wformat=2
    -Wdouble-promotion
    "$<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond;-Wlogical-op>"
    "$<$<BOOL:${ORVGUI_WERROR}>:-Werror>")

if(ORVGUI_SANITIZE)
    target_compile_options(orvgui_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(orvgui_options INTERFACE -fsanitize=address,undefined)
endif()

if(ORVGUI_FUZZ)
    # The fuzzer observes which code an input reaches and which values it is compared with.
    target_compile_options(orvgui_options INTERFACE
        -fsanitize=fuzzer-no-link,float-cast-overflow,float-divide-by-zero)
endif()

# Defaults for the properties of the targets defined from here on. Like all variables they are not
# visible to a project that embeds this one.
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)  # read by lint and tests
endif()

# Refuses a target of `folder` or of a folder below it that is built without orvgui_options.
function(orvgui_require_options folder)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        get_target_property(libraries ${target} LINK_LIBRARIES)
        if(type MATCHES "EXECUTABLE|LIBRARY" AND NOT type STREQUAL "INTERFACE_LIBRARY"
                AND NOT libraries MATCHES "orvgui_options")
            message(SEND_ERROR "Let ${target} link orvgui_options PRIVATE, like every target here")
        endif()
    endforeach()
    get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(below IN LISTS folders)
        orvgui_require_options(${below})
    endforeach()
endfunction()
