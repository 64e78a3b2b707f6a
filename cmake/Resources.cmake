# add_resources(NAME [FLAGS single|multiple|exclusive] [DATA TYPE NAME FILE ...]): a library of a
# program's resources, which the program links itself; the kits find them by that, and
# BApplication::AppResources() hands them out.
#
# FLAGS is how the program is launched, the resource "BEOS:APP_FLAGS" of type "APPF". Each TYPE, of
# four characters, NAME and FILE become a resource with the file's bytes as they are.

function(add_resources NAME)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FLAGS" "DATA")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "add_resources(${NAME}): what is ${arg_UNPARSED_ARGUMENTS}?")
    endif()
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${NAME})
    file(MAKE_DIRECTORY ${folder})

    # TYPE NAME FILE of every resource that is a file.
    set(items)
    set(files)
    while(arg_DATA)
        list(LENGTH arg_DATA count)
        if(count LESS 3)
            message(FATAL_ERROR "add_resources(${NAME}): DATA wants TYPE NAME FILE")
        endif()
        list(POP_FRONT arg_DATA type name file)
        cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
        list(APPEND items ${type} ${name} ${file})
        list(APPEND files ${file})
    endwhile()

    set(flags)
    if(DEFINED arg_FLAGS)
        set(known single multiple exclusive)
        list(FIND known "${arg_FLAGS}" flags)
        if(flags EQUAL -1)
            message(FATAL_ERROR "add_resources(${NAME}): FLAGS is single, multiple or exclusive")
        endif()
    endif()

    set(script ${PROJECT_SOURCE_DIR}/cmake/EmbedResources.cmake)
    add_custom_command(OUTPUT ${folder}/EmbeddedResources.cpp
        COMMAND ${CMAKE_COMMAND} -DOUTPUT=${folder}/EmbeddedResources.cpp "-DITEMS=${items}"
            "-DFLAGS=${flags}" -P ${script}
        DEPENDS ${files} ${script} VERBATIM)
    add_library(${NAME} OBJECT ${folder}/EmbeddedResources.cpp)
    target_include_directories(${NAME} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${NAME} PRIVATE be_storage)
endfunction()
