#pragma once

#include <string>
#include <support/SupportDefs.h>

class BBitmap;

/// Sides of icons in pixels.
enum icon_size {
    B_LARGE_ICON = 32,
    B_MINI_ICON = 16,
};

/// A type of files, "text/plain", or an application's signature.
///
/// A value for one thread; different objects are independent.
class BMimeType {
public:
    BMimeType() = default;
    explicit BMimeType(const char* type) { (void)SetTo(type); }

    /// B_BAD_VALUE for what is no type, which leaves the object unset.
    status_t SetTo(const char* type);
    void Unset();
    status_t InitCheck() const { return fStatus; }
    /// Null when unset. Valid until the object changes.
    const char* Type() const;

    /// Whether the text is a type, or a mere supertype such as "text".
    bool IsValid() const;
    static bool IsValid(const char* type);
    /// Types compare without regard to case.
    bool operator==(const BMimeType& other) const;
    bool operator==(const char* type) const;

    /// Fills a bitmap of `size` by `size` pixels with the type's icon. Known are those of the
    /// running application's own signature, its resources 'ICON' "BEOS:L:STD_ICON" and 'MICN'
    /// "BEOS:M:STD_ICON".
    ///
    /// Such a resource is rows of B, G, R, A (alpha not premultiplied) and the bitmap's colour
    /// space must be B_RGBA32, where the platform's own are colour-mapped: those have no soft edges.
    ///
    /// B_ENTRY_NOT_FOUND when the type has no icon, B_BAD_VALUE for a bitmap of another size or
    /// none, B_BAD_TYPE for one of another colour space, B_BAD_DATA for a resource of a wrong size.
    status_t GetIcon(BBitmap* icon, icon_size size) const;

private:
    std::string fType;
    status_t fStatus = B_NO_INIT;
};
