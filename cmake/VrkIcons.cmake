# Pictures that are drawn as SVG and embedded as PNG.
#
#   vrk_icons(TARGET DRAWN prefix=folder[=size:suffix,...]... [READY path=file...])
#       The object library TARGET with one Qt resource. DRAWN: every folder/NAME.svg is rendered at build
#       time and is available at ":/prefix/NAME.png" with 24 and at ":/prefix/NAME@2x.png" with 48 pixels,
#       or at the sizes given.
#       READY: the unchanged file at ":/path". Folders and files are relative to the current source folder.

function(vrk_icons target)
    cmake_parse_arguments(ARG "" "" "DRAWN;READY" ${ARGN})
    if(ARG_DRAWN)
        find_program(VRK_RSVG rsvg-convert REQUIRED) # only here: a plug-in without drawings does not need it
    endif()
    set(script "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/render-icons.sh")
    set(out "${CMAKE_CURRENT_BINARY_DIR}/${target}")
    set(entries)
    set(depends)
    foreach(drawn IN LISTS ARG_DRAWN)
        string(REPLACE "=" ";" drawn "${drawn}")
        list(GET drawn 0 prefix)
        list(GET drawn 1 folder)
        set(sizes "24:,48:@2x")
        list(LENGTH drawn parts)
        if(parts EQUAL 3)
            list(GET drawn 2 sizes)
        endif()
        file(GLOB pictures CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.svg")
        string(REPLACE "," ";" size_list "${sizes}")
        set(rendered)
        foreach(picture IN LISTS pictures)
            get_filename_component(name "${picture}" NAME_WLE)
            foreach(size IN LISTS size_list)
                string(REGEX REPLACE "^[0-9]+:" "" suffix "${size}")
                set(png "${out}/${prefix}/${name}${suffix}.png")
                list(APPEND rendered "${png}")
                string(APPEND entries "<file alias=\"${prefix}/${name}${suffix}.png\">${png}</file>\n")
            endforeach()
        endforeach()
        add_custom_command(OUTPUT ${rendered}
            COMMAND "${script}" "${out}/${prefix}" "${sizes}" ${pictures}
            DEPENDS ${pictures} "${script}" COMMENT "Drawing ${folder}" VERBATIM)
        list(APPEND depends ${rendered})
    endforeach()
    foreach(ready IN LISTS ARG_READY)
        string(REPLACE "=" ";" ready "${ready}")
        list(GET ready 0 path)
        list(GET ready 1 file)
        string(APPEND entries "<file alias=\"${path}\">${CMAKE_CURRENT_SOURCE_DIR}/${file}</file>\n")
        list(APPEND depends "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
    endforeach()
    file(CONFIGURE OUTPUT "${out}/${target}.qrc" @ONLY
         CONTENT "<RCC><qresource prefix=\"/\">\n@entries@</qresource></RCC>\n")
    add_custom_command(OUTPUT "${out}/${target}.cpp"
        COMMAND Qt${VRK_QT}::rcc --name ${target} -o "${out}/${target}.cpp" "${out}/${target}.qrc"
        DEPENDS "${out}/${target}.qrc" ${depends} COMMENT "Packing ${target}" VERBATIM)
    add_library(${target} OBJECT "${out}/${target}.cpp")
    set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTORCC OFF)
endfunction()
