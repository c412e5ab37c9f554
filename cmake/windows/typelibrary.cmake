# Type libraries. widl takes the standard one, which every other refers to, from Wine's files; without them
# there is none.
#
#     pixmo_add_type_library(TARGET name IDL file [DEPENDS files...])
#
# makes NAME.tlb and NAME.h of NAME.idl in the current binary folder, by the target `name`. Its properties
# PIXMO_TYPE_LIBRARY and PIXMO_TYPE_HEADER are their paths.
find_program(PIXMO_WIDL ${PIXMO_WINDOWS_TOOLS}-widl REQUIRED)
file(GLOB standardLibraries /usr/lib/*/wine/*-windows/stdole2.tlb)
if(NOT standardLibraries)
    message(FATAL_ERROR "stdole2.tlb is missing: install libwine")
endif()
list(GET standardLibraries 0 standardLibrary)
get_filename_component(PIXMO_STANDARD_TYPE_LIBRARIES ${standardLibrary} DIRECTORY)

function(pixmo_add_type_library)
    cmake_parse_arguments(ARG "" "TARGET;IDL" "DEPENDS" ${ARGN})
    get_filename_component(idl ${ARG_IDL} ABSOLUTE)
    get_filename_component(name ${ARG_IDL} NAME_WE)
    get_filename_component(folder ${idl} DIRECTORY)
    set(library ${CMAKE_CURRENT_BINARY_DIR}/${name}.tlb)
    set(header ${CMAKE_CURRENT_BINARY_DIR}/${name}.h)
    add_custom_command(OUTPUT ${library} ${header}
        COMMAND ${PIXMO_WIDL} -I ${folder} -I ${CMAKE_SOURCE_DIR} -L ${PIXMO_STANDARD_TYPE_LIBRARIES} -t -o ${library} ${idl}
        COMMAND ${PIXMO_WIDL} -I ${folder} -I ${CMAKE_SOURCE_DIR} -L ${PIXMO_STANDARD_TYPE_LIBRARIES} -h -o ${header} ${idl}
        DEPENDS ${idl} ${ARG_DEPENDS}
        COMMENT "Type library ${name}"
        VERBATIM)
    add_custom_target(${ARG_TARGET} DEPENDS ${library} ${header})
    set_target_properties(${ARG_TARGET} PROPERTIES PIXMO_TYPE_LIBRARY ${library} PIXMO_TYPE_HEADER ${header})
endfunction()
