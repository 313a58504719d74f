# Warnings for everything that this project compiles; a host that adds it as a subdirectory is spared.
add_library(orvel_warnings INTERFACE)
target_compile_options(orvel_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror=switch
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
    $<$<COMPILE_LANG_AND_ID:CXX,Clang,AppleClang>:-Wreserved-identifier>
    # GCC 12 finds overlapping copies in std::string that cannot happen (its bug 105651).
    $<$<AND:$<COMPILE_LANG_AND_ID:CXX,GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
    $<$<BOOL:${ORVEL_WARNINGS_AS_ERRORS}>:-Werror>)
