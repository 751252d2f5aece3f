# Functions of this build.
#
#   vrk_floor(NAME ROOMS folder... USES floor... LINKS target... PUBLIC header...)
#       One floor of the platform, from all sources of the current folder and its ROOMS: the object library
#       vrk_NAME with these folders as include directories. It sees the headers of the floors it USES, and of no others. The
#       PUBLIC headers are installed for plug-ins.
#
#   vrk_forms(TARGET)
#       Makes the headers of a target's forms (.ui). AUTOUIC would make them in a step whose outputs the build does
#       not know: after a change of a form only a second build compiled what includes it.
#
#   vrk_testing_library(NAME floor...)
#       The objects of the floors again as a static library, so that tests can use what the shared libraries
#       hide.
#       Never link it into a program that also links the shared libraries.

function(vrk_forms target)
    get_target_property(forms ${target} SOURCES)
    list(FILTER forms INCLUDE REGEX "\\.ui$")
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/forms")
    foreach(form IN LISTS forms)
        get_filename_component(name "${form}" NAME_WE)
        set(header "${folder}/ui_${name}.h")
        file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include/ui_${name}.h") # of a tree that had AUTOUIC
        add_custom_command(OUTPUT "${header}" COMMAND Qt${VRK_QT}::uic "${form}" -o "${header}" DEPENDS "${form}" VERBATIM)
        set_source_files_properties("${header}" PROPERTIES SKIP_AUTOGEN ON)
        target_sources(${target} PRIVATE "${header}")
    endforeach()
    target_include_directories(${target} PRIVATE "${folder}")
endfunction()

function(vrk_floor name)
    cmake_parse_arguments(ARG "" "" "ROOMS;USES;LINKS;PUBLIC" ${ARGN})
    list(TRANSFORM ARG_ROOMS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE folders)
    list(PREPEND folders "${CMAKE_CURRENT_SOURCE_DIR}")
    set(patterns)
    foreach(folder IN LISTS folders)
        list(APPEND patterns "${folder}/*.cpp" "${folder}/*.h" "${folder}/*.ui" "${folder}/*.qrc")
    endforeach()
    file(GLOB sources CONFIGURE_DEPENDS ${patterns})
    add_library(vrk_${name} OBJECT ${sources})
    target_include_directories(vrk_${name} PUBLIC ${folders})
    foreach(floor IN LISTS ARG_USES)
        target_include_directories(vrk_${name} PRIVATE
            "$<TARGET_PROPERTY:vrk_${floor},INTERFACE_INCLUDE_DIRECTORIES>")
    endforeach()
    target_link_libraries(vrk_${name} PUBLIC ${ARG_LINKS} PRIVATE vrk_settings)
    set_target_properties(vrk_${name} PROPERTIES LINKER_LANGUAGE CXX VRK_LINKS "${ARG_LINKS}"
        VRK_PUBLIC "${ARG_PUBLIC}")
    vrk_forms(vrk_${name})
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
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX AUTOMOC OFF AUTORCC OFF)
endfunction()
