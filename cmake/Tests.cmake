# How a test is declared. Labels say what is peculiar to it, here and nowhere else:
#   slow          takes long: `ctest -LE slow` leaves it out
#   realtime      times what is seen or heard in other programs, so it runs alone
#   pixels        sees pixels or the bytes of files: what scripts/matrix builds and runs
#   threads       runs threads: what the preset tsan builds and runs
#   no-emulation  cannot pass in a process that qemu emulates
#   no-memcheck   cannot pass, or end, in a process that valgrind watches
set(test_labels slow realtime pixels threads no-emulation no-memcheck)

option(ORVEL_TEST_WHOLE_PROGRAMS
       "Let ctest start each test program once, not each of its cases: for where a start is slow" OFF)

# orvel_test(NAME                  # NAME_test.cpp in the current folder becomes the program NAME_test
#            [IF condition]        # what it needs; without that it is left out, and that is said
#            [LABELS label...]     # of all its cases
#            [SOME "filter=label,label"...]  # further ones of the cases that the filter names
#            [SOURCES file...] [LIBRARIES target...] [DEFINITIONS definition...]
#            [NEEDS target...]     # built before it runs
#            [COUNTED])            # for coverage: it calls what is inline in headers and no library calls
function(orvel_test name)
    cmake_parse_arguments(arg "COUNTED" "" "IF;LABELS;SOME;SOURCES;LIBRARIES;DEFINITIONS;NEEDS" ${ARGN})
    orvel_declare(${CMAKE_CURRENT_SOURCE_DIR}/${name}_test.cpp)
    if(DEFINED arg_IF)
        if(${arg_IF})
        else()
            message(STATUS "${name}_test is left out: it needs ${arg_IF}")
            return()
        endif()
    endif()
    set(counted ${arg_SOURCES})
    list(FILTER counted INCLUDE REGEX "^${PROJECT_SOURCE_DIR}/(src|kit)/")
    if(arg_COUNTED)
        list(APPEND counted ${name}_test.cpp)
    endif()
    set_source_files_properties(${counted} PROPERTIES COMPILE_OPTIONS "${orvel_counted}")
    set(name ${name}_test)
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE test_support ${arg_LIBRARIES})
    target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
    target_precompile_headers(${name} REUSE_FROM test_support)
    orvel_run_in_tree(${name})
    if(arg_NEEDS)
        add_dependencies(${name} ${arg_NEEDS})
    endif()
    if("pixels" IN_LIST arg_LABELS)
        add_dependencies(pixel_tests ${name})
    endif()
    if("${arg_LABELS};${arg_SOME}" MATCHES "threads")
        add_dependencies(thread_tests ${name})
    endif()

    set(named "")
    foreach(some IN LISTS arg_SOME)
        string(REGEX MATCH "^(.+)=(.+)$" match "${some}")
        set(filter "${CMAKE_MATCH_1}")
        string(REPLACE "," ";" labels "${CMAKE_MATCH_2}")
        orvel_discover(${name} "${filter}" ${arg_LABELS} ${labels})
        string(APPEND named ":${filter}")
    endforeach()
    string(REGEX REPLACE "^:" "-" rest "${named}")
    orvel_discover(${name} "${rest}" ${arg_LABELS})
endfunction()

# orvel_case(NAME COMMAND command... [LABELS label...] [PROPERTIES property value...])
# One case that is a command. Files of this folder among its words count as declared.
function(orvel_case name)
    cmake_parse_arguments(arg "" "" "COMMAND;LABELS;PROPERTIES" ${ARGN})
    foreach(word IN LISTS arg_COMMAND)
        if(word MATCHES "^${PROJECT_SOURCE_DIR}/tests/" AND EXISTS "${word}")
            orvel_declare(${word})
        endif()
    endforeach()
    add_test(NAME ${name} COMMAND ${arg_COMMAND})
    orvel_properties(properties ${arg_LABELS})
    set_tests_properties(${name} PROPERTIES ${properties} ${arg_PROPERTIES})
endfunction()

function(orvel_discover name filter)
    orvel_properties(properties ${ARGN})
    if(ORVEL_TEST_WHOLE_PROGRAMS)
        string(JOIN "." case ${name} ${ARGN})
        if(filter)
            set(filter "--gtest_filter=${filter}")
        endif()
        add_test(NAME ${case} COMMAND ${name} --gtest_brief=1 ${filter})
        set_tests_properties(${case} PROPERTIES ${properties} TIMEOUT 1200)
        return()
    endif()
    gtest_discover_tests(${name} TEST_FILTER "${filter}" DISCOVERY_TIMEOUT 60
                         PROPERTIES ${properties})
endfunction()

# What the labels mean to ctest.
function(orvel_properties result)
    foreach(label IN LISTS ARGN)
        if(NOT label IN_LIST test_labels)
            message(FATAL_ERROR "${label} is no label: cmake/Tests.cmake lists them")
        endif()
    endforeach()
    set(properties TIMEOUT 300)
    if("slow" IN_LIST ARGN)
        set(properties TIMEOUT 1200 COST 100)  # first, so that none is left alone at the end
    endif()
    if("realtime" IN_LIST ARGN)
        list(APPEND properties RUN_SERIAL TRUE)
    endif()
    if("no-emulation" IN_LIST ARGN AND CMAKE_CROSSCOMPILING)
        list(APPEND properties DISABLED TRUE)
    endif()
    if(ARGN)
        # Joined, since a list would not survive the discovery of a program's cases; ctest's -L and -LE
        # look for expressions in it anyway.
        string(JOIN "+" labels ${ARGN})
        list(APPEND properties LABELS "${labels}")
    endif()
    set(${result} ${properties} PARENT_SCOPE)
endfunction()

# orvel_python_with(RESULT MODULE): a Python that has the module, or nothing. Debian's modules are for the
# system's Python, which need not be the one on the path.
function(orvel_python_with result module)
    foreach(python IN ITEMS ${Python3_EXECUTABLE} /usr/bin/python3)
        execute_process(COMMAND ${python} -c "import ${module}"
            RESULT_VARIABLE failed OUTPUT_QUIET ERROR_QUIET)
        if(failed EQUAL 0)
            set(${result} ${python} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    set(${result} "" PARENT_SCOPE)
endfunction()

function(orvel_declare file)
    set_property(GLOBAL APPEND PROPERTY ORVEL_DECLARED_TESTS ${file})
endfunction()

# Stops at a file named like a test that nobody declares: it would never run.
function(orvel_every_test_is_declared)
    file(GLOB_RECURSE files CONFIGURE_DEPENDS
        ${CMAKE_CURRENT_SOURCE_DIR}/*_test ${CMAKE_CURRENT_SOURCE_DIR}/*_test.*)
    list(FILTER files EXCLUDE REGEX "\\.h$")
    get_property(declared GLOBAL PROPERTY ORVEL_DECLARED_TESTS)
    list(REMOVE_ITEM files ${declared})
    if(files)
        list(JOIN files "\n  " files)
        message(FATAL_ERROR "No orvel_test() declares\n  ${files}")
    endif()
endfunction()
