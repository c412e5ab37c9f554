# Language level, warnings, sanitizers and output folders for every target of the project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# The cache of compilers: one object serves every build folder and every checkout; what a file includes is known
# from the compiler's list of dependencies, without running the preprocessor first; precompiled headers are
# hashed once and need the leniency named here; messages in another language are none of its business.
find_program(PIXMO_CCACHE ccache)
find_program(PIXMO_ENV env)
if(PIXMO_CCACHE AND PIXMO_ENV AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(launcher ${PIXMO_ENV} CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 CCACHE_DEPEND=1
        CCACHE_INODECACHE=1 CCACHE_SLOPPINESS=pch_defines,time_macros,locale ${PIXMO_CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

add_library(pixmo_options INTERFACE)
target_compile_options(pixmo_options INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2 -Wno-format-y2k -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports overlaps inside std::string that cannot be.
    target_compile_options(pixmo_options INTERFACE -Wno-restrict)
    if(PIXMO_SANITIZE)
        # And among the checks of the sanitizers, sizes that cannot be.
        target_compile_options(pixmo_options INTERFACE -Wno-stringop-overflow)
    endif()
endif()
target_include_directories(pixmo_options INTERFACE ${CMAKE_SOURCE_DIR})

if(PIXMO_SANITIZE)
    add_compile_options(-fsanitize=${PIXMO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${PIXMO_SANITIZE})
endif()
if(PIXMO_TRAPS)
    add_compile_options(-fsanitize=undefined -fsanitize-undefined-trap-on-error -D_GLIBCXX_ASSERTIONS
        -fstack-protector-strong)
    add_link_options(-fstack-protector-strong)
endif()
if(PIXMO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(WIN32)
    include(windows/options)
endif()
