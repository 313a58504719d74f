# Which parts are built beside the library, which needs a compiler alone. A part that needs more is
# left out where that is missing, unless it was asked for: then the configuration stops.

# orvel_part(OPTION DESCRIPTION [package...])
function(orvel_part option description)
    if(PROJECT_IS_TOP_LEVEL AND NOT DEFINED ${option})
        foreach(package IN LISTS ARGN)
            find_package(${package} QUIET)
            if(NOT ${package}_FOUND)
                message(STATUS "${package} is missing: left out what ${option} would add")
                set(${option} OFF PARENT_SCOPE)
                return()
            endif()
        endforeach()
    endif()
    option(${option} "${description}" ${PROJECT_IS_TOP_LEVEL})
endfunction()

orvel_part(ORVEL_BUILD_SCREEN "Build the library of screens" nlohmann_json)
orvel_part(ORVEL_BUILD_TESTS "Build the test suite" GTest)
orvel_part(ORVEL_BUILD_TOOLS "Build the picture tools" CLI11 PNG)
orvel_part(ORVEL_BUILD_EXAMPLES "Build the examples")
option(ORVEL_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(ORVEL_BUILD_FUZZERS "Build the fuzz targets (clang)" OFF)
