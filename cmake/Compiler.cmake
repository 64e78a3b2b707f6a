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

# merge_sources(TARGET): in the builds with sanitizers several sources are compiled as one, which takes
# half the time. In the others each stands alone, and has to include what it uses.
function(merge_sources TARGET)
    if(LORIVANE_SANITIZE)
        set_target_properties(${TARGET} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
        # Included, a source looks like a header, whose anonymous namespace would be each includer's.
        target_compile_options(${TARGET} PRIVATE
            $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
endfunction()

# reuse_headers_of_sources(TARGET): in the builds with sanitizers what nearly every source includes is
# read once for all of them. In the others each source has to include what it uses. For fuzzing the
# sources have options of their own.
function(reuse_headers_of_sources TARGET)
    if(NOT LORIVANE_SANITIZE OR LORIVANE_FUZZ)
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
