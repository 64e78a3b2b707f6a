#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/ScrollBarRange.h"

namespace BPrivate {

namespace {

/// Leaves the wheel to the window, whose views have rules of their own for it.
class WheellessBar : public QScrollBar {
public:
    using QScrollBar::QScrollBar;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class ScrollBarWidget : public ControlWidget {
public:
    ScrollBarWidget(QScrollBar* bar, ControlReport report)
        : ControlWidget(bar), fBar(*bar), fRange(ScrollBarState{}), fReport(std::move(report)) {
        fBar.setFocusPolicy(Qt::NoFocus);
        fBar.setContextMenuPolicy(Qt::PreventContextMenu);
        // Qt pages by the length of the thumb; the kits say by how much.
        QObject::connect(&fBar, &QScrollBar::actionTriggered, &fBar, [this](int action) {
            if (action == QAbstractSlider::SliderPageStepAdd)
                fBar.setSliderPosition(fBar.value() + fRange.BigStep());
            else if (action == QAbstractSlider::SliderPageStepSub)
                fBar.setSliderPosition(fBar.value() - fRange.BigStep());
        });
        QObject::connect(&fBar, &QScrollBar::valueChanged, &fBar, [this](int position) {
            BMessage change;
            change.AddFloat("value", fRange.ValueAt(position));
            fReport(change);
        });
    }

    void SetState(const ControlState& state) override {
        const auto& bar = std::get<ScrollBarState>(state);
        const QSignalBlocker blocker(fBar);
        fRange = ScrollBarRange(bar);
        fBar.setOrientation(bar.direction == B_VERTICAL ? Qt::Vertical : Qt::Horizontal);
        fBar.setRange(0, fRange.Last());
        fBar.setSingleStep(fRange.SmallStep());
        fBar.setPageStep(fRange.Page());
        fBar.setValue(fRange.PositionOf(bar.value));
    }

private:
    QScrollBar& fBar;
    ScrollBarRange fRange;
    ControlReport fReport;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeScrollBar(QWidget* parent, ControlReport report) {
    return std::make_unique<ScrollBarWidget>(new WheellessBar(parent), std::move(report));
}

}  // namespace BPrivate
