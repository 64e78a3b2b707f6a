# Warnings, sanitizers and the compiler cache, for every target of the project.

# Four-character codes are multi-character literals by the platform's own definition; both
# compilers put the first character into the most significant byte.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror -Wno-multichar)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options(-Wno-four-char-constants)
    link_libraries(atomic)  # it calls a library for an atomic colour
endif()

# GCC 12 sees an overlap in std::string's operator+ that is not there, at -O3 only.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    add_compile_options($<$<CONFIG:Release>:-Wno-restrict>)
endif()

if(LORIVANE_SANITIZE)
    add_compile_options(-fsanitize=${LORIVANE_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${LORIVANE_SANITIZE})
    if(LORIVANE_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# precompile(TARGET HEADER...): reads these headers once for all the target's sources.
function(precompile TARGET)
    target_precompile_headers(${TARGET} PRIVATE ${ARGN})
    keep_precompiled(${TARGET})
endfunction()

# reuse_precompiled(TARGET OTHER): takes what was read for the other target, which has to be compiled
# with the same options.
function(reuse_precompiled TARGET OTHER)
    target_precompile_headers(${TARGET} REUSE_FROM ${OTHER})
    keep_precompiled(${TARGET})
endfunction()

function(keep_precompiled TARGET)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${TARGET} PRIVATE -fpch-preprocess)  # for the compiler cache
    endif()
endfunction()

# merge_sources(TARGET [SIZE]): compiles several sources of the target as one, which takes a third of
# the time, since most of it goes into headers. The target sources_alone sees to it that each
# includes what it uses all the same.
function(merge_sources TARGET)
    set(size 8)
    if(ARGC GREATER 1)
        set(size ${ARGV1})
    endif()
    set_target_properties(${TARGET} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${size})
    # Included, a source looks like a header, whose anonymous namespace would be each includer's.
    target_compile_options(${TARGET} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()

# check_sources_alone(TARGET): lets the target sources_alone compile each source of this one by itself,
# with no header read before, so that it is known to include what it uses.
add_custom_target(sources_alone)
function(check_sources_alone TARGET)
    get_target_property(sources ${TARGET} SOURCES)
    get_target_property(libraries ${TARGET} LINK_LIBRARIES)
    add_library(${TARGET}_alone OBJECT EXCLUDE_FROM_ALL ${sources})
    target_include_directories(${TARGET}_alone PRIVATE
        $<TARGET_PROPERTY:${TARGET},INCLUDE_DIRECTORIES>)
    target_compile_definitions(${TARGET}_alone PRIVATE
        $<TARGET_PROPERTY:${TARGET},COMPILE_DEFINITIONS>)
    target_link_libraries(${TARGET}_alone PRIVATE ${libraries})
    target_compile_options(${TARGET}_alone PRIVATE -O0 -g0)
    add_dependencies(sources_alone ${TARGET}_alone)
endfunction()

# precompile_kits(TARGET): what nearly every source of the kits and of the application includes is
# read once for all of them. For fuzzing the sources have options of their own.
function(precompile_kits TARGET)
    if(LORIVANE_FUZZ)
        return()
    endif()
    if(NOT TARGET source_headers)
        file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/headers.cpp CONTENT "")
        add_library(source_headers OBJECT ${CMAKE_BINARY_DIR}/headers.cpp)
        target_include_directories(source_headers PRIVATE ${CMAKE_SOURCE_DIR}/kits/include)
        precompile(source_headers <algorithm> <functional> <map> <memory> <mutex> <string> <vector>
            <app/Message.h> <app/Messenger.h> <interface/View.h> <interface/Window.h>)
    endif()
    reuse_precompiled(${TARGET} source_headers)
endfunction()

# With the sanitizer of threads the display is left out, since Qt is not built with it and its locks
# would not be seen; and so is what has to do with no threads.
set(LORIVANE_THREADS_ONLY OFF)
if(LORIVANE_SANITIZE MATCHES "thread")
    set(LORIVANE_THREADS_ONLY ON)
endif()
