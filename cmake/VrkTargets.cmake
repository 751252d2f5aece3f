# Functions of this build.
#
#   vrk_floor(NAME USES floor... LINKS target... PUBLIC header...)
#       One floor of the platform, from all sources of the current folder: the object library vrk_NAME with
#       its folder as include directory. It sees the headers of the floors it USES, and of no others. The
#       PUBLIC headers are installed for plug-ins.
#
#   vrk_testing_library(NAME floor...)
#       The objects of the floors again as a static library, so that tests can use what the shared libraries
#       hide.
#       Never link it into a program that also links the shared libraries.

function(vrk_floor name)
    cmake_parse_arguments(ARG "" "" "USES;LINKS;PUBLIC" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h"
         "${CMAKE_CURRENT_SOURCE_DIR}/*.ui" "${CMAKE_CURRENT_SOURCE_DIR}/*.qrc")
    add_library(vrk_${name} OBJECT ${sources})
    target_include_directories(vrk_${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    foreach(floor IN LISTS ARG_USES)
        target_include_directories(vrk_${name} PRIVATE
            "$<TARGET_PROPERTY:vrk_${floor},INTERFACE_INCLUDE_DIRECTORIES>")
    endforeach()
    target_link_libraries(vrk_${name} PUBLIC ${ARG_LINKS} PRIVATE vrk_settings)
    set_target_properties(vrk_${name} PROPERTIES LINKER_LANGUAGE CXX VRK_LINKS "${ARG_LINKS}"
        VRK_PUBLIC "${ARG_PUBLIC}")
    vrk_precompiled(vrk_${name} ${ARG_LINKS})
endfunction()

function(vrk_testing_library name)
    add_library(${name} STATIC)
    target_link_libraries(${name} PUBLIC vrk_settings)
    foreach(floor IN LISTS ARGN)
        target_sources(${name} PRIVATE $<TARGET_OBJECTS:vrk_${floor}>)
        target_include_directories(${name} PUBLIC
            "$<TARGET_PROPERTY:vrk_${floor},INTERFACE_INCLUDE_DIRECTORIES>")
        get_target_property(links vrk_${floor} VRK_LINKS)
        if(links)
            target_link_libraries(${name} PUBLIC ${links})
        endif()
    endforeach()
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
endfunction()
