# Core, canvas and text; the interface as a whole.
# The plain models of the drawing functions, and the calls that compare the two.
add_library(test_models STATIC
    models/shapes_model.cpp models/text_model.cpp models/printed_font.cpp
    models/icon_model.cpp models/widget_model.cpp support/primitives.cpp support/sweep.cpp)
target_link_libraries(test_models PUBLIC test_support)
target_compile_options(test_models PRIVATE $<$<NOT:$<CONFIG:Debug>>:-O2>)

foreach(module IN ITEMS state resources canvas shapes round_shapes bmp text layers)
    orvel_test(${module}_test)
endforeach()
orvel_test(out_of_memory_test support/allocations.cpp)
orvel_test(font_test ${PROJECT_SOURCE_DIR}/src/text/font.cpp)
orvel_test(sweep_test)
orvel_test(sweep_slow_test SLOW)
find_package(Threads REQUIRED)
orvel_test(threads_test)
target_link_libraries(threads_test PRIVATE Threads::Threads)
if(ORVEL_SANITIZE MATCHES thread)
    orvel_test(race_test)
endif()
foreach(test IN ITEMS font_test sweep_test sweep_slow_test threads_test)
    target_link_libraries(${test} PRIVATE test_models)
endforeach()
if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
    orvel_test(exports_test)
    target_compile_definitions(exports_test PRIVATE ORVEL_LIBRARY="$<TARGET_FILE:OrvelSDK>")
    include(torture/rules.cmake)
endif()

# The interface from C: a strict C99 host, and the header alone by every standard from C99 on.
add_executable(c_api_test c_api_test.c)
set_target_properties(c_api_test PROPERTIES
    C_STANDARD 99 C_STANDARD_REQUIRED ON C_EXTENSIONS OFF)
target_link_libraries(c_api_test PRIVATE OrvelSDK orvel_warnings)
orvel_run_in_tree(c_api_test)
add_test(NAME CApi.EveryFunctionCanBeCalledFromC99
         COMMAND c_api_test ${CMAKE_CURRENT_BINARY_DIR}/c_api_test.bmp)
foreach(standard IN ITEMS c99 c11 c17 c++11 c++14 c++17 c++20)
    if(standard MATCHES "\\+")
        set(compile ${CMAKE_CXX_COMPILER} -x c++)
    else()
        set(compile ${CMAKE_C_COMPILER} -x c -Wstrict-prototypes)
    endif()
    add_test(NAME Header.IsCleanBy.${standard}
             COMMAND ${compile} -std=${standard} -Wall -Wextra -Wpedantic -Werror -fsyntax-only
                     -I${PROJECT_SOURCE_DIR}/include ${CMAKE_CURRENT_LIST_DIR}/header_test.c)
    if(NOT standard STREQUAL c99)  # which has no static assertions
        add_test(NAME Header.KeepsItsLayoutBy.${standard}
                 COMMAND ${compile} -std=${standard} -Wall -Wextra -Wpedantic -Werror -fsyntax-only
                         -I${PROJECT_SOURCE_DIR}/include ${CMAKE_CURRENT_LIST_DIR}/abi/layout.c)
    endif()
endforeach()
