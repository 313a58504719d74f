# What `cpack` makes, as scripts/package asks for it: of a build for /usr the .deb files, of any other
# one .tar.gz, which can be unpacked anywhere.
set(orvel_debian ${CMAKE_CURRENT_LIST_DIR}/debian)
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
set(CPACK_COMPONENTS_ALL)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

function(orvel_compress from to)
    execute_process(COMMAND ${ORVEL_GZIP} -9nc ${from}
                    OUTPUT_FILE ${PROJECT_BINARY_DIR}/${to} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(CPACK_GENERATOR STREQUAL "DEB")
    find_program(ORVEL_GZIP gzip REQUIRED)
    execute_process(COMMAND ${orvel_debian}/changelog ${CPACK_PACKAGE_CONTACT}
                    INPUT_FILE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
                    OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
    orvel_compress(${PROJECT_BINARY_DIR}/changelog changelog.gz)
else()
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
            DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT liborvelsdk-dev)
endif()

# For the bills of materials, which cannot see it: rows of a package and what was compiled into it.
file(WRITE ${PROJECT_BINARY_DIR}/compiled-in "")

# orvel_package(NAME SECTION section HOLDS text [DEPENDS packages] [RECOMMENDS packages]
#               [COMPILED_IN part version licence file...])
#
# A package of what is installed as the component NAME. The section libs is that of shared libraries.
# What others wrote and is compiled into it brings the file of its licence along.
macro(orvel_package name)
    cmake_parse_arguments(arg "" "SECTION;HOLDS;DEPENDS;RECOMMENDS" "COMPILED_IN" ${ARGN})
    string(TOUPPER ${name} id)
    list(APPEND CPACK_COMPONENTS_ALL ${name})
    set(CPACK_DEBIAN_${id}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${id}_PACKAGE_SECTION ${arg_SECTION})
    set(CPACK_DEBIAN_${id}_PACKAGE_DEPENDS "${arg_DEPENDS}")
    set(CPACK_DEBIAN_${id}_PACKAGE_RECOMMENDS "${arg_RECOMMENDS}")
    set(CPACK_COMPONENT_${id}_DESCRIPTION
        "OrvelSDK draws application screens in memory and plays sounds, behind
a flat C interface. The same calls give the same bytes on every machine.

This package holds ${arg_HOLDS}")
    if(arg_SECTION STREQUAL "libs")
        set(CPACK_DEBIAN_${id}_PACKAGE_CONTROL_EXTRA ${orvel_debian}/triggers)
    endif()
    orvel_install_documents(${name} ${arg_SECTION} ${arg_COMPILED_IN})
endmacro()

# Every Debian package brings its licences and its history under the names that Debian wants.
function(orvel_install_documents name section)  # [part version licence file]...
    set(folder ${CMAKE_INSTALL_DATADIR}/doc/${name})
    file(READ ${PROJECT_SOURCE_DIR}/LICENSE copyright)
    while(ARGN)
        list(POP_FRONT ARGN part version licence file)
        file(APPEND ${PROJECT_BINARY_DIR}/compiled-in "${name} ${part} ${version} ${licence}\n")
        file(READ ${file} other)
        string(APPEND copyright "\n${other}")
        if(NOT CPACK_GENERATOR STREQUAL "DEB")
            install(FILES ${file} RENAME ${part} COMPONENT ${name}
                    DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences)
        endif()
    endwhile()
    if(NOT CPACK_GENERATOR STREQUAL "DEB")
        return()
    endif()
    file(WRITE ${PROJECT_BINARY_DIR}/copyright.${name} "${copyright}")
    install(FILES ${PROJECT_BINARY_DIR}/copyright.${name} RENAME copyright
            DESTINATION ${folder} COMPONENT ${name})
    install(FILES ${PROJECT_BINARY_DIR}/changelog.gz DESTINATION ${folder} COMPONENT ${name})
    if(section STREQUAL "libs")
        install(FILES ${orvel_debian}/lintian-overrides RENAME ${name}
                DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${name})
    endif()
endfunction()

function(orvel_install_pages name)  # file...
    foreach(page IN LISTS ARGN)
        if(CPACK_GENERATOR STREQUAL "DEB")
            get_filename_component(file ${page} NAME)
            orvel_compress(${page} ${file}.gz)
            set(page ${PROJECT_BINARY_DIR}/${file}.gz)
        endif()
        install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${name})
    endforeach()
endfunction()

# Music is played by programs, sounds by libraries that are opened where they exist.
orvel_package(liborvelsdk0 SECTION libs
    RECOMMENDS "libpulse0, libsndfile1, pulseaudio-utils | pipewire-bin"
    HOLDS "the shared library.")
orvel_package(liborvelsdk-dev SECTION libdevel
    DEPENDS "liborvelsdk0 (= ${PROJECT_VERSION})"
    HOLDS "the header, the pkg-config and CMake files, manual\npages, the interfaces as data, and six theme files.")

set(letters DejaVu 2.37 Bitstream-Vera ${PROJECT_SOURCE_DIR}/kit/words/faces/LICENSE-DejaVu)
orvel_package(liborvelkit0 SECTION libs
    DEPENDS "liborvelsdk0 (= ${PROJECT_VERSION})"
    COMPILED_IN ${letters}
    HOLDS "the kit: words that people can read, widgets\nwith captions, charts, and pixels for files and panels.")
orvel_package(liborvelkit-dev SECTION libdevel
    DEPENDS "liborvelkit0 (= ${PROJECT_VERSION}), liborvelsdk-dev (= ${PROJECT_VERSION})"
    COMPILED_IN ${letters}
    HOLDS "the header of the kit, its static library, manual\npages, and the pkg-config and CMake files.")

if(TARGET OrvelScreen)
    find_package(nlohmann_json QUIET)
    if(NOT nlohmann_json_FOUND)  # built for another processor, with headers found elsewhere
        set(nlohmann_json_VERSION NOASSERTION)
    endif()
    set(reader nlohmann-json "${nlohmann_json_VERSION}" MIT
        ${CMAKE_CURRENT_LIST_DIR}/licences/nlohmann-json)
    orvel_package(liborvelscreen0 SECTION libs
        DEPENDS "liborvelkit0 (= ${PROJECT_VERSION}), liborvelsdk0 (= ${PROJECT_VERSION})"
        COMPILED_IN ${reader}
        HOLDS "screens: files in which they are written are\nread, laid out, drawn and described.")
    orvel_package(liborvelscreen-dev SECTION libdevel
        DEPENDS "liborvelscreen0 (= ${PROJECT_VERSION}), liborvelkit-dev (= ${PROJECT_VERSION})"
        COMPILED_IN ${reader}
        HOLDS "the header of screens, their static library, manual\npages, and the pkg-config and CMake files.")
endif()

# The functions' manual pages, made from the description; their library's package for development has them.
find_package(Python3 COMPONENTS Interpreter)
if(Python3_FOUND)
    set(gzip "")
    if(CPACK_GENERATOR STREQUAL "DEB")
        set(gzip --gzip)
    endif()
    execute_process(COMMAND ${Python3_EXECUTABLE} -B ${PROJECT_SOURCE_DIR}/docs/manual_pages.py ${gzip}
                            ${PROJECT_BINARY_DIR}/man3 COMMAND_ERROR_IS_FATAL ANY)
    foreach(library IN ITEMS orvelsdk orvelkit orvelscreen)
        if(NOT library STREQUAL "orvelscreen" OR TARGET OrvelScreen)
            install(DIRECTORY ${PROJECT_BINARY_DIR}/man3/${library}/
                    DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT lib${library}-dev)
        endif()
    endforeach()
endif()

# The manual's site, where scripts/package is given one. Debian has the search of its own.
set(ORVEL_SITE "" CACHE PATH "The manual's site, to be packed as orvelsdk-doc")
if(ORVEL_SITE AND CPACK_GENERATOR STREQUAL "DEB")
    orvel_package(orvelsdk-doc SECTION doc
        DEPENDS "libjs-lunr"
        HOLDS "the manual as a site that needs no server, and a\ncheat sheet: /usr/share/doc/orvelsdk-doc/html/index.html.")
    set(CPACK_DEBIAN_ORVELSDK-DOC_PACKAGE_ARCHITECTURE all)
    set(site ${CMAKE_INSTALL_DATADIR}/doc/orvelsdk-doc/html)
    install(DIRECTORY ${ORVEL_SITE}/ DESTINATION ${site} COMPONENT orvelsdk-doc
            PATTERN lunr.js EXCLUDE)
    file(CREATE_LINK ../../../../javascript/lunr/lunr.js ${PROJECT_BINARY_DIR}/lunr.js SYMBOLIC)
    install(FILES ${PROJECT_BINARY_DIR}/lunr.js DESTINATION ${site}/search COMPONENT orvelsdk-doc)
endif()

# The module of Python is for every processor. Others than Debian's users take it as a wheel.
if(TARGET OrvelScreen AND CPACK_GENERATOR STREQUAL "DEB")
    orvel_package(python3-orvelsdk SECTION python
        DEPENDS "python3 (>= 3.9), liborvelscreen0 (>= ${PROJECT_VERSION}), liborvelkit0 (>= ${PROJECT_VERSION}), liborvelsdk0 (>= ${PROJECT_VERSION})"
        HOLDS "the module orvelsdk for Python: canvases,\nwidgets, charts and screens, pictures for NumPy, Pillow and notebooks.")
    set(CPACK_DEBIAN_PYTHON3-ORVELSDK_PACKAGE_ARCHITECTURE all)
    set(CPACK_DEBIAN_PYTHON3-ORVELSDK_PACKAGE_CONTROL_EXTRA
        ${orvel_debian}/python/postinst ${orvel_debian}/python/prerm)
    set(python ${PROJECT_SOURCE_DIR}/bindings/python)
    set(modules lib/python3/dist-packages)
    configure_file(${python}/METADATA.in METADATA @ONLY)
    file(GLOB files CONFIGURE_DEPENDS ${python}/orvelsdk/*.py ${python}/orvelsdk/*.pyi)
    install(FILES ${files} ${python}/orvelsdk/py.typed DESTINATION ${modules}/orvelsdk
            COMPONENT python3-orvelsdk)
    install(FILES ${PROJECT_BINARY_DIR}/METADATA ${python}/entry_points.txt
            DESTINATION ${modules}/orvelsdk-${PROJECT_VERSION}.dist-info COMPONENT python3-orvelsdk)
endif()

if(ORVEL_BUILD_TOOLS)
    find_package(CLI11 QUIET)
    set(parts COMPILED_IN CLI11 "${CLI11_VERSION}" BSD-3-Clause ${CMAKE_CURRENT_LIST_DIR}/licences/CLI11
              ${letters} ${reader})
    orvel_package(orvelsdk-tools SECTION devel
        DEPENDS "liborvelsdk0 (>= ${PROJECT_VERSION})" ${parts}
        HOLDS "the programs that draw scenes, compare and convert\npictures and check theme files, and scenes to copy.")
    file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/man/*.1)
    list(FILTER pages EXCLUDE REGEX "/orvel-view.1$")
    orvel_install_pages(orvelsdk-tools ${pages})
endif()
if(TARGET orvel-view)
    orvel_package(orvelsdk-view SECTION devel
        DEPENDS "liborvelsdk0 (>= ${PROJECT_VERSION})" ${parts}
        HOLDS "the program that shows scenes alive in a window.")
    orvel_install_pages(orvelsdk-view ${PROJECT_SOURCE_DIR}/tools/man/orvel-view.1)
endif()

include(CPack)
