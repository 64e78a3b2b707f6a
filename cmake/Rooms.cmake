# A room is a folder whose sources belong to one target.

# room_sources(VAR FOLDER...): the sources of the folders, without those below them.
function(room_sources VAR)
    set(all)
    foreach(folder IN LISTS ARGN)
        file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
        list(APPEND all ${sources})
    endforeach()
    set(${VAR} ${all} PARENT_SCOPE)
endfunction()
