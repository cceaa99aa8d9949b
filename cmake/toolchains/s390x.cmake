# Linux on s390x, built by Debian's cross compiler (package g++-s390x-linux-gnu) and run by QEMU.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_C_COMPILER s390x-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/s390x-linux-gnu)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-s390x-static)
include(${CMAKE_CURRENT_LIST_DIR}/foreign.cmake)
