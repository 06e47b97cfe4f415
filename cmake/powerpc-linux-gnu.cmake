# The board: 32-bit big-endian PowerPC, with Debian's cross compiler. scripts/board_libraries.sh
# builds the libraries that Debian does not package for it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ppc)
set(CMAKE_C_COMPILER powerpc-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER powerpc-linux-gnu-g++)

set(board_libraries ${CMAKE_CURRENT_LIST_DIR}/../build/board-libraries/root)
set(CMAKE_FIND_ROOT_PATH ${board_libraries} /usr/powerpc-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES ${board_libraries}/usr/include)

# Tests and other programs for the board run on the building machine through the emulator.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-ppc-static -L /usr/powerpc-linux-gnu)
