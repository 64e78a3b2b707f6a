#include <QFontMetrics>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/Fonts.h"
#include "kits/desktop/MenuText.h"

namespace BPrivate {

namespace {

/// A line of text that ends in an ellipsis where a label's would be cut off. Where there is too
/// little height for the font's box, its accents give way first, and then its size. What is cut off
/// is told by the tool tip.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

    void UpdateToolTip() {
        const QFontMetrics metrics(FittingFont(Seen().height()));
        const bool isCut = metrics.elidedText(text(), Qt::ElideRight, width()) != text();
        // Tags, lest the text's own be taken for some.
        setToolTip(
            isCut ? QStringLiteral("<span>%1</span>").arg(text().toHtmlEscaped()) : QString());
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        UpdateToolTip();
    }

    void paintEvent(QPaintEvent*) override {
        const QRect seen = Seen();
        const QFont fitting = FittingFont(seen.height());
        const QFontMetrics metrics(fitting);
        const QString shown = metrics.elidedText(text(), Qt::ElideRight, width());
        int left = 0;
        if (alignment() & Qt::AlignRight)
            left = width() - metrics.horizontalAdvance(shown);
        else if (alignment() & Qt::AlignHCenter)
            left = (width() - metrics.horizontalAdvance(shown)) / 2;

        QPainter painter(this);
        painter.setFont(fitting);
        painter.setPen(
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole()));
        painter.drawText(left, seen.top() + Baseline(metrics, seen.height()), shown);
    }

private:
    QRect Seen() const { return mask().isEmpty() ? rect() : mask().boundingRect(); }

    /// Where the baseline is from the top: in the middle, but with the descenders inside.
    static int Baseline(const QFontMetrics& metrics, int height) {
        const int middle = (height - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent();
        return std::min(middle, height - metrics.descent());
    }

    QFont FittingFont(int height) const {
        constexpr int kSmallest = 8;
        QFont fitting = font();
        const auto fits = [&] {
            const QFontMetrics metrics(fitting);
            return -metrics.tightBoundingRect(text()).top() <= Baseline(metrics, height);
        };
        while (fitting.pixelSize() > kSmallest && !fits())
            fitting.setPixelSize(fitting.pixelSize() - 1);
        return fitting;
    }
};

class StringViewWidget : public ControlWidget {
public:
    explicit StringViewWidget(ElidedLabel* label) : ControlWidget(label), fLabel(*label) {}

    void SetState(const ControlState& state) override {
        const auto& view = std::get<StringViewState>(state);
        fLabel.setFont(WidgetFont(view.font));
        fLabel.setAlignment(Qt::AlignVCenter | Horizontal(view.align));
        QPalette palette;
        if (!view.systemColor) {
            palette.setColor(QPalette::WindowText,
                QColor(view.color.red, view.color.green, view.color.blue, view.color.alpha));
        }
        fLabel.setPalette(palette);
        const QString text = OneLine(view.text);
        fLabel.setText(text);
        fLabel.UpdateToolTip();
    }

private:
    static Qt::Alignment Horizontal(alignment align) {
        switch (align) {
        case B_ALIGN_RIGHT: return Qt::AlignRight;
        case B_ALIGN_CENTER: return Qt::AlignHCenter;
        default: return Qt::AlignLeft;
        }
    }

    ElidedLabel& fLabel;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeStringView(QWidget* parent) {
    return std::make_unique<StringViewWidget>(new ElidedLabel(parent));
}

}  // namespace BPrivate
