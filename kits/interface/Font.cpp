#include <interface/Font.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "kits/interface/FontAccess.h"
#include "kits/interface/ShownText.h"

using BPrivate::FontSpec;
using BPrivate::SpecOf;
using BPrivate::TheDisplay;

namespace {

constexpr float kSmallestSize = 1;
constexpr float kLargestSize = 10000;

BFont MakeBold() {
    BFont font;
    font.SetFace(B_BOLD_FACE);
    return font;
}

const BFont kPlainFont;
const BFont kBoldFont = MakeBold();

/// What the thread was last told to be installed: a list that changed between the count and the
/// names would be read wrongly, and making it takes long.
thread_local std::vector<std::string> sFamilies;

void CopyName(char* to, std::size_t size, const char* from) {
    std::strncpy(to, from, size - 1);
    to[size - 1] = '\0';
}

/// A face as the styles of a family are called.
const char* StyleOf(uint16 face) {
    const bool bold = (face & B_BOLD_FACE) != 0;
    if ((face & B_ITALIC_FACE) != 0)
        return bold ? "Bold Italic" : "Italic";
    return bold ? "Bold" : "Regular";
}

uint16 FaceOf(const char* style) {
    uint16 face = 0;
    if (std::strstr(style, "Bold") != nullptr)
        face |= B_BOLD_FACE;
    if (std::strstr(style, "Italic") != nullptr || std::strstr(style, "Oblique") != nullptr)
        face |= B_ITALIC_FACE;
    return face != 0 ? face : uint16{B_REGULAR_FACE};
}

}  // namespace

const BFont* const be_plain_font = &kPlainFont;
const BFont* const be_bold_font = &kBoldFont;

namespace BPrivate {

FontSpec SpecOf(const BFont& font) {
    font_family family;
    font.GetFamilyAndStyle(&family, nullptr);
    return {
        family, font.Size(), (font.Face() & B_BOLD_FACE) != 0, (font.Face() & B_ITALIC_FACE) != 0};
}

std::string Printable(const char* text, std::size_t length) {
    return ShownText({text, strnlen(text, length)});
}

void TakeFont(BFont& font, const BFont& from, uint32 mask) {
    BFont taken = (mask & B_FONT_FAMILY_AND_STYLE) != 0 ? from : font;
    taken.SetSize((mask & B_FONT_SIZE) != 0 ? from.Size() : font.Size());
    taken.SetFace(
        (mask & (B_FONT_FACE | B_FONT_FAMILY_AND_STYLE)) != 0 ? from.Face() : font.Face());
    font = taken;
}

}  // namespace BPrivate

BFont::BFont() = default;

BFont::BFont(const BFont* font) {
    if (font != nullptr)
        *this = *font;
}

status_t BFont::SetFamilyAndStyle(const char* family, const char* style) {
    if (family != nullptr) {
        const std::vector<std::string> families = TheDisplay().FontFamilies();
        if (std::find(families.begin(), families.end(), family) == families.end())
            return B_NAME_NOT_FOUND;
        fFamily = family;
    }
    fFace = style != nullptr ? FaceOf(style) : uint16{B_REGULAR_FACE};
    return B_OK;
}

void BFont::GetFamilyAndStyle(font_family* family, font_style* style) const {
    if (family != nullptr)
        CopyName(*family, sizeof(*family), fFamily.c_str());
    if (style != nullptr)
        CopyName(*style, sizeof(*style), StyleOf(fFace));
}

void BFont::SetSize(float size) {
    fSize = std::isnan(size) ? kSmallestSize : std::clamp(size, kSmallestSize, kLargestSize);
}

float BFont::StringWidth(const char* text) const {
    return text != nullptr ? StringWidth(text, static_cast<int32>(std::strlen(text))) : 0;
}

float BFont::StringWidth(const char* text, int32 length) const {
    if (text == nullptr || length <= 0)
        return 0;
    return TheDisplay().StringWidth(
        SpecOf(*this), BPrivate::Printable(text, static_cast<std::size_t>(length)));
}

void BFont::GetHeight(font_height* height) const {
    if (height == nullptr)
        return;
    const BPrivate::FontMetrics metrics = TheDisplay().Metrics(SpecOf(*this));
    *height = {metrics.ascent, metrics.descent, metrics.leading};
}

int32 count_font_families() {
    sFamilies = TheDisplay().FontFamilies();
    return static_cast<int32>(sFamilies.size());
}

status_t get_font_family(int32 index, font_family* name, uint32* flags) {
    if (sFamilies.empty())
        sFamilies = TheDisplay().FontFamilies();
    if (index < 0 || static_cast<std::size_t>(index) >= sFamilies.size())
        return B_BAD_INDEX;
    if (name == nullptr)
        return B_BAD_VALUE;
    CopyName(*name, sizeof(*name), sFamilies[static_cast<std::size_t>(index)].c_str());
    if (flags != nullptr)
        *flags = 0;
    return B_OK;
}
