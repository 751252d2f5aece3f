# What is installed, and the one Debian package: cpack -G DEB in the build tree of the preset release.
#
# Programs and libraries lie beside each other as in the build tree, under lib/vrk-logbook; bin has links to the programs.
set(VRK_HOME lib/vrk-logbook)
set_target_properties(vrk-workstation vrk-admin VrkHfn VrkClient VrkLogBook PROPERTIES
    INSTALL_RPATH "\$ORIGIN/../lib;\$ORIGIN")
install(TARGETS vrk-workstation vrk-admin VrkHfn VrkClient VrkLogBook
    RUNTIME DESTINATION ${VRK_HOME}/bin
    LIBRARY DESTINATION ${VRK_HOME}/lib NAMELINK_SKIP)
foreach(program vrk-workstation vrk-admin)
    file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/links")
    file(CREATE_LINK "../${VRK_HOME}/bin/${program}" "${CMAKE_BINARY_DIR}/links/${program}" SYMBOLIC)
    install(FILES "${CMAKE_BINARY_DIR}/links/${program}" DESTINATION bin)
endforeach()
install(FILES docs/site-setup.ru.md packaging/site-answers.txt DESTINATION share/doc/vrk-logbook)
install(FILES packaging/vrk-logbook.desktop DESTINATION share/applications)
install(FILES packaging/vrk-watchdog.service packaging/vrk-watchdog.timer DESTINATION lib/systemd/system)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vrk-logbook)
set(CPACK_PACKAGE_CONTACT "vrk-logbook maintainers <maintainers@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Operational journal of power grid dispatchers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_BINARY_DIR}/lib")
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qttranslations5-l10n, tzdata")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "postgresql-client")
include(CPack)
