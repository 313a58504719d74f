# Debian's cross compilers. -DORVEL_TRIPLE= names the machine: aarch64-linux-gnu, arm-linux-gnueabihf,
# i686-linux-gnu or s390x-linux-gnu; -DORVEL_CROSS_CLANG=ON takes clang++, from which Apple's compiler is
# made. What is built runs in qemu's emulation of a process; i686 on the processor itself.
set(ORVEL_TRIPLE aarch64-linux-gnu CACHE STRING "The machine to build for")
option(ORVEL_CROSS_CLANG "Build for it with clang++" OFF)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORVEL_TRIPLE ORVEL_CROSS_CLANG)

string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${ORVEL_TRIPLE})
set(CMAKE_SYSTEM_NAME Linux)
if(ORVEL_CROSS_CLANG)
    set(CMAKE_C_COMPILER clang)
    set(CMAKE_CXX_COMPILER clang++)
    set(CMAKE_C_COMPILER_TARGET ${ORVEL_TRIPLE})
    set(CMAKE_CXX_COMPILER_TARGET ${ORVEL_TRIPLE})
else()
    set(CMAKE_C_COMPILER ${ORVEL_TRIPLE}-gcc)
    set(CMAKE_CXX_COMPILER ${ORVEL_TRIPLE}-g++)
endif()

set(CMAKE_FIND_ROOT_PATH /usr/${ORVEL_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
    set(CMAKE_CROSSCOMPILING_EMULATOR
        ${CMAKE_FIND_ROOT_PATH}/lib/ld-linux.so.2 --library-path ${CMAKE_FIND_ROOT_PATH}/lib)
else()
    set(CMAKE_CROSSCOMPILING_EMULATOR
        qemu-${CMAKE_SYSTEM_PROCESSOR}-static -L ${CMAKE_FIND_ROOT_PATH})
endif()
