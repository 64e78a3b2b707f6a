#include "kits/desktop/Fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "kits/desktop/FrontImage.h"

namespace BPrivate {

namespace {

// On an image of 72 dots an inch a font of n points is n pixels high, and n may have a fraction.
constexpr int kDotsPerMeter = 2835;

// A line of text wider than any; Qt's own limit is 32 times that.
constexpr qreal kEndless = 1e6;

float SaneSize(float size) {
    return std::isfinite(size) ? std::clamp(size, 1.0F, 2000.0F) : 12.0F;
}

float SaneWidth(float width) {
    // What Qt's fixed point numbers hold, and far beyond a screen.
    constexpr float kWidest = 1 << 20;
    return std::isfinite(width) ? std::clamp(width, 0.0F, kWidest) : 0;
}

void SetFace(QFont& font, const FontSpec& spec) {
    if (!spec.family.empty())
        font.setFamily(QString::fromStdString(spec.family));
    font.setStyleHint(QFont::SansSerif);
    font.setBold(spec.bold);
    font.setItalic(spec.italic);
}

QFont ImageFont(const FontSpec& spec, const QImage& image) {
    QFont font;
    SetFace(font, spec);
    font.setPointSizeF(SaneSize(spec.size));
    // Coloured fringes are made for one background; the kits draw text into pictures, too.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return QFont(font, &image);
}

/// Whether nothing is drawn on these pixels.
bool IsClear(const QRgb* pixels, int count) {
    // All are as the one before.
    return pixels[0] == 0 &&
        std::memcmp(pixels, pixels + 1, sizeof(QRgb) * static_cast<size_t>(count - 1)) == 0;
}

/// A premultiplied pixel over one that is not.
QRgb Over(QRgb above, QRgb below) {
    const int alpha = qAlpha(above);
    if (alpha == 255)
        return above;  // as all below would make it
    // What is seen of the pixel below, in 255ths.
    const int rest = (qAlpha(below) * (255 - alpha) + 127) / 255;
    const int sum = alpha + rest;
    const auto mix = [=](int premultiplied, int straight) {
        return std::min(255, (premultiplied * 255 + straight * rest + sum / 2) / sum);
    };
    return qRgba(mix(qRed(above), qRed(below)), mix(qGreen(above), qGreen(below)),
        mix(qBlue(above), qBlue(below)), sum);
}

/// Draws with letters `ratio` times as large, each where it stands in the text as it is measured:
/// in the larger font itself they would drift away from that.
void DrawEnlarged(
    QPainter& painter, QPointF origin, const QFont& font, const QString& text, qreal ratio) {
    QTextOption plain(Qt::AlignLeft | Qt::AlignAbsolute);
    plain.setWrapMode(QTextOption::NoWrap);
    plain.setTextDirection(Qt::LayoutDirectionAuto);
    QTextLayout layout(text, font, painter.device());
    layout.setTextOption(plain);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid())
        line.setLineWidth(kEndless);
    layout.endLayout();
    for (QGlyphRun run : layout.glyphRuns()) {
        QRawFont letters = run.rawFont();
        letters.setPixelSize(letters.pixelSize() * ratio);
        QList<QPointF> positions = run.positions();
        for (QPointF& at : positions)
            at = QPointF(at.x(), at.y() - line.ascent()) * ratio;
        run.setRawFont(letters);
        run.setPositions(positions);
        painter.drawGlyphRun(origin, run);
    }
}

QImage MeasuringImage() {
    QImage image(1, 1, QImage::Format_ARGB32);
    image.setDotsPerMeterX(kDotsPerMeter);
    image.setDotsPerMeterY(kDotsPerMeter);
    return image;
}

}  // namespace

QFont WidgetFont(const FontSpec& spec) {
    QFont font;
    SetFace(font, spec);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(SaneSize(spec.size)))));
    return font;
}

std::vector<std::string> InstalledFontFamilies() {
    std::vector<std::string> families;
    for (const QString& family : QFontDatabase::families()) {
        if (QFontDatabase::isSmoothlyScalable(family))
            families.push_back(family.toStdString());
    }
    std::ranges::sort(families);
    // Whoever takes the first, as when another is not installed, gets the one that is drawn then.
    const std::string own = QFontInfo(WidgetFont({})).family().toStdString();
    if (const auto found = std::ranges::find(families, own); found != families.end())
        std::rotate(families.begin(), found, found + 1);
    return families;
}

FontMetrics MetricsOf(const FontSpec& spec) {
    QImage image = MeasuringImage();
    const QFontMetricsF metrics(ImageFont(spec, image), &image);
    return {static_cast<float>(metrics.ascent()), static_cast<float>(metrics.descent()),
        static_cast<float>(std::max(0.0, metrics.leading()))};
}

float WidthOf(const FontSpec& spec, const std::string& utf8) {
    QImage image = MeasuringImage();
    const QFontMetricsF metrics(ImageFont(spec, image), &image);
    return static_cast<float>(metrics.horizontalAdvance(QString::fromStdString(utf8)));
}

std::vector<int32> LineEndsOf(const FontSpec& spec, const std::string& utf8, float width) {
    const QString text = QString::fromStdString(utf8);
    QImage image = MeasuringImage();
    QTextLayout layout(text, ImageFont(spec, image), &image);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    layout.setTextOption(option);

    // Qt counts in 64ths of a pixel, rounded down.
    constexpr qreal kRounding = 1.0 / 64;
    std::vector<int32> ends;
    qsizetype before = 0;
    int32 bytes = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(1.0, qreal(SaneWidth(width)) + kRounding));
        const qsizetype end = line.textStart() + line.textLength();
        bytes += static_cast<int32>(QStringView(text).mid(before, end - before).toUtf8().size());
        before = end;
        ends.push_back(bytes);
    }
    layout.endLayout();
    if (ends.empty())
        ends.push_back(static_cast<int32>(utf8.size()));
    return ends;
}

void DrawTextInto(const PixelBuffer& buffer, BRect clip, BPoint origin, rgb_color color,
    const FontSpec& spec, const std::string& utf8) {
    if (buffer.bits == nullptr || !clip.IsValid())
        return;
    const QString text = QString::fromStdString(utf8);
    QImage measure = MeasuringImage();
    const QFont font = ImageFont(spec, measure);
    const QFontMetricsF metrics(font, &measure);
    // Slanted letters and accents reach beyond their own boxes, but not by more than a box. How long
    // the text is takes longer to tell than to leave room for it.
    const auto ratio = double{buffer.ratio};
    const auto reach = static_cast<float>(metrics.height() * ratio);
    const QRect area = PixelsOf(clip) & QRect(0, 0, buffer.width, buffer.height) &
        PixelsOf(BRect(origin.x - reach, origin.y - 2 * reach, std::max(origin.x, clip.right),
            origin.y + reach));
    if (area.isEmpty())
        return;

    // Drawn for itself first: Qt's own drawing darkens text on what is not opaque.
    QImage drawn(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (drawn.isNull())
        return;
    drawn.setDotsPerMeterX(kDotsPerMeter);
    drawn.setDotsPerMeterY(kDotsPerMeter);
    drawn.fill(Qt::transparent);
    {
        QPainter painter(&drawn);
        painter.setFont(font);
        // Text written from right to left begins at its own right side.
        painter.setLayoutDirection(Qt::LayoutDirectionAuto);
        painter.setPen(QColor(color.red, color.green, color.blue, color.alpha));
        const QPointF start = QPointF(origin.x, origin.y) - area.topLeft();
        if (ratio == 1)
            painter.drawText(start, text);
        else
            DrawEnlarged(painter, start, font, text, ratio);
    }
    for (int y = 0; y < area.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(drawn.constScanLine(y));
        if (IsClear(from, area.width()))
            continue;  // as most are: there is room for all that letters may reach
        auto* to = reinterpret_cast<QRgb*>(
                       buffer.bits + static_cast<ptrdiff_t>(area.top() + y) * buffer.bytesPerRow) +
            area.left();
        for (int x = 0; x < area.width(); ++x) {
            if (qAlpha(from[x]) != 0)
                to[x] = Over(from[x], to[x]);
        }
    }
}

}  // namespace BPrivate
