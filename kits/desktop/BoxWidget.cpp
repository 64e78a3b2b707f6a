#include <QGroupBox>
#include <QPaintEvent>
#include <QPainter>
#include <qdrawutil.h>

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

    void SetBorder(border_style border) {
        fBorder = border;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        constexpr int kThickestLine = 3;
        const bool line = width() <= kThickestLine || height() <= kThickestLine;
        if (fBorder == B_FANCY_BORDER && !line) {
            QGroupBox::paintEvent(event);
            return;
        }
        QPainter painter(this);
        if (line && fBorder != B_NO_BORDER)
            DrawLine(painter);
        else
            DrawPlain(painter);
    }

private:
    void DrawLine(QPainter& painter) {
        const bool vertical = width() < height();
        const QPoint start(vertical ? (width() - 1) / 2 : 0, vertical ? 0 : (height() - 1) / 2);
        const QPoint end = vertical ? QPoint(start.x(), height()) : QPoint(width(), start.y());
        if (fBorder == B_PLAIN_BORDER) {
            painter.setPen(palette().color(QPalette::Dark));
            painter.drawLine(start, end);
        } else {
            qDrawShadeLine(&painter, start, end, palette(), true, 1, 0);
        }
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
};

class BoxWidget : public ControlWidget {
public:
    explicit BoxWidget(Box* box) : ControlWidget(box), fBox(*box) {}

    void SetState(const ControlState& state) override {
        const auto& box = std::get<BoxState>(state);
        fBox.setTitle(LabelText(box.label));
        fBox.SetBorder(box.border);
    }

private:
    Box& fBox;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeBox(QWidget* parent) {
    return std::make_unique<BoxWidget>(new Box(parent));
}

}  // namespace BPrivate
