# The platform for plug-ins: the targets VrkPlatform::Client and VrkPlatform::Hfn, and the functions vrk_icons and
# vrk_plugin.
include(CMakeFindDependencyMacro)
set(VRK_QT @VRK_QT@)
set(qt_components Core Gui Widgets)
if(VRK_QT EQUAL 6)
    list(APPEND qt_components Core5Compat)
endif()
find_dependency(Qt${VRK_QT} @qt_version@ COMPONENTS ${qt_components})
include("${CMAKE_CURRENT_LIST_DIR}/VrkPlatformTargets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/VrkPlugin.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/VrkIcons.cmake")
