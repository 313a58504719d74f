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
