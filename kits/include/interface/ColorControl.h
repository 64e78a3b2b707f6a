#pragma once

#include <interface/Control.h>
#include <interface/GraphicsDefs.h>

/// How a palette's cells would be arranged. The desktop shows the shares of red, green and blue
/// instead; the setting is kept.
enum color_control_layout {
    B_CELLS_4x64 = 4,
    B_CELLS_8x32 = 8,
    B_CELLS_16x16 = 16,
    B_CELLS_32x8 = 32,
    B_CELLS_64x4 = 64
};

/// Chooses a colour by its shares of red, green and blue. It is invoked at every change the user
/// makes.
///
/// Its value as a number is red << 24 | green << 16 | blue << 8. The colour's alpha is not the
/// user's to choose here: ValueAsColor() always tells 255.
///
/// Belongs to its window's thread. Making one without a frame asks the display for its size, and
/// waits for it.
class BColorControl : public BControl {
public:
    /// At that point, in the size it prefers.
    BColorControl(BPoint leftTop, color_control_layout layout, float cellSize, const char* name,
        BMessage* message = nullptr, bool bufferedDrawing = false);
    /// From an archive: BControl's fields and "_layout" int32, "_csize" float, "_usebm" bool. With
    /// a frame that has a size it keeps that, otherwise it takes the one it prefers.
    explicit BColorControl(BMessage* archive);
    ~BColorControl() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    void SetValue(int32 value) override;
    void SetValue(rgb_color color);
    rgb_color ValueAsColor() const;

    /// A size that is not positive is ignored.
    virtual void SetCellSize(float size);
    float CellSize() const { return fCellSize; }
    virtual void SetLayout(color_control_layout layout);
    color_control_layout Layout() const { return fLayout; }

private:
    class Peer;

    color_control_layout fLayout = B_CELLS_32x8;
    float fCellSize = 4;
    bool fBuffered = false;
};
