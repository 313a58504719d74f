# What a test of orvel_add_screen_test() does:
# cmake -DFOLDER=... -DEXPECTED=... -DMASK=... -DCOMPARE=... -DPROGRAM=... -DDESCRIPTION=...
#       -P this -- name arguments...
cmake_minimum_required(VERSION 3.19)
set(drawn ${FOLDER}/actual)
set(report ${FOLDER}/report.html)
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${drawn})

# The program with what comes after -- and its name, as it is, whatever separates lists for CMake. What it
# prints is the description, if there is one.
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
set(to "")
if(DESCRIPTION)
    set(to "OUTPUT_FILE [==[${drawn}/${DESCRIPTION}]==]")
endif()
cmake_language(EVAL CODE
    "execute_process(COMMAND ${command} WORKING_DIRECTORY [==[${drawn}]==] RESULT_VARIABLE status ${to})")
if(NOT status EQUAL 0)
    message(FATAL_ERROR "The program failed: ${status}")
endif()

set(options "")
if(MASK)
    set(options --mask ${MASK})
endif()
execute_process(COMMAND ${COMPARE} ${EXPECTED} ${drawn} --report ${report} ${options}
                RESULT_VARIABLE status)
set(approval "'${COMPARE}' --approve '${EXPECTED}' '${drawn}'")

if(DESCRIPTION)
    set(words "")
    if(EXISTS ${EXPECTED}/${DESCRIPTION})
        file(READ ${EXPECTED}/${DESCRIPTION} words)
    endif()
    file(READ ${drawn}/${DESCRIPTION} found)
    if(NOT found STREQUAL words)
        set(status 1)
    endif()
    set(number 1)
    while(NOT found STREQUAL words)
        foreach(text IN ITEMS words found)
            string(FIND "${${text}}" "\n" end)
            string(SUBSTRING "${${text}}" 0 ${end} ${text}_line)
            math(EXPR end "${end} + 1")
            string(SUBSTRING "${${text}}" ${end} -1 ${text})
        endforeach()
        if(NOT found_line STREQUAL words_line)
            message("${DESCRIPTION}: line ${number}: expected ${words_line}\n"
                    "${DESCRIPTION}: line ${number}: found    ${found_line}")
            break()
        endif()
        math(EXPR number "${number} + 1")
    endwhile()
    string(APPEND approval
        " && '${CMAKE_COMMAND}' -E copy '${drawn}/${DESCRIPTION}' '${EXPECTED}/${DESCRIPTION}'")
endif()

if(NOT status EQUAL 0)
    message("The report: ${report}\n"
            "To approve what was drawn: ${approval}")
    message(FATAL_ERROR "The screens are not as expected.")
endif()
