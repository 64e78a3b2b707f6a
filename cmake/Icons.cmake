# add_icons(VAR): draws the application's icons. VAR becomes what add_resources() wants of them as
# its DATA, in the same folder of the build. The two sizes of the platform have its own names; the
# others are named by their size and are the desktop's.

find_package(Qt6 REQUIRED COMPONENTS Gui)

function(add_icons VAR)
    add_executable(render_icon ${CMAKE_SOURCE_DIR}/resources/icons/RenderIcon.cpp)
    target_link_libraries(render_icon PRIVATE Qt6::Gui)
    set(folder ${CMAKE_BINARY_DIR}/icons)
    file(MAKE_DIRECTORY ${folder})
    set(items)
    foreach(icon "MICN BEOS:M:STD_ICON 16 lorivane-16" "ICON BEOS:L:STD_ICON 32 lorivane"
            "ICON 48 48 lorivane" "ICON 128 128 lorivane")
        separate_arguments(icon)
        list(GET icon 0 type)
        list(GET icon 1 name)
        list(GET icon 2 size)
        list(GET icon 3 stem)
        set(drawing ${CMAKE_SOURCE_DIR}/resources/icons/${stem}.svg)
        # The library has leaks of its own, which are no fault of the drawing.
        add_custom_command(OUTPUT ${folder}/${size}.bgra
            COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
                $<TARGET_FILE:render_icon> ${drawing} ${size} ${folder}/${size}.bgra
            DEPENDS render_icon ${drawing} VERBATIM)
        list(APPEND items ${type} ${name} ${folder}/${size}.bgra)
    endforeach()
    set(${VAR} ${items} PARENT_SCOPE)
endfunction()
