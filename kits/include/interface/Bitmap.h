#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/Rect.h>
#include <memory>
#include <support/SupportDefs.h>

class BView;
class BWindow;

namespace BPrivate {
class BitmapAccess;
class BitmapData;
}  // namespace BPrivate

/// A picture in memory. With a frame (0, 0, w, h) it has ceil(w) + 1 by ceil(h) + 1 pixels, all
/// zero at first.
///
/// Views added to a bitmap that accepts them draw straight into its pixels. Such a bitmap is
/// locked while its views are used.
///
/// Threads. One thread at a time; different bitmaps are independent even when one was drawn into
/// the other (the pixels they may share are copied before either changes).
class BBitmap {
public:
    /// `acceptsViews` needs a 32-bit colour space. Whether the memory is contiguous makes no
    /// difference. A frame that is invalid, not finite or too large, or a colour space that is not
    /// known, makes InitCheck() tell the error; such a bitmap is empty and can be used safely.
    BBitmap(
        BRect frame, color_space space, bool acceptsViews = false, bool needsContiguous = false);
    /// A copy of the pixels.
    explicit BBitmap(
        const BBitmap* source, bool acceptsViews = false, bool needsContiguous = false);
    /// Deletes its views.
    virtual ~BBitmap();

    BBitmap(const BBitmap&) = delete;
    BBitmap& operator=(const BBitmap&) = delete;

    /// `B_OK`, `B_BAD_VALUE` (frame, or views where none can be), `B_BAD_TYPE` (colour space) or
    /// `B_NO_MEMORY`.
    status_t InitCheck() const;
    bool IsValid() const { return InitCheck() == B_OK; }

    /// The pixels, row after row; null when InitCheck() failed. May be written until the bitmap is
    /// deleted. Asking ends any sharing of the pixels for good, so ask only when needed.
    void* Bits() const;
    int32 BitsLength() const;
    int32 BytesPerRow() const;
    color_space ColorSpace() const;
    BRect Bounds() const;

    /// Copies bytes of the bitmap's own colour space over the pixels from byte `offset` on.
    /// `B_BAD_TYPE` for another colour space, `B_BAD_VALUE` for bytes outside of the bitmap.
    status_t ImportBits(
        const void* data, int32 length, int32 bytesPerRow, int32 offset, color_space space);
    /// The same without an answer; rows are as long as the bitmap's.
    void SetBits(const void* data, int32 length, int32 offset, color_space space);
    /// Both of one size and colour space. `B_MISMATCHED_VALUES` otherwise.
    status_t ImportBits(const BBitmap* bitmap);

    /// Hands the view over; it draws into the bitmap from now on. Its hooks are not called: it is
    /// in no window. Nothing happens when the bitmap accepts no views.
    virtual void AddChild(BView* view);
    virtual bool RemoveChild(BView* view);
    int32 CountChildren() const;
    BView* ChildAt(int32 index) const;
    BView* FindView(const char* name) const;

    /// Holds the bitmap for drawing; nests. False on a bitmap that accepts no views.
    bool Lock();
    void Unlock();
    bool IsLocked() const;

private:
    friend class BPrivate::BitmapAccess;

    explicit BBitmap(std::unique_ptr<BPrivate::BitmapData> data);

    std::unique_ptr<BPrivate::BitmapData> fData;
};
