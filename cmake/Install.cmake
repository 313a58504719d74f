# The installed tree: header, library, and the two ways to find them.
include(CMakePackageConfigHelpers)

install(FILES ${PROJECT_SOURCE_DIR}/include/orvel.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT development)
install(TARGETS OrvelSDK EXPORT OrvelSDKTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                COMPONENT runtime NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

if(APPLE)
    # A program looks for its library by the install name, which is not the name that linkers look for.
    file(CREATE_LINK libOrvelSDK.dylib ${PROJECT_BINARY_DIR}/OrvelSDK SYMBOLIC)
    install(FILES ${PROJECT_BINARY_DIR}/OrvelSDK DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT runtime)
endif()

# The .pc file finds its prefix from its own place, so that an installed tree can be moved.
file(RELATIVE_PATH orvel_pc_to_prefix
     /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" orvel_pc_to_prefix "${orvel_pc_to_prefix}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvelsdk.pc.in orvelsdk.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvelsdk.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

set(orvel_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OrvelSDK)
install(EXPORT OrvelSDKTargets NAMESPACE OrvelSDK:: FILE OrvelSDKConfig.cmake
        DESTINATION ${orvel_package_dir} COMPONENT development)
write_basic_package_version_file(OrvelSDKConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/OrvelSDKConfigVersion.cmake DESTINATION ${orvel_package_dir}
        COMPONENT development)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/share/themes
        DESTINATION ${CMAKE_INSTALL_DATADIR}/orvelsdk COMPONENT development)
