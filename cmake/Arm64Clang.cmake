# The same machine by clang++, which is what Apple's compiler is made from.
include(${CMAKE_CURRENT_LIST_DIR}/Arm64.cmake)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
