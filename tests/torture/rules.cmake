# Every call of the library's that can fail, failed one by one. The library is the shipped one: what it
# imports is replaced while it runs.
orvel_test(torture_test
    support/allocations.cpp torture/ledger.cpp torture/imports.cpp torture/system.cpp
    torture/players.cpp torture/canberra.cpp torture/host.cpp torture/runner.cpp
    torture/core_scenarios.cpp torture/canvas_scenarios.cpp torture/text_scenarios.cpp
    torture/icon_scenarios.cpp torture/theme_scenarios.cpp torture/widget_scenarios.cpp
    torture/sound_scenarios.cpp)
target_link_libraries(torture_test PRIVATE ${CMAKE_DL_LIBS})
