# Warnings, sanitizers and the compiler cache, for every target of the project.

# Four-character codes are multi-character literals by the platform's own definition; both
# compilers put the first character into the most significant byte.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror -Wno-multichar)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options(-Wno-four-char-constants)
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

# With the sanitizer of threads the display is left out, since Qt is not built with it and its locks
# would not be seen; and so is what has to do with no threads.
set(LORIVANE_THREADS_ONLY OFF)
if(LORIVANE_SANITIZE MATCHES "thread")
    set(LORIVANE_THREADS_ONLY ON)
endif()
