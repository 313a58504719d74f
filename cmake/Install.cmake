# The installed tree: of each library its headers, the library, and the two ways to find them. The
# components are called as the Debian packages that they go into.
include(CMakePackageConfigHelpers)

# The .pc files find their prefix from their own place, so that an installed tree can be moved.
file(RELATIVE_PATH orvel_pc_to_prefix
     /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" orvel_pc_to_prefix "${orvel_pc_to_prefix}")

# orvel_install_library(TARGET NAME pkg_config_name DESCRIPTION text HEADERS file...
#                       [COMPONENT name] [NEEDS pkg_config_name]
#                       [STATIC target] [STATIC_NEEDS pkg_config_name])
#
# COMPONENT is what hosts of CMake ask find_package(OrvelSDK) for to get it, NEEDS the library of this
# project that it links, STATIC the target of the same as an archive, STATIC_NEEDS what that links.
function(orvel_install_library target)
    cmake_parse_arguments(arg "" "NAME;DESCRIPTION;COMPONENT;NEEDS;STATIC;STATIC_NEEDS"
                          "HEADERS" ${ARGN})
    set(runtime lib${arg_NAME}0)
    set(development lib${arg_NAME}-dev)
    install(FILES ${arg_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT ${development})
    install(TARGETS ${target} ${arg_STATIC} EXPORT ${target}Targets
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                    COMPONENT ${runtime} NAMELINK_COMPONENT ${development}
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${development}
            INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

    set(libs "-L\${libdir} -l${target}")
    set(requires "")
    if(arg_NEEDS)
        set(requires "Requires: ${arg_NEEDS} = ${PROJECT_VERSION}\n")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${arg_NAME}.pc @ONLY)
    set(pc_files ${PROJECT_BINARY_DIR}/${arg_NAME}.pc)
    if(arg_STATIC)
        # The archive by its file, since linkers prefer the shared library of the same name.
        set(libs "\${libdir}/${CMAKE_STATIC_LIBRARY_PREFIX}${target}${CMAKE_STATIC_LIBRARY_SUFFIX}")
        get_target_property(runtime_of_cxx ${arg_STATIC} ORVEL_CXX_RUNTIME)
        list(TRANSFORM runtime_of_cxx PREPEND " -l")
        string(APPEND libs ${runtime_of_cxx})
        set(requires "Requires: ${arg_STATIC_NEEDS} = ${PROJECT_VERSION}\n")
        configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${arg_NAME}-static.pc @ONLY)
        list(APPEND pc_files ${PROJECT_BINARY_DIR}/${arg_NAME}-static.pc)
    endif()
    install(FILES ${pc_files} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
            COMPONENT ${development})
    install(EXPORT ${target}Targets NAMESPACE OrvelSDK:: FILE OrvelSDK${arg_COMPONENT}Targets.cmake
            DESTINATION ${orvel_package_dir} COMPONENT ${development})
endfunction()

set(orvel_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OrvelSDK)
orvel_install_library(OrvelSDK NAME orvelsdk DESCRIPTION "${PROJECT_DESCRIPTION}"
                      HEADERS ${PROJECT_SOURCE_DIR}/include/orvel.h)
if(APPLE)
    # A program looks for this library by its install name, not by the name that linkers look for.
    file(CREATE_LINK libOrvelSDK.dylib ${PROJECT_BINARY_DIR}/OrvelSDK SYMBOLIC)
    install(FILES ${PROJECT_BINARY_DIR}/OrvelSDK DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT liborvelsdk0)
endif()
orvel_install_library(OrvelKit NAME orvelkit COMPONENT Kit NEEDS orvelsdk
                      STATIC OrvelKitStatic STATIC_NEEDS orvelsdk
                      DESCRIPTION "Readable words, widgets, charts and pixels beside OrvelSDK"
                      HEADERS ${PROJECT_SOURCE_DIR}/kit/include/orvel_kit.h)

if(TARGET OrvelScreen)
    orvel_install_library(OrvelScreen NAME orvelscreen COMPONENT Screen NEEDS orvelkit
                          STATIC OrvelScreenStatic STATIC_NEEDS orvelkit-static
                          DESCRIPTION "Screens from files, laid out, drawn and described"
                          HEADERS ${PROJECT_SOURCE_DIR}/kit/include/orvel_screen.h)
endif()

write_basic_package_version_file(OrvelSDKConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/OrvelSDKConfig.cmake
              ${PROJECT_SOURCE_DIR}/cmake/ScreenTest.cmake
              ${PROJECT_SOURCE_DIR}/cmake/RunScreens.cmake
              ${PROJECT_BINARY_DIR}/OrvelSDKConfigVersion.cmake
        DESTINATION ${orvel_package_dir} COMPONENT liborvelsdk-dev)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/share/themes
        DESTINATION ${CMAKE_INSTALL_DATADIR}/orvelsdk COMPONENT liborvelsdk-dev)

# The scenes, which name the schema by the way to it, that is shorter in an installed tree.
set(scenes ${PROJECT_SOURCE_DIR}/scenes)
file(GLOB_RECURSE scene_files CONFIGURE_DEPENDS RELATIVE ${scenes} ${scenes}/*.json)
file(REMOVE_RECURSE ${PROJECT_BINARY_DIR}/scenes-to-install)
foreach(file IN LISTS scene_files)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${scenes}/${file})
    file(READ ${scenes}/${file} scene)
    string(REPLACE "\"../../share/schemas/" "\"../../schemas/" scene "${scene}")
    file(WRITE ${PROJECT_BINARY_DIR}/scenes-to-install/${file} "${scene}")
endforeach()
install(DIRECTORY ${scenes} DESTINATION ${CMAKE_INSTALL_DATADIR}/orvelsdk COMPONENT orvelsdk-tools
        PATTERN *.json EXCLUDE)
install(DIRECTORY ${PROJECT_BINARY_DIR}/scenes-to-install/
        DESTINATION ${CMAKE_INSTALL_DATADIR}/orvelsdk/scenes COMPONENT orvelsdk-tools)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/share/schemas
        DESTINATION ${CMAKE_INSTALL_DATADIR}/orvelsdk COMPONENT orvelsdk-tools)
install(FILES ${PROJECT_SOURCE_DIR}/bindings/orvel_api.json
        DESTINATION ${CMAKE_INSTALL_DATADIR}/orvelsdk COMPONENT liborvelsdk-dev)
