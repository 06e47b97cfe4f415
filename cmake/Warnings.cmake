# What every target of the project is compiled with: warnings are errors, sanitizers on request.
add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wcast-qual -Wundef -Wformat=2
    -Wdouble-promotion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wduplicated-cond -Wlogical-op)
endif()

if(ORVGUI_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(ORVGUI_FUZZ)
    # What the fuzzer watches: which code an input reaches, and what it compares with what.
    add_compile_options(-fsanitize=fuzzer-no-link,float-cast-overflow,float-divide-by-zero)
endif()
