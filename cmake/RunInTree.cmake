# orvel_run_in_tree(TARGET): lets a program of this build run before anything is installed.
#
# The library's install name on macOS is no path, so a program linked to it would look for a file
# OrvelSDK where it was started; here its reference becomes the library's place in the build tree.
# Elsewhere the build tree's run path does this.
function(orvel_run_in_tree target)
    if(APPLE)
        add_custom_command(TARGET ${target} POST_BUILD VERBATIM
            COMMAND ${CMAKE_INSTALL_NAME_TOOL}
                    -change OrvelSDK $<TARGET_FILE:OrvelSDK> $<TARGET_FILE:${target}>)
    endif()
endfunction()
