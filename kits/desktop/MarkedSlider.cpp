#include "kits/desktop/MarkedSlider.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <algorithm>

namespace BPrivate {

MarkedSlider::MarkedSlider(QWidget* parent) : QSlider(parent) {}

void MarkedSlider::SetMarks(int count, bool before, bool after) {
    fMarks = count;
    // The theme leaves room for marks on these sides; it would place its own at whole values.
    TickPosition position = NoTicks;
    if (count > 0 && before)
        position = after ? TicksBothSides : TicksAbove;
    else if (count > 0 && after)
        position = TicksBelow;
    setTickPosition(position);
    update();
}

double MarkedSlider::PlaceOf(double part) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const int knob = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
    const int length = orientation() == Qt::Horizontal ? width() : height();
    return part * (length - knob) + knob / 2.0;
}

QRect MarkedSlider::Knob(const QSize& size) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.rect = QRect(QPoint(0, 0), size);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

QSize MarkedSlider::sizeHint() const {
    const QSize size = QSlider::sizeHint();
    // A theme moves the knob away from the marks, and partly out of the size it asked for.
    const QRect knob = Knob(size);
    if (orientation() == Qt::Horizontal) {
        const int outside = std::max({0, -knob.top(), knob.bottom() - size.height() + 1});
        return {size.width(), size.height() + 2 * outside};
    }
    const int outside = std::max({0, -knob.left(), knob.right() - size.width() + 1});
    return {size.width() + 2 * outside, size.height()};
}

void MarkedSlider::paintEvent(QPaintEvent*) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    if (isSliderDown()) {
        option.activeSubControls = QStyle::SC_SliderHandle;
        option.state |= QStyle::State_Sunken;
    } else if (underMouse() && isEnabled()) {
        option.activeSubControls = style()->hitTestComplexControl(
            QStyle::CC_Slider, &option, mapFromGlobal(QCursor::pos()), this);
    }
    QPainter painter(this);
    DrawMarks(painter);
    style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
}

void MarkedSlider::DrawMarks(QPainter& painter) const {
    const bool horizontal = orientation() == Qt::Horizontal;
    const int length = horizontal ? width() : height();
    const int depth = horizontal ? height() : width();
    if (tickPosition() == NoTicks || fMarks > length / 2)
        return;
    constexpr int kMarkLength = 4;
    constexpr int kGap = 2;
    const QRect knob = Knob(size());
    const int knobStart = horizontal ? knob.top() : knob.left();
    const int knobEnd = horizontal ? knob.bottom() : knob.right();
    const int before = std::max(0, knobStart - kGap - kMarkLength);
    const int after = std::min(depth - kMarkLength, knobEnd + 1 + kGap);
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(isEnabled() ? 0.45F : 0.2F);
    const auto draw = [&](int along, int from) {
        const QRect mark(along, from, 1, kMarkLength);
        painter.fillRect(horizontal ? mark : QRect(from, along, kMarkLength, 1), color);
    };
    for (int i = 0; i < fMarks; i++) {
        const double part = fMarks > 1 ? static_cast<double>(i) / (fMarks - 1) : 0;
        const int along = std::clamp(static_cast<int>(PlaceOf(part)), 0, length - 1);
        const int place = horizontal ? along : length - 1 - along;
        if ((tickPosition() & TicksAbove) != 0)
            draw(place, before);
        if ((tickPosition() & TicksBelow) != 0)
            draw(place, after);
    }
}

}  // namespace BPrivate
