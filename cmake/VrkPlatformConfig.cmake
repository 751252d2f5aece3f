# The platform for plug-ins: the targets VrkPlatform::Client and VrkPlatform::Hfn, and the functions vrk_icons and
# vrk_plugin.
include(CMakeFindDependencyMacro)
find_dependency(Qt5 5.15 COMPONENTS Core Gui Widgets)
include("${CMAKE_CURRENT_LIST_DIR}/VrkPlatformTargets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/VrkPlugin.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/VrkIcons.cmake")
