# The core knows the standard library and itself: any other include stops the build. The tests run this file
# as a script too, so that an include added after configuring is found.
set(watch CONFIGURE_DEPENDS)
if(CMAKE_SCRIPT_MODE_FILE)
    cmake_minimum_required(VERSION 3.25)
    set(watch)
endif()
file(GLOB_RECURSE PIXMO_CORE_FILES ${watch} ${CMAKE_SOURCE_DIR}/core/*.h ${CMAKE_SOURCE_DIR}/core/*.cpp)
set(PIXMO_STANDARD_HEADERS
    algorithm array atomic bit cctype cerrno charconv chrono cinttypes climits clocale cmath compare concepts
    bit cstddef cstdint cstdio cstdlib cstring ctime deque exception filesystem fstream functional initializer_list
    ios istream iterator limits list locale map memory mutex new numbers numeric optional ostream random ratio
    set span sstream stdexcept streambuf string string_view system_error tuple type_traits typeinfo
    unordered_map unordered_set utility variant vector version)
foreach(file IN LISTS PIXMO_CORE_FILES)
    file(STRINGS ${file} includes REGEX "^[ \t]*#[ \t]*include")
    foreach(line IN LISTS includes)
        if(line MATCHES "include[ \t]*\"core/")
            continue()
        endif()
        if(line MATCHES "include[ \t]*<([^>]+)>")
            if(CMAKE_MATCH_1 IN_LIST PIXMO_STANDARD_HEADERS)
                continue()
            endif()
        endif()
        message(FATAL_ERROR "${file}: the core may not use: ${line}")
    endforeach()
endforeach()
