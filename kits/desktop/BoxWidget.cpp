#include <QGroupBox>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <optional>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

/// A group box that can be a separator line or do without its frame.
class Box : public QGroupBox {
public:
    explicit Box(QWidget* parent) : QGroupBox(parent) {
        // Clicks are for the views in the box.
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void Set(border_style border, const std::optional<rgb_color>& fill) {
        fBorder = border;
        fFill = fill;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        constexpr int kThickestLine = 3;
        const bool line = width() <= kThickestLine || height() <= kThickestLine;
        if (fBorder == B_FANCY_BORDER && !line) {
            QGroupBox::paintEvent(event);
            QPainter painter(this);
            DrawFill(painter);
            return;
        }
        QPainter painter(this);
        if (line && fBorder != B_NO_BORDER) {
            DrawLine(painter);
            return;
        }
        DrawFill(painter);
        DrawPlain(painter);
    }

private:
    void DrawFill(QPainter& painter) {
        if (!fFill)
            return;
        // As thick as the themes draw a group's frame, its rounded corners included.
        const int border = fBorder == B_FANCY_BORDER ? 2 : fBorder == B_PLAIN_BORDER ? 1 : 0;
        const int top = title().isEmpty() ? 0 : fontMetrics().height();
        const QRect inside = rect().adjusted(border, std::max(border, top), -border, -border);
        const QColor color(fFill->red, fFill->green, fFill->blue, fFill->alpha);
        if (color.alpha() < 255)
            DrawChecks(painter, inside);
        painter.fillRect(inside, color);
    }

    /// What a colour that is not opaque is seen over.
    static void DrawChecks(QPainter& painter, QRect area) {
        constexpr int kCell = 6;
        painter.fillRect(area, Qt::white);
        for (int y = 0; y * kCell < area.height(); y++) {
            for (int x = y % 2; x * kCell < area.width(); x += 2) {
                const QRect cell(area.x() + x * kCell, area.y() + y * kCell, kCell, kCell);
                painter.fillRect(cell & area, Qt::lightGray);
            }
        }
    }

    void DrawLine(QPainter& painter) {
        const bool vertical = width() < height();
        const int lines = fBorder == B_PLAIN_BORDER ? 1 : 2;
        const int first = std::max(0, (std::min(width(), height()) - lines) / 2);
        const auto draw = [&](int at, QPalette::ColorRole role) {
            const QRect line = vertical ? QRect(at, 0, 1, height()) : QRect(0, at, width(), 1);
            painter.fillRect(line, palette().color(role));
        };
        draw(first, QPalette::Dark);
        if (lines == 2)
            draw(first + 1, QPalette::Light);
    }

    void DrawPlain(QPainter& painter) {
        const int labelHeight = title().isEmpty() ? 0 : fontMetrics().height();
        if (fBorder == B_PLAIN_BORDER) {
            painter.setPen(palette().color(QPalette::Dark));
            painter.drawRect(rect().adjusted(0, labelHeight / 2, -1, -1));
        }
        if (title().isEmpty())
            return;
        constexpr int kIndent = 8;
        const QString text = title().replace(QStringLiteral("&&"), QStringLiteral("&"));
        const QRect label(kIndent, 0, fontMetrics().horizontalAdvance(text) + kIndent, labelHeight);
        painter.fillRect(label, palette().color(QPalette::Window));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(label, Qt::AlignCenter, text);
    }

    border_style fBorder = B_FANCY_BORDER;
    std::optional<rgb_color> fFill;
};

class BoxWidget : public ControlWidget {
public:
    explicit BoxWidget(Box* box) : ControlWidget(box), fBox(*box) {}

    void SetState(const ControlState& state) override {
        const auto& box = std::get<BoxState>(state);
        fBox.setTitle(LabelText(box.label));
        fBox.Set(box.border, box.fill);
    }

private:
    Box& fBox;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeBox(QWidget* parent) {
    return std::make_unique<BoxWidget>(new Box(parent));
}

}  // namespace BPrivate
