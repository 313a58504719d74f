# find_package(OrvelSDK [COMPONENTS Kit Screen]) gives OrvelSDK::OrvelSDK; with the component Kit also
# OrvelSDK::Kit and, for programs that are to bring it with them, OrvelSDK::KitStatic; with the component
# Screen these, OrvelSDK::Screen and OrvelSDK::ScreenStatic. Tests of screens are declared by
# orvel_add_screen_test(), which ScreenTest.cmake describes.
set(orvel_components Kit Screen)
foreach(component IN LISTS OrvelSDK_FIND_COMPONENTS)
    if(NOT component IN_LIST orvel_components)
        set(orvel_reason "has no component ${component}, only Kit and Screen")
    elseif(NOT EXISTS ${CMAKE_CURRENT_LIST_DIR}/OrvelSDK${component}Targets.cmake
           OR NOT EXISTS ${CMAKE_CURRENT_LIST_DIR}/OrvelSDKKitTargets.cmake)  # which all need
        set(orvel_reason "was installed without its component ${component}")
    else()
        set(OrvelSDK_${component}_FOUND TRUE)
        continue()
    endif()
    if(OrvelSDK_FIND_REQUIRED_${component})
        set(OrvelSDK_FOUND FALSE)
        set(OrvelSDK_NOT_FOUND_MESSAGE "OrvelSDK ${orvel_reason}.")
        return()
    endif()
endforeach()

include(${CMAKE_CURRENT_LIST_DIR}/ScreenTest.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/OrvelSDKTargets.cmake)
if(OrvelSDK_Kit_FOUND OR OrvelSDK_Screen_FOUND)
    include(${CMAKE_CURRENT_LIST_DIR}/OrvelSDKKitTargets.cmake)
endif()
if(OrvelSDK_Screen_FOUND)
    include(${CMAKE_CURRENT_LIST_DIR}/OrvelSDKScreenTargets.cmake)
endif()
