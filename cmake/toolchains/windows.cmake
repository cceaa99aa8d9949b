# Windows on x86-64, built by Debian's mingw-w64 (package g++-mingw-w64-x86-64-posix) and run by Wine elsewhere.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
include(${CMAKE_CURRENT_LIST_DIR}/foreign.cmake)
