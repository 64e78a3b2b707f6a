#pragma once

#include <string>
#include <support/SupportDefs.h>

inline constexpr int32 B_FONT_FAMILY_LENGTH = 63;
inline constexpr int32 B_FONT_STYLE_LENGTH = 63;
using font_family = char[B_FONT_FAMILY_LENGTH + 1];
using font_style = char[B_FONT_STYLE_LENGTH + 1];

/// Bits of a face.
enum : uint16 {
    B_ITALIC_FACE = 0x0001,
    B_BOLD_FACE = 0x0020,
    B_REGULAR_FACE = 0x0040,
};

/// Which properties `BView::SetFont` takes over.
enum : uint32 {
    B_FONT_FAMILY_AND_STYLE = 0x00000001,
    B_FONT_SIZE = 0x00000002,
    B_FONT_FACE = 0x00000080,
    B_FONT_ALL = 0x000001ff,
};

/// Distances from the baseline in pixels, all positive.
struct font_height {
    float ascent = 0;
    float descent = 0;
    float leading = 0;
};

/// A font by its family, face and size. Sizes are in pixels. A value: copies are independent.
///
/// Threads. Any number may ask one font; changing it is for one thread alone.
class BFont {
public:
    /// The plain font of the desktop, 12 pixels high.
    BFont();
    explicit BFont(const BFont* font);

    /// `B_NAME_NOT_FOUND` when the family is not installed; nothing changes then. A null family
    /// stands for the present one, a null style for the family's own regular one.
    status_t SetFamilyAndStyle(const char* family, const char* style);
    void GetFamilyAndStyle(font_family* family, font_style* style) const;
    /// Sizes below 1 and those that are no numbers become 1; at most 10000.
    void SetSize(float size);
    float Size() const { return fSize; }
    void SetFace(uint16 face) { fFace = face; }
    uint16 Face() const { return fFace; }

    /// The advance of the text (UTF-8) in pixels; 0 for null.
    float StringWidth(const char* text) const;
    float StringWidth(const char* text, int32 length) const;
    void GetHeight(font_height* height) const;

    bool operator==(const BFont& other) const = default;

private:
    std::string fFamily;  // empty: the desktop's own
    float fSize = 12;
    uint16 fFace = B_REGULAR_FACE;
};

extern const BFont* const be_plain_font;
extern const BFont* const be_bold_font;

/// The number of installed font families. What get_font_family() tells the same thread stays with
/// it until the thread counts again.
int32 count_font_families();
/// The name of one: the first is the one that stands in where a family is not installed, the others
/// are in alphabetical order. `B_BAD_INDEX` outside of their number.
status_t get_font_family(int32 index, font_family* name, uint32* flags = nullptr);
