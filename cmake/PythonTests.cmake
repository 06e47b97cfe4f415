# The system's Python is preferred to another one earlier in PATH: it has the modules of Debian's
# packages.
if(NOT DEFINED Python3_EXECUTABLE AND EXISTS /usr/bin/python3)
    set(Python3_EXECUTABLE /usr/bin/python3)
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# A test in Python, by unittest in its own folder or by a script:
# orvgui_python_test(LABEL NAME SECONDS TEST.py|SCRIPT ARGUMENT… [ENVIRONMENT VARIABLE…]).
function(orvgui_python_test label name seconds)
    cmake_parse_arguments(PARSE_ARGV 3 test "" "" "ENVIRONMENT")
    if(test_UNPARSED_ARGUMENTS MATCHES "^[a-z]+_test\\.py$")
        set(test_UNPARSED_ARGUMENTS -m unittest ${test_UNPARSED_ARGUMENTS})
    endif()
    add_test(NAME ${label}_${name} COMMAND ${Python3_EXECUTABLE} -B ${test_UNPARSED_ARGUMENTS}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    set(environment CONSOLE_BUILD=${PROJECT_BINARY_DIR}
        PYTHONPATH=${PROJECT_SOURCE_DIR}/tests:${PROJECT_SOURCE_DIR}/scripts ${test_ENVIRONMENT})
    set_tests_properties(${label}_${name} PROPERTIES LABELS ${label} TIMEOUT ${seconds}
        ENVIRONMENT "${environment}")
endfunction()
