# What a test of orvel_add_screen_test() does:
# cmake -DFOLDER=... -DEXPECTED=... -DMASK=... -DCOMPARE=... -P this -- program arguments...
cmake_minimum_required(VERSION 3.19)
set(drawn ${FOLDER}/actual)
set(report ${FOLDER}/report.html)
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${drawn})

# What comes after -- is run as it is, whatever separates lists for CMake.
set(command "")
set(ours TRUE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(i RANGE ${last})
    if(NOT ours)
        string(APPEND command " [==[${CMAKE_ARGV${i}}]==]")
    elseif(CMAKE_ARGV${i} STREQUAL "--")
        set(ours FALSE)
    endif()
endforeach()
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
