# What scripts/coverage counts: which lines and branches of src/ and kit/ are run, each branch as written.
# Tests are compiled as in every other build, so that ccache has them already.
option(ORVEL_COVERAGE "Count what is run of src/ and kit/ (g++)" OFF)
set(orvel_counted "")
if(ORVEL_COVERAGE)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        message(FATAL_ERROR "What gcov counts has to be compiled by g++: start with CXX=g++.")
    endif()
    set(orvel_counted --coverage -fprofile-update=atomic "-fprofile-filter-files=/(src|kit)/")
    add_link_options(--coverage)
endif()
