# cmake -DOUTPUT=FILE -DCATALOGUES=A.qm;B.qm -P EmbedCatalogues.cmake: a C++ file with the bytes of
# the compiled catalogues, so that the program finds them wherever it lies.

set(tables)
set(entries)
foreach(catalogue IN LISTS CATALOGUES)
    cmake_path(GET catalogue STEM name)
    string(REGEX REPLACE "^.*_" "" language ${name})
    file(READ ${catalogue} bytes HEX)
    string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
    string(APPEND tables "constexpr char k_${language}[] = {${bytes}};\n")
    string(APPEND entries "    {\"${language}\", {k_${language}, sizeof(k_${language})}},\n")
endforeach()

file(WRITE ${OUTPUT} "// Generated from the compiled catalogues.

#include \"kits/locale/EmbeddedCatalogues.h\"

namespace {

${tables}
constexpr BPrivate::EmbeddedCatalogue kCatalogues[] = {
${entries}};

}  // namespace

std::span<const BPrivate::EmbeddedCatalogue> BPrivate::embedded_catalogues() {
    return kCatalogues;
}
")
