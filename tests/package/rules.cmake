# The packages, made once and tried rule by rule. The builds take their time, hence "slow".
set(package_rules sources_serve_add_subdirectory sources_serve_fetch_content are_made)
set(package_rules_after_making
    tarball_serves_pkg_config_anywhere tarball_serves_find_package
    tarball_holds_tools_that_find_their_library)
find_program(ORVEL_DPKG_SHLIBDEPS dpkg-shlibdeps)
if(ORVEL_DPKG_SHLIBDEPS)
    list(APPEND package_rules_after_making
         debs_serve_pkg_config debs_serve_find_package runtime_deb_holds_the_library_alone
         debs_depend_on_each_other tools_deb_holds_tools_that_run one_version_everywhere)
    find_program(ORVEL_LINTIAN lintian)
    if(ORVEL_LINTIAN)
        list(APPEND package_rules_after_making lintian_finds_nothing)
    endif()
endif()
foreach(rule IN LISTS package_rules package_rules_after_making)
    add_test(NAME Package.${rule} COMMAND ${CMAKE_CURRENT_LIST_DIR}/packages_test
             ${rule} ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/package-tests)
    set_tests_properties(Package.${rule} PROPERTIES LABELS slow TIMEOUT 1200)
endforeach()
set_tests_properties(Package.are_made PROPERTIES FIXTURES_SETUP packages RESOURCE_LOCK packages)
foreach(rule IN LISTS package_rules_after_making)
    set_tests_properties(Package.${rule} PROPERTIES FIXTURES_REQUIRED packages)
endforeach()
