#pragma once

#include <support/SupportDefs.h>

/// A colour with alpha, not premultiplied: alpha 255 is opaque.
struct rgb_color {
    uint8 red = 0;
    uint8 green = 0;
    uint8 blue = 0;
    uint8 alpha = 255;

    constexpr bool operator==(const rgb_color&) const = default;
};

/// Given as a view colour: the view paints every pixel of its own, nothing is erased before.
inline constexpr rgb_color B_TRANSPARENT_COLOR{0x77, 0x74, 0x77, 0x00};

enum color_space {
    B_NO_COLOR_SPACE = 0x0000,
    B_RGB32 = 0x0008,   ///< B, G, R and an unused byte in memory
    B_RGBA32 = 0x2008,  ///< B, G, R, A in memory, alpha not premultiplied
    B_GRAY8 = 0x0002,   ///< one byte a pixel, 0 black
};

enum drawing_mode {
    B_OP_COPY,   ///< the source replaces the destination, alpha included
    B_OP_OVER,   ///< like copy, but pixels of alpha 0 leave the destination
    B_OP_ALPHA,  ///< the source is blended by its own alpha
};

enum orientation { B_HORIZONTAL, B_VERTICAL };

enum alignment { B_ALIGN_LEFT, B_ALIGN_RIGHT, B_ALIGN_CENTER };

enum border_style { B_PLAIN_BORDER, B_FANCY_BORDER, B_NO_BORDER };

/// Names a screen.
struct screen_id {
    int32 id = 0;
};
inline constexpr screen_id B_MAIN_SCREEN_ID{};
