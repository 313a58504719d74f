# orvel_run_in_tree(TARGET): lets a program of this build, or another library of it, find the library,
# installed or not.
#
# The library's install name on macOS is no path, so a program linked to it would look for a file
# OrvelSDK where it was started; here it gets a reference that run paths lead from. Elsewhere every
# program has that from the start.
function(orvel_run_in_tree target)
    if(APPLE)
        set_property(TARGET ${target} APPEND PROPERTY BUILD_RPATH ${PROJECT_BINARY_DIR})
        add_custom_command(TARGET ${target} POST_BUILD VERBATIM
            COMMAND ${CMAKE_INSTALL_NAME_TOOL}
                    -change OrvelSDK @rpath/libOrvelSDK.dylib $<TARGET_FILE:${target}>)
    endif()
endfunction()
