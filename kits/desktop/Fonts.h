#pragma once

#include <QFont>
#include <string>
#include <vector>

#include "kits/interface/Display.h"

namespace BPrivate {

// Fonts and text. Any thread.

/// The font for a widget. A family that is not installed gives way to a sans-serif one.
QFont WidgetFont(const FontSpec& spec);

std::vector<std::string> InstalledFontFamilies();
FontMetrics MetricsOf(const FontSpec& spec);
float WidthOf(const FontSpec& spec, const std::string& utf8);
/// See Display::LineEnds().
std::vector<int32> LineEndsOf(const FontSpec& spec, const std::string& utf8, float width);
void DrawTextInto(const PixelBuffer& buffer, BRect clip, BPoint origin, rgb_color color,
    const FontSpec& spec, const std::string& utf8);

}  // namespace BPrivate
