# The same arithmetic on every host, for whatever computes pixels or samples: 32-bit formulas wrap, no
# product and sum are fused, and 32-bit x86 computes in doubles, not in the 80 bits of its older unit.
add_library(orvel_arithmetic INTERFACE)
target_compile_options(orvel_arithmetic INTERFACE -fwrapv -ffp-contract=off)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86_64|AMD64)$" AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(orvel_arithmetic INTERFACE -msse2 -mfpmath=sse)
endif()
