"""embed_catalogues.py OUTPUT CATALOGUE.ts...: a C++ file with the texts of all catalogues, so that
the program finds them wherever it lies."""

import re
import sys
import xml.etree.ElementTree as ElementTree


def literal(text):
    # Three digits always, so that what follows an escape is no part of it.
    return '"' + "".join(
        chr(byte) if 32 <= byte < 127 and chr(byte) not in '"\\?' else f"\\{byte:03o}"
        for byte in text.encode()) + '"'


def texts(path):
    """What the translator left empty or unfinished is as good as missing."""
    for message in ElementTree.parse(path).iter("message"):
        translation = message.find("translation")
        if translation.text and translation.get("type") is None:
            yield message.findtext("source"), translation.text


def main(output, *paths):
    tables = []
    entries = []
    for path in sorted(paths):
        language = re.search(r"_(\w+)\.ts$", path).group(1)
        rows = [f"    {{{literal(key)}, {literal(text)}}},\n" for key, text in texts(path)]
        tables.append(f"constexpr BPrivate::CatalogueEntry k_{language}[] = {{\n{''.join(rows)}}};\n")
        entries.append(f'    {{"{language}", k_{language}}},\n')
    with open(output, "w", encoding="ascii") as file:
        file.write(f"""// Generated from the catalogues.

#include "kits/locale/EmbeddedCatalogues.h"

namespace {{

{''.join(tables)}
constexpr BPrivate::EmbeddedCatalogue kCatalogues[] = {{
{''.join(entries)}}};

}}  // namespace

std::span<const BPrivate::EmbeddedCatalogue> BPrivate::embedded_catalogues() {{
    return kCatalogues;
}}
""")


if __name__ == "__main__":
    main(*sys.argv[1:])
