# For every target of a Windows build: nothing but the system's own libraries beside it, Windows 7 and later,
# the same bytes from the same sources.
add_compile_definitions(UNICODE _UNICODE NOMINMAX STRICT WIN32_LEAN_AND_MEAN WINVER=0x0601 _WIN32_WINNT=0x0601)
add_compile_options(-fno-omit-frame-pointer "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.")
add_link_options(-static -Wl,--no-insert-timestamp)
# Interfaces of COM have no virtual destructor: objects end by their own Release.
target_compile_options(pixmo_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-non-virtual-dtor>)
# In precompiled headers GCC 12 no longer knows the system's from others, and reports copies inside std::wstring
# that cannot be.
if(PIXMO_PRECOMPILE)
    target_compile_options(pixmo_options INTERFACE
        "$<$<COMPILE_LANGUAGE:CXX>:-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread>")
endif()
# Position independent code is what Windows has anyway.
set(CMAKE_POSITION_INDEPENDENT_CODE OFF)
# What is built here runs by Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_SOURCE_DIR}/cmake/windows/run.sh)
if(NOT PIXMO_TRAPS)
    add_link_options(-s)
endif()
if(PIXMO_WINDOWS STREQUAL "i686")
    # Numbers are rounded as on every other processor, so that every face shows the same pixels.
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:SHELL:-msse2 -mfpmath=sse>")
endif()
