# Warnings for everything that this project compiles; a host that adds it as a subdirectory is spared.
add_library(orvel_warnings INTERFACE)
target_compile_options(orvel_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
    $<$<BOOL:${ORVEL_WARNINGS_AS_ERRORS}>:-Werror>)
