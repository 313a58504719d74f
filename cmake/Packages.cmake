# What `cpack` makes, as scripts/package asks for it: of a build for /usr three .deb files, of any
# other one .tar.gz, which can be unpacked anywhere.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(CPACK_GENERATOR DEB)
else()
    set(CPACK_GENERATOR TGZ)
endif()
set(CPACK_PACKAGE_NAME orvelsdk)
set(CPACK_PACKAGE_FILE_NAME orvelsdk-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "user-interface and media toolkit with exact pixels")
set(CPACK_PACKAGE_CONTACT "OrvelSDK authors <authors@orvelsdk.example>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL runtime development)
if(ORVEL_BUILD_TOOLS)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(about "OrvelSDK draws application screens in memory and plays sounds, behind
a flat C interface. The same calls give the same bytes on every machine.
")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME liborvelsdk0)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/triggers)
# Music is played by programs, sounds by a library that is opened where it exists.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS
    "libcanberra0, libcanberra-pulse, pulseaudio-utils | pipewire-bin")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${about}
This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborvelsdk-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "liborvelsdk0 (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${about}
This package holds the header, what CMake and pkg-config need to find
the library, and six theme files.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME orvelsdk-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "liborvelsdk0 (>= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "${about}
This package holds the programs that compare and convert pictures and
check theme files.")

function(orvel_compress from to)
    execute_process(COMMAND ${ORVEL_GZIP} -9nc ${from}
                    OUTPUT_FILE ${PROJECT_BINARY_DIR}/${to} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Every package brings its licence and its history under the names that Debian wants them to have.
function(orvel_package_documents package component)
    set(folder ${CMAKE_INSTALL_DATADIR}/doc/${package})
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE RENAME copyright
            DESTINATION ${folder} COMPONENT ${component})
    install(FILES ${PROJECT_BINARY_DIR}/changelog.gz DESTINATION ${folder} COMPONENT ${component})
endfunction()

file(GLOB orvel_man_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/man/*.1)
if(CPACK_GENERATOR STREQUAL "DEB")
    find_program(ORVEL_GZIP gzip REQUIRED)
    execute_process(COMMAND ${PROJECT_SOURCE_DIR}/cmake/debian_changelog ${CPACK_PACKAGE_CONTACT}
                    INPUT_FILE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
                    OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
    orvel_compress(${PROJECT_BINARY_DIR}/changelog changelog.gz)
    orvel_package_documents(liborvelsdk0 runtime)
    orvel_package_documents(liborvelsdk-dev development)
    orvel_package_documents(orvelsdk-tools tools)
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/lintian-overrides RENAME liborvelsdk0
            DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT runtime)
    set(orvel_compressed_pages)
    foreach(page IN LISTS orvel_man_pages)
        get_filename_component(name ${page} NAME)
        orvel_compress(${page} ${name}.gz)
        list(APPEND orvel_compressed_pages ${PROJECT_BINARY_DIR}/${name}.gz)
    endforeach()
    set(orvel_man_pages ${orvel_compressed_pages})
else()
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
            DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
endif()
if(ORVEL_BUILD_TOOLS)
    install(FILES ${orvel_man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
endif()

include(CPack)
