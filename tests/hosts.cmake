# Hosts and machines that are unlike others.
add_executable(plain_host hosts/plain_host.c)
target_include_directories(plain_host PRIVATE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(plain_host PRIVATE ${CMAKE_DL_LIBS} orvel_warnings)

# The library that it brings names nothing that it needs, and comes last: the loader starts it first.
add_library(early_library SHARED hosts/early_library.c)
target_include_directories(early_library PRIVATE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(early_library PRIVATE orvel_warnings)
add_executable(early_host hosts/early_host.cpp)
target_link_libraries(early_host PRIVATE OrvelSDK early_library orvel_warnings)

orvel_test(loading_test)
target_compile_definitions(loading_test PRIVATE
    ORVEL_LIBRARY="$<TARGET_FILE:OrvelSDK>" ORVEL_PLAIN_HOST="$<TARGET_FILE:plain_host>"
    ORVEL_EARLY_HOST="$<TARGET_FILE:early_host>")
add_dependencies(loading_test plain_host early_host)

orvel_sound_test(descriptors_test support/fake_system_sound.cpp)

foreach(test IN ITEMS extremes_test any_text_test)
    orvel_sound_test(${test} support/fake_system_sound.cpp
        support/interface.cpp support/interface_models.cpp support/interface_test.cpp
        support/widget_samples.cpp models/icon_model.cpp models/widget_model.cpp)
    target_link_libraries(${test} PRIVATE test_models)
endforeach()

# Locales of the tests' own, so that none has to be installed.
orvel_sound_test(locales_test support/fake_system_sound.cpp support/widget_samples.cpp)
find_program(LOCALEDEF localedef)
find_file(LOCALE_SOURCE tr_TR PATHS /usr/share/i18n/locales NO_DEFAULT_PATH)
if(LOCALEDEF AND LOCALE_SOURCE)
    set(locales ${CMAKE_CURRENT_BINARY_DIR}/locales)
    file(MAKE_DIRECTORY ${locales})
    foreach(locale IN ITEMS de_DE.UTF-8 tr_TR.UTF-8 tr_TR.ISO-8859-9)
        string(REGEX MATCH "^([^.]+)\\.(.+)$" match ${locale})
        add_custom_command(OUTPUT ${locales}/${locale}/LC_CTYPE
            COMMAND ${LOCALEDEF} --no-archive -i ${CMAKE_MATCH_1} -f ${CMAKE_MATCH_2}
                    ${locales}/${locale})
        target_sources(locales_test PRIVATE ${locales}/${locale}/LC_CTYPE)
    endforeach()
    target_compile_definitions(locales_test PRIVATE ORVEL_LOCALES="${locales}")
endif()

orvel_test(host_players_test SLOW)
target_link_libraries(host_players_test PRIVATE private_system)
target_compile_definitions(host_players_test PRIVATE
    ORVEL_STAND_IN_PLAYER="$<TARGET_FILE:stand_in_player>")
add_dependencies(host_players_test stand_in_player)

orvel_test(security_test)

add_executable(audio_limits_test audio_limits_test.cpp support/audio_server.cpp)
target_link_libraries(audio_limits_test PRIVATE private_system Threads::Threads)
gtest_discover_tests(audio_limits_test DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
