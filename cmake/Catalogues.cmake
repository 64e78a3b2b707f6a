# add_catalogues(TARGET): puts the texts of the catalogues in resources/catalogues into it.

function(add_catalogues TARGET)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/catalogues/*.ts)
    set(script ${CMAKE_SOURCE_DIR}/cmake/embed_catalogues.py)
    set(output ${CMAKE_BINARY_DIR}/EmbeddedCatalogues.cpp)
    add_custom_command(OUTPUT ${output}
        COMMAND ${PYTHON3} ${script} ${output} ${sources}
        DEPENDS ${sources} ${script} VERBATIM)
    target_sources(${TARGET} PRIVATE ${output})
endfunction()
