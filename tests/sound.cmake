# The sound sources from inside, with their system calls recorded on the way to the real ones. The
# renaming would be undone by inlined checks of the C library, so those are off.
add_library(recorded_sound OBJECT
    ${PROJECT_SOURCE_DIR}/src/core/files.cpp
    ${PROJECT_SOURCE_DIR}/src/sound/player_posix.cpp
    ${PROJECT_SOURCE_DIR}/src/sound/sound.cpp
    ${PROJECT_SOURCE_DIR}/src/sound/tone.cpp
    support/recorded_system.cpp)
target_link_libraries(recorded_sound PUBLIC test_support)
target_compile_options(recorded_sound PRIVATE -U_FORTIFY_SOURCE)
set_source_files_properties(${PROJECT_SOURCE_DIR}/src/sound/player_posix.cpp
    TARGET_DIRECTORY recorded_sound PROPERTIES COMPILE_DEFINITIONS
    "access=recorded_access;fork=recorded_fork;execl=recorded_execl;_exit=recorded__exit;kill=recorded_kill;waitpid=recorded_waitpid")
set_source_files_properties(${PROJECT_SOURCE_DIR}/src/sound/tone.cpp
    TARGET_DIRECTORY recorded_sound PROPERTIES COMPILE_DEFINITIONS
    "open=recorded_open;write=recorded_write")

add_executable(stand_in_player support/stand_in_player.cpp)
target_compile_features(stand_in_player PRIVATE cxx_std_20)
target_link_libraries(stand_in_player PRIVATE orvel_warnings)

# orvel_sound_test(NAME sources...)
function(orvel_sound_test name)
    orvel_test(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE recorded_sound)
    target_compile_definitions(${name} PRIVATE
        ORVEL_STAND_IN_PLAYER="$<TARGET_FILE:stand_in_player>")
    add_dependencies(${name} stand_in_player)
endfunction()

orvel_sound_test(tone_test support/fake_system_sound.cpp)
orvel_sound_test(player_test support/fake_system_sound.cpp)
orvel_sound_test(sound_test support/fake_system_sound.cpp)

# Each platform's own source, against a recorder of what it calls.
orvel_test(system_sound_apple_test ${PROJECT_SOURCE_DIR}/src/sound/system_sound_apple.cpp)
target_include_directories(system_sound_apple_test BEFORE PRIVATE support/apple)

if(NOT APPLE)
    orvel_test(effect_file_test
        ${PROJECT_SOURCE_DIR}/src/sound/effect_file.cpp ${PROJECT_SOURCE_DIR}/src/core/files.cpp)

    add_library(recorded_canberra OBJECT ${PROJECT_SOURCE_DIR}/src/sound/system_sound_linux.cpp)
    target_link_libraries(recorded_canberra PRIVATE test_support)
    target_compile_definitions(recorded_canberra PRIVATE
        dlopen=recorded_dlopen dlsym=recorded_dlsym dlclose=recorded_dlclose)
    orvel_test(system_sound_linux_test
        ${PROJECT_SOURCE_DIR}/src/sound/effect_file.cpp ${PROJECT_SOURCE_DIR}/src/core/files.cpp)
    target_link_libraries(system_sound_linux_test PRIVATE recorded_canberra)

    # The library as it is shipped. Timed by what is heard: nothing else runs beside these.
    add_library(private_system OBJECT support/private_system.cpp)
    target_link_libraries(private_system PUBLIC test_support)
    find_package(Threads REQUIRED)
    add_executable(audio_server_test audio_server_test.cpp support/audio_server.cpp)
    target_link_libraries(audio_server_test PRIVATE private_system Threads::Threads)
    if(TARGET sounds)
        add_dependencies(audio_server_test sounds)
    endif()
    gtest_discover_tests(audio_server_test DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT 300 RUN_SERIAL TRUE)

    list(APPEND pixel_tests tone_file_test)
    orvel_test(tone_file_test)
    target_link_libraries(tone_file_test PRIVATE private_system)
    add_dependencies(pixel_tests tone_file_test)

    orvel_test(player_program_test)
    target_link_libraries(player_program_test PRIVATE private_system)
    target_compile_definitions(player_program_test PRIVATE
        ORVEL_STAND_IN_PLAYER="$<TARGET_FILE:stand_in_player>")
    add_dependencies(player_program_test stand_in_player)
endif()
