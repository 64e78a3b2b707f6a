# cmake -DOUTPUT=FILE "-DITEMS=TYPE;NAME;FILE;..." -DFLAGS=NUMBER -P EmbedResources.cmake: a C++
# file with the resources, so that the program finds them wherever it lies. Without FLAGS the
# program has no resource of its launch flags.

set(tables)
set(entries)
set(id 0)

function(add_entry type name table)
    if(NOT type MATCHES "^[A-Za-z0-9_]...$" OR type MATCHES "['\\\\]")
        message(FATAL_ERROR "\"${type}\" is no type of four characters")
    endif()
    if(name MATCHES "[\"\\\\\n]")
        message(FATAL_ERROR "\"${name}\" is no name for a resource")
    endif()
    set(entries "${entries}    {'${type}', ${id}, \"${name}\", &${table}, sizeof(${table})},\n"
        PARENT_SCOPE)
endfunction()

while(ITEMS)
    list(POP_FRONT ITEMS type name file)
    math(EXPR id "${id} + 1")
    file(READ ${file} bytes HEX)
    if(bytes STREQUAL "")
        message(FATAL_ERROR "${file} is empty")
    endif()
    string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
    string(APPEND tables "alignas(8) constexpr uint8 k_${id}[] = {${bytes}};\n")
    add_entry(${type} ${name} k_${id})
endwhile()
if(NOT "${FLAGS}" STREQUAL "")
    math(EXPR id "${id} + 1")
    string(APPEND tables "constexpr uint32 k_${id} = ${FLAGS};\n")
    add_entry(APPF "BEOS:APP_FLAGS" k_${id})
endif()
if(NOT entries)
    message(FATAL_ERROR "no resources")
endif()

file(WRITE ${OUTPUT} "// Generated from the program's resources.

#include \"kits/storage/EmbeddedResources.h\"

namespace {

${tables}
constexpr BPrivate::EmbeddedResource kResources[] = {
${entries}};

}  // namespace

std::span<const BPrivate::EmbeddedResource> BPrivate::embedded_resources() {
    return kResources;
}
")
