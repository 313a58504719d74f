# Every code block of the manual, of README.md and its neighbours, and the manual's site. The pages run
# in folders of their own, with the library installed beside them.
find_package(Python3 COMPONENTS Interpreter)
if(NOT Python3_FOUND OR NOT ORVEL_BUILD_EXAMPLES)
    message(STATUS "Python or the examples are missing: the manual's code blocks are not tried")
    return()
endif()
set(docs ${PROJECT_SOURCE_DIR}/docs)
set(manual ${PROJECT_BINARY_DIR}/manual)

add_test(NAME Manual.library_is_installed
         COMMAND ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --prefix ${manual}/installed)
set_tests_properties(Manual.library_is_installed PROPERTIES FIXTURES_SETUP manual_library)

file(GLOB pages CONFIGURE_DEPENDS ${docs}/pages/*.md)
file(GLOB top_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/*.md)
if(APPLE OR NOT TARGET live_window)
    message(STATUS "README.md shows Debian's commands and every example: its code blocks are not tried")
    list(REMOVE_ITEM top_pages ${PROJECT_SOURCE_DIR}/README.md)
endif()
foreach(page IN LISTS pages top_pages)
    get_filename_component(name ${page} NAME_WE)
    add_test(NAME Manual.blocks_of_${name}
             COMMAND Python3::Interpreter ${docs}/blocks.py ${page} --sources ${PROJECT_SOURCE_DIR}
                     --tree ${manual}/installed --work ${manual}/work/${name})
    set_tests_properties(Manual.blocks_of_${name} PROPERTIES
        TIMEOUT 1200 FIXTURES_REQUIRED manual_library FIXTURES_SETUP manual_pages)
endforeach()
set_tests_properties(Manual.blocks_of_use-it PROPERTIES LABELS slow RESOURCE_LOCK packages)
if(TEST Manual.blocks_of_README)
    set_tests_properties(Manual.blocks_of_README PROPERTIES LABELS slow)
endif()

add_test(NAME Manual.no_block_goes_untried
         COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/manual/blocks_test.py ${docs})
add_test(NAME Manual.pages_of_the_tools_tell_what_they_take
         COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/manual/tool_pages_test.py
                 ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR}/tools/man)
file(GLOB notes CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/*.md ${docs}/*.md)
add_test(NAME Manual.links_of_the_tree_lead_somewhere
         COMMAND Python3::Interpreter ${docs}/links.py ${notes})

find_program(ORVEL_DOXYGEN doxygen)
find_program(ORVEL_MKDOCS mkdocs)
if(NOT ORVEL_DOXYGEN OR NOT ORVEL_MKDOCS)
    message(STATUS "Doxygen or MkDocs is missing: the manual's site is not tried")
    return()
endif()
add_test(NAME Manual.pictures_are_built
         COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target orvel-manual-pictures)
set_tests_properties(Manual.pictures_are_built PROPERTIES LABELS slow FIXTURES_SETUP manual_pages)
add_test(NAME Manual.site_has_no_warning_and_no_broken_link
         COMMAND Python3::Interpreter ${docs}/build.py --build ${PROJECT_BINARY_DIR} --out ${manual}
                 --skip-blocks)
set_tests_properties(Manual.site_has_no_warning_and_no_broken_link PROPERTIES
    LABELS slow TIMEOUT 600 FIXTURES_REQUIRED manual_pages)
