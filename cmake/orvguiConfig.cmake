# The installed package: the libraries, and the functions that make a console of pages.
include(${CMAKE_CURRENT_LIST_DIR}/orvguiTargets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/Console.cmake)
