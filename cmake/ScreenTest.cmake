# orvel_add_screen_test(NAME name COMMAND program arguments... EXPECTED folder [MASK file])
# orvel_add_screen_test(NAME name SCENE file [DATA file] [OPTIONS option...] EXPECTED folder [MASK file])
#
# A test of CTest: it runs the program in an empty folder and compares the pictures that it leaves there
# with those in the folder EXPECTED, by orvel-compare. A program of this project is named by its target,
# which must be there already. Of a scene, orvel-render draws the picture and writes what the screen shows
# in words, with the values of DATA, or else the scene's own; both are compared. OPTIONS are more of
# orvel-render's, --panel mono for instance. When the test fails, it prints where the report is, and the
# command that approves what was drawn.
function(orvel_add_screen_test)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;SCENE;DATA;EXPECTED;MASK" "COMMAND;OPTIONS")
    foreach(needed IN ITEMS NAME EXPECTED)
        if(NOT DEFINED arg_${needed})
            message(FATAL_ERROR "orvel_add_screen_test: ${needed} is missing")
        endif()
    endforeach()
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "orvel_add_screen_test: unknown argument ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if((DEFINED arg_COMMAND AND DEFINED arg_SCENE) OR NOT (DEFINED arg_COMMAND OR DEFINED arg_SCENE))
        message(FATAL_ERROR "orvel_add_screen_test: ${arg_NAME} needs either COMMAND or SCENE")
    endif()
    if(NOT DEFINED arg_SCENE AND (DEFINED arg_DATA OR DEFINED arg_OPTIONS))
        message(FATAL_ERROR "orvel_add_screen_test: DATA and OPTIONS go with SCENE")
    endif()
    orvel_find_tool(compare)
    set(description "")
    if(DEFINED arg_SCENE)
        orvel_find_tool(render)
        get_filename_component(scene ${arg_SCENE} ABSOLUTE)
        get_filename_component(picture ${arg_SCENE} NAME_WLE)
        set(description ${picture}.txt)
        set(values --sample)
        if(DEFINED arg_DATA)
            get_filename_component(data ${arg_DATA} ABSOLUTE)
            set(values --data ${data})
        endif()
        set(arg_COMMAND ${render} ${scene} ${values} -o ${picture}.png --describe ${arg_OPTIONS})
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
        -DCOMPARE=${compare} -DPROGRAM=${program} -DDESCRIPTION=${description}
        -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/RunScreens.cmake -- ${arg_COMMAND})
endfunction()

# orvel_find_tool(NAME) sets NAME to the program orvel-NAME: of this project, of the tree that this file was
# installed in, or any.
function(orvel_find_tool name)
    if(TARGET orvel-${name})
        set(${name} $<TARGET_FILE:orvel-${name}> PARENT_SCOPE)
        return()
    endif()
    string(TOUPPER ORVEL_${name} found)
    set(lib ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../..)
    find_program(${found} orvel-${name} HINTS ${lib}/../bin ${lib}/../../bin)
    if(NOT ${found})
        message(FATAL_ERROR "orvel_add_screen_test: there is no orvel-${name}; "
                            "it comes with OrvelSDK's tools (Debian: orvelsdk-tools)")
    endif()
    set(${name} ${${found}} PARENT_SCOPE)
endfunction()
