# A plug-in of the workstation, in this build tree and in projects that find the installed platform alike.
#
#   vrk_plugin(TARGET DESCRIPTION NAME)
#       The shared library TARGET lies beside the platform's libraries, its description as plugins/NAME.json, from where
#       the workstation knows it: its library and the names and titles of its modules. Both are installed.

# Programs, libraries and descriptions lie beside each other as in the build tree; bin has links to the programs.
set(VRK_HOME lib/vrk-logbook)

function(vrk_plugin target description name)
    configure_file("${description}" "${CMAKE_BINARY_DIR}/plugins/${name}.json" COPYONLY)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "\$ORIGIN"
        LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
    install(TARGETS ${target} LIBRARY DESTINATION ${VRK_HOME}/lib COMPONENT runtime NAMELINK_SKIP)
    install(FILES "${description}" DESTINATION ${VRK_HOME}/plugins RENAME "${name}.json" COMPONENT runtime)
endfunction()
