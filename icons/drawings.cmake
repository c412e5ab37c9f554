# Renders every SVG file of FOLDER by CONVERT and writes OUTPUT, a C++ source with the PNG files in it.
set(pixels 192) # eight for each unit of the drawings
set(arrays "")
set(rows "")
file(GLOB drawings ${FOLDER}/*.svg)
foreach(drawing IN LISTS drawings)
    get_filename_component(name ${drawing} NAME_WE)
    set(png ${OUTPUT}.png)
    execute_process(COMMAND ${CONVERT} --width ${pixels} --height ${pixels} --background-color white
        --output ${png} ${drawing} COMMAND_ERROR_IS_FATAL ANY)
    file(READ ${png} bytes HEX)
    file(REMOVE ${png})
    string(REGEX REPLACE "(..)" "0x\\1," bytes ${bytes})
    string(REGEX REPLACE "(................................................................................)" "\\1\n" bytes ${bytes})
    string(MAKE_C_IDENTIFIER ${name} identifier)
    string(APPEND arrays "constexpr uint8_t ${identifier}[] = {\n${bytes}};\n")
    string(APPEND rows "    {\"${name}\", ${identifier}},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"icons/drawings.h\"

namespace pixmo {

namespace {

${arrays}
constexpr Drawing Drawings[] = {
${rows}};

} // namespace

std::span<const Drawing> drawings() {
    return Drawings;
}

} // namespace pixmo
")
