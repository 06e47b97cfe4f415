# GoogleTest for the machine that is built for, from the sources in Debian's package googletest.
find_package(Threads REQUIRED)
set(googletest /usr/src/googletest/googletest)
add_library(gtest_main STATIC ${googletest}/src/gtest-all.cc ${googletest}/src/gtest_main.cc)
target_include_directories(gtest_main PRIVATE ${googletest})
target_include_directories(gtest_main SYSTEM PUBLIC ${googletest}/include)
target_compile_options(gtest_main PRIVATE -w)
target_link_libraries(gtest_main PRIVATE orvgui_options PUBLIC Threads::Threads)
add_library(GTest::gtest_main ALIAS gtest_main)
