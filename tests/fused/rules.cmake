# The library rounds a product before it adds to it, also where the processor could leave that out.
set(fused_test ${CMAKE_CURRENT_LIST_DIR}/fused_test.sh ${CMAKE_OBJDUMP})
add_test(NAME Fused.NoProductOfTheLibraryIs COMMAND ${fused_test} $<TARGET_FILE:OrvelSDK>)

# That the test finds one.
add_library(one_step OBJECT fused/one_step.c)
target_compile_options(one_step PRIVATE -O2 -ffp-contract=fast
    $<$<STREQUAL:${CMAKE_SYSTEM_PROCESSOR},x86_64>:-mfma>)
add_test(NAME Fused.OneInAnotherProgramIsFound COMMAND ${fused_test} $<TARGET_OBJECTS:one_step>)
set_tests_properties(Fused.OneInAnotherProgramIsFound PROPERTIES
    PASS_REGULAR_EXPRESSION "fmadd.*has these")
set_tests_properties(Fused.NoProductOfTheLibraryIs Fused.OneInAnotherProgramIsFound PROPERTIES
    LABELS pixels)
add_dependencies(pixel_tests one_step)
