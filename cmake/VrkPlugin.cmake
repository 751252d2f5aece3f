# A plug-in of the workstation, both in this build tree and in projects that find the installed platform.
#
#   vrk_plugin(TARGET DESCRIPTION NAME)
#       Places the shared library TARGET next to the platform's libraries and its description at
#       plugins/NAME.json, which gives the workstation the library and the names and titles of its modules.
#       "@VRK_QT@" in the description becomes the major version of Qt that the library is built with.
#       Installs both.

# Programs, libraries and descriptions are installed like in the build tree; bin has links to the programs.
set(VRK_HOME lib/vrk-logbook)

function(vrk_plugin target description name)
    configure_file("${description}" "${CMAKE_BINARY_DIR}/plugins/${name}.json" @ONLY)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "\$ORIGIN"
        LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
    install(TARGETS ${target} LIBRARY DESTINATION ${VRK_HOME}/lib COMPONENT runtime NAMELINK_SKIP)
    install(FILES "${CMAKE_BINARY_DIR}/plugins/${name}.json" DESTINATION ${VRK_HOME}/plugins COMPONENT runtime)
endfunction()
