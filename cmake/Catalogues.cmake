# add_catalogues(TARGET): compiles the catalogues of resources/catalogues and puts them into it.

# By the path of its package first: another one in the PATH may be of an older Qt.
find_program(LRELEASE lrelease PATHS /usr/lib/qt6/bin NO_DEFAULT_PATH)
find_program(LRELEASE NAMES lrelease-qt6 lrelease REQUIRED)

function(add_catalogues TARGET)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/catalogues/*.ts)
    set(folder ${CMAKE_BINARY_DIR}/catalogues)
    file(MAKE_DIRECTORY ${folder})
    set(compiled)
    foreach(source IN LISTS sources)
        cmake_path(GET source STEM name)
        add_custom_command(OUTPUT ${folder}/${name}.qm
            COMMAND ${LRELEASE} -silent -nounfinished ${source} -qm ${folder}/${name}.qm
            DEPENDS ${source} VERBATIM)
        list(APPEND compiled ${folder}/${name}.qm)
    endforeach()
    set(script ${CMAKE_SOURCE_DIR}/cmake/EmbedCatalogues.cmake)
    add_custom_command(OUTPUT ${folder}/EmbeddedCatalogues.cpp
        COMMAND ${CMAKE_COMMAND} -DOUTPUT=${folder}/EmbeddedCatalogues.cpp
            "-DCATALOGUES=${compiled}" -P ${script}
        DEPENDS ${compiled} ${script} VERBATIM)
    target_sources(${TARGET} PRIVATE ${folder}/EmbeddedCatalogues.cpp)
endfunction()
