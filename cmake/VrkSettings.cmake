# Settings of every target: the language, the warnings, the sanitizers, the linker.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# All libraries and all programs of a build tree are in one folder each, like after installation.
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(VRK_CCACHE ccache)
if(VRK_CCACHE)
    # By default the cache does not store objects compiled with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros "${VRK_CCACHE}")
endif()

add_library(vrk_settings INTERFACE)
target_compile_options(vrk_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor
    -Wsuggest-override $<$<BOOL:${VRK_WERROR}>:-Werror>)
if(VRK_QT EQUAL 6)
    # Qt 5.15 does not have what takes the place of the deprecated functions.
    target_compile_definitions(vrk_settings INTERFACE QT_NO_DEPRECATED_WARNINGS)
endif()
target_link_libraries(vrk_settings INTERFACE $<TARGET_NAME_IF_EXISTS:Qt6::Core5Compat>)
target_compile_definitions(vrk_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_MESSAGELOGCONTEXT)
if(VRK_SANITIZE)
    target_compile_options(vrk_settings INTERFACE -fsanitize=${VRK_SANITIZE} -fno-sanitize-recover=all
                           -fno-omit-frame-pointer
                           # In instrumented code the compiler reports uninitialised values that do not
                           # exist.
                           $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(vrk_settings INTERFACE -fsanitize=${VRK_SANITIZE})
endif()

find_program(VRK_MOLD mold)
if(VRK_MOLD)
    target_link_options(vrk_settings INTERFACE -fuse-ld=mold)
endif()
