# orvel_add_screen_test(NAME name COMMAND program arguments... EXPECTED folder [MASK file])
#
# A test of CTest: it runs the program in an empty folder and compares the pictures that it leaves there
# with those in the folder EXPECTED, by orvel-compare. A program of this project is named by its target,
# which must be there already. When the test fails, it prints where the report is, and the command that
# approves what the program has drawn.
function(orvel_add_screen_test)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;EXPECTED;MASK" "COMMAND")
    foreach(needed IN ITEMS NAME COMMAND EXPECTED)
        if(NOT DEFINED arg_${needed})
            message(FATAL_ERROR "orvel_add_screen_test: ${needed} is missing")
        endif()
    endforeach()
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "orvel_add_screen_test: unknown argument ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if(TARGET orvel-compare)
        set(compare $<TARGET_FILE:orvel-compare>)
    else()
        # The programs of the tree that this file was installed in.
        set(lib ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../..)
        find_program(ORVEL_COMPARE orvel-compare HINTS ${lib}/../bin ${lib}/../../bin)
        if(NOT ORVEL_COMPARE)
            message(FATAL_ERROR "orvel_add_screen_test: there is no orvel-compare; "
                                "it comes with OrvelSDK's tools (Debian: orvelsdk-tools)")
        endif()
        set(compare ${ORVEL_COMPARE})
    endif()
    list(GET arg_COMMAND 0 program)
    if(TARGET ${program})
        set(program $<TARGET_FILE:${program}>)
    endif()
    set(mask "")
    if(DEFINED arg_MASK)
        get_filename_component(mask ${arg_MASK} ABSOLUTE)
    endif()
    get_filename_component(expected ${arg_EXPECTED} ABSOLUTE)
    string(MAKE_C_IDENTIFIER ${arg_NAME} folder)
    add_test(NAME ${arg_NAME} COMMAND ${CMAKE_COMMAND}
        -DFOLDER=${CMAKE_CURRENT_BINARY_DIR}/screen-tests/${folder} -DEXPECTED=${expected} -DMASK=${mask}
        -DCOMPARE=${compare} -DPROGRAM=${program}
        -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/RunScreens.cmake -- ${arg_COMMAND})
endfunction()
