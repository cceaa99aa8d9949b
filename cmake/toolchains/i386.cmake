# Linux on 32-bit x86, built by Debian's cross compiler (package g++-i686-linux-gnu) and run by QEMU.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/i686-linux-gnu)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-i386-static)
include(${CMAKE_CURRENT_LIST_DIR}/foreign.cmake)
