# What a test of orvel_add_screen_test() does:
# cmake -DFOLDER=... -DEXPECTED=... -DMASK=... -DCOMPARE=... -DPROGRAM=... -P this -- name arguments...
cmake_minimum_required(VERSION 3.19)
set(drawn ${FOLDER}/actual)
set(report ${FOLDER}/report.html)
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${drawn})

# The program with what comes after -- and its name, as it is, whatever separates lists for CMake.
set(command "[==[${PROGRAM}]==]")
set(before 1)
while(NOT CMAKE_ARGV${before} STREQUAL "--")
    math(EXPR before "${before} + 1")
endwhile()
math(EXPR first "${before} + 2")
math(EXPR last "${CMAKE_ARGC} - 1")
if(first LESS_EQUAL last)
    foreach(i RANGE ${first} ${last})
        string(APPEND command " [==[${CMAKE_ARGV${i}}]==]")
    endforeach()
endif()
cmake_language(EVAL CODE
    "execute_process(COMMAND ${command} WORKING_DIRECTORY [==[${drawn}]==] RESULT_VARIABLE status)")
if(NOT status EQUAL 0)
    message(FATAL_ERROR "The program failed: ${status}")
endif()

set(options "")
if(MASK)
    set(options --mask ${MASK})
endif()
execute_process(COMMAND ${COMPARE} ${EXPECTED} ${drawn} --report ${report} ${options}
                RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message("The report: ${report}\n"
            "To approve what was drawn: '${COMPARE}' --approve '${EXPECTED}' '${drawn}'")
    message(FATAL_ERROR "The screens are not as expected.")
endif()
