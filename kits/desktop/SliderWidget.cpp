#include <QEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/MarkedSlider.h"

namespace BPrivate {

namespace {

/// A slider with its label above. The labels of its ends are below a horizontal slider, at the ends
/// of a vertical one.
class LabelledSlider : public QWidget {
public:
    explicit LabelledSlider(QWidget* parent)
        : QWidget(parent), fSlider(this), fLabel(this), fMin(this), fMax(this) {
        for (QLabel* label : {&fLabel, &fMin, &fMax})
            label->setTextFormat(Qt::PlainText);
        fLabel.setBuddy(&fSlider);
        setFocusProxy(&fSlider);
    }

    MarkedSlider& Slider() { return fSlider; }

    void Set(const SliderState& state) {
        const QSignalBlocker blocker(fSlider);
        fLabel.setText(LabelText(state.label));
        fMin.setText(LabelText(state.minLabel));
        fMax.setText(LabelText(state.maxLabel));
        fSlider.setOrientation(state.direction == B_VERTICAL ? Qt::Vertical : Qt::Horizontal);
        fSlider.setRange(state.min, state.max);
        fSlider.setSingleStep(state.step);
        // A click beside the knob goes a tenth of the way, which no number overflows.
        fSlider.setPageStep(
            std::max(state.step, static_cast<int>((qint64{state.max} - state.min) / 10)));
        fSlider.setValue(state.value);
        fSlider.SetMarks(state.hashMarks, state.hashesAbove, state.hashesBelow);
        Arrange();
    }

    QSize sizeHint() const override {
        const QSize label = SizeOf(fLabel);
        const QSize min = SizeOf(fMin);
        const QSize max = SizeOf(fMax);
        const QSize slider = fSlider.sizeHint();
        if (IsVertical()) {
            return {std::max({label.width(), min.width(), max.width(), slider.width()}),
                label.height() + max.height() + slider.height() + min.height()};
        }
        constexpr int kBetween = 8;
        const int ends = min.width() + max.width() + kBetween;
        return {std::max({label.width(), ends, slider.width()}),
            label.height() + slider.height() + std::max(min.height(), max.height())};
    }

protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }

    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
            Arrange();
    }

private:
    bool IsVertical() const { return fSlider.orientation() == Qt::Vertical; }

    static QSize SizeOf(const QLabel& label) {
        return label.text().isEmpty() ? QSize(0, 0) : label.sizeHint();
    }

    void Arrange() {
        const int labelHeight = SizeOf(fLabel).height();
        const QSize min = SizeOf(fMin);
        const QSize max = SizeOf(fMax);
        if (IsVertical()) {
            const int left = height() - labelHeight - max.height() - min.height();
            const int top = labelHeight + max.height();
            fLabel.setAlignment(Qt::AlignCenter);
            fMin.setAlignment(Qt::AlignCenter);
            fMax.setAlignment(Qt::AlignCenter);
            fLabel.setGeometry(0, 0, width(), labelHeight);
            fMax.setGeometry(0, labelHeight, width(), max.height());
            fSlider.setGeometry(0, top, width(), std::max(0, left));
            fMin.setGeometry(0, top + std::max(0, left), width(), min.height());
            return;
        }
        const int ends = std::max(min.height(), max.height());
        // Where there is too little height the slider gives way first: a text is of no use cut.
        const int slider =
            std::clamp(height() - labelHeight - ends, 0, fSlider.sizeHint().height());
        const int below = labelHeight + slider;
        fLabel.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        fMin.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        fMax.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        fLabel.setGeometry(0, 0, width(), labelHeight);
        fSlider.setGeometry(0, labelHeight, width(), slider);
        fMin.setGeometry(0, below, std::min(width(), min.width()), ends);
        fMax.setGeometry(
            width() - std::min(width(), max.width()), below, std::min(width(), max.width()), ends);
    }

    MarkedSlider fSlider;
    QLabel fLabel;
    QLabel fMin;
    QLabel fMax;
};

class SliderWidget : public ControlWidget {
public:
    SliderWidget(LabelledSlider* view, ControlReport report)
        : ControlWidget(view), fView(*view), fReport(std::move(report)) {
        QSlider& slider = fView.Slider();
        QObject::connect(&slider, &QSlider::valueChanged, &slider,
            [this](int value) { Report(value, !fView.Slider().isSliderDown()); });
        QObject::connect(&slider, &QSlider::sliderReleased, &slider,
            [this] { Report(fView.Slider().value(), true); });
    }

    QWidget& FocusWidget() override { return fView.Slider(); }

    void SetState(const ControlState& state) override { fView.Set(std::get<SliderState>(state)); }

    void SetAccessibleName(const QString& name) override { fView.Slider().setAccessibleName(name); }

private:
    void Report(int value, bool final) {
        BMessage change;
        change.AddInt32("value", value);
        change.AddBool("final", final);
        fReport(change);
    }

    LabelledSlider& fView;
    ControlReport fReport;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeSlider(QWidget* parent, ControlReport report) {
    return std::make_unique<SliderWidget>(new LabelledSlider(parent), std::move(report));
}

}  // namespace BPrivate
