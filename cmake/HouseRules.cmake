# Checks of the sources themselves, made again by a build when one of them changes.

set(room_folders app viewer comment window settings iap framework kits resources tests fuzz
    bench examples)
set(room_globs)
foreach(folder IN LISTS room_folders)
    list(APPEND room_globs ${CMAKE_SOURCE_DIR}/${folder}/*.h ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
endforeach()
file(GLOB_RECURSE room_files CONFIGURE_DEPENDS ${room_globs})

add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/includes.checked
    COMMAND ${PYTHON3} ${CMAKE_SOURCE_DIR}/tools/check_includes.py ${CMAKE_SOURCE_DIR}
    COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/includes.checked
    DEPENDS ${CMAKE_SOURCE_DIR}/tools/check_includes.py ${room_files}
    COMMENT "Checking what every room includes"
    VERBATIM)
add_custom_target(check_includes ALL DEPENDS ${CMAKE_BINARY_DIR}/includes.checked)

# Every header that no source includes before anything else (check_includes.py sees to that) compiles
# by itself, and twice in a row. Not a part of an ordinary build.
function(add_headers_alone)
    set(headers)
    file(GLOB_RECURSE kit_headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/kits/include
        ${CMAKE_SOURCE_DIR}/kits/include/*.h)
    foreach(header IN LISTS kit_headers)
        cmake_path(REPLACE_EXTENSION header cpp OUTPUT_VARIABLE source)
        if(NOT EXISTS ${CMAKE_SOURCE_DIR}/kits/${source})
            list(APPEND headers "<${header}>")
        endif()
    endforeach()
    set(globs)
    foreach(folder app viewer comment window settings iap framework kits/app kits/interface
            kits/storage kits/translation kits/support kits/locale kits/kernel)
        list(APPEND globs ${CMAKE_SOURCE_DIR}/${folder}/*.h)
    endforeach()
    file(GLOB own_headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${globs})
    foreach(header IN LISTS own_headers)
        cmake_path(REPLACE_EXTENSION header cpp OUTPUT_VARIABLE source)
        if(NOT EXISTS ${CMAKE_SOURCE_DIR}/${source})
            list(APPEND headers "\"${header}\"")
        endif()
    endforeach()

    set(units)
    foreach(header IN LISTS headers)
        string(MAKE_C_IDENTIFIER ${header} name)
        set(unit ${CMAKE_BINARY_DIR}/headers_alone/${name}.cpp)
        file(CONFIGURE OUTPUT ${unit} CONTENT "#include ${header}\n#include ${header}\n" @ONLY)
        list(APPEND units ${unit})
    endforeach()
    add_library(headers_alone OBJECT EXCLUDE_FROM_ALL ${units})
    target_include_directories(headers_alone PRIVATE
        ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/kits/include)
    target_link_libraries(headers_alone PRIVATE viewer)
    target_compile_options(headers_alone PRIVATE -O0 -g0)
endfunction()
add_headers_alone()
