# The libraries of cmake/windows, built now when they are not there yet, with what they are themselves linked
# with.
execute_process(COMMAND ${CMAKE_SOURCE_DIR}/cmake/windows/libraries.sh ${PIXMO_WINDOWS}
    OUTPUT_VARIABLE libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
list(APPEND CMAKE_FIND_ROOT_PATH ${libraries})
include(SystemLibraries.cmake)
set_property(TARGET TIFF::TIFF APPEND PROPERTY INTERFACE_LINK_LIBRARIES JPEG::JPEG ZLIB::ZLIB)
