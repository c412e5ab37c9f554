# Tests for Windows: GoogleTest built from the distribution's sources, and each program run whole by Wine, in a
# prefix of its own. Its results are in results/NAME.xml; Z: is the root of all folders.
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
set(PIXMO_TEST_RESULTS ${CMAKE_BINARY_DIR}/results)

function(pixmo_register_test name)
    add_test(NAME ${name} COMMAND ${name} --gtest_output=xml:Z:${PIXMO_TEST_RESULTS}/${name}.xml)
    set_tests_properties(${name} PROPERTIES ${ARGN})
endfunction()
