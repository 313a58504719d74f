# The commands at the top of the tree.
foreach(rule IN ITEMS
        bootstrap_is_silent_and_fetches_nothing_when_nothing_is_missing
        bootstrap_installs_only_what_is_missing
        bootstrap_takes_the_first_name_that_the_system_knows
        bootstrap_says_why_a_package_was_not_installed
        bootstrap_needs_root_or_sudo_to_install
        bootstrap_without_a_package_manager_names_what_is_missing
        commands_explain_themselves
        mistakes_are_said_in_one_line)
    add_test(NAME Scripts.${rule}
             COMMAND ${CMAKE_CURRENT_LIST_DIR}/scripts_test.sh ${PROJECT_SOURCE_DIR} ${rule})
    set_tests_properties(Scripts.${rule} PROPERTIES TIMEOUT 60)
endforeach()
