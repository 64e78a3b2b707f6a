#include "kits/desktop/ShareSlider.h"

#include <QLinearGradient>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStyleOptionSlider>
#include <algorithm>

namespace BPrivate {

ShareSlider::ShareSlider(int share, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), fShare(share) {
    setRange(0, 255);
    setPageStep(16);
}

void ShareSlider::SetColor(QColor color) {
    if (color == fColor)
        return;
    fColor = color;
    update();
}

QSize ShareSlider::sizeHint() const {
    // Half a pixel a value, so that the bar tells them apart.
    constexpr int kWidth = 140;
    return QSlider::sizeHint().expandedTo(QSize(kWidth, 0));
}

QColor ShareSlider::ColorAt(int value) const {
    QColor color = fColor;
    switch (fShare) {
    case 0: color.setRed(value); break;
    case 1: color.setGreen(value); break;
    default: color.setBlue(value);
    }
    if (!isEnabled()) {
        const QColor ground = palette().color(QPalette::Window);
        color = QColor((color.red() + 2 * ground.red()) / 3,
            (color.green() + 2 * ground.green()) / 3, (color.blue() + 2 * ground.blue()) / 3);
    }
    return color;
}

void ShareSlider::paintEvent(QPaintEvent*) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_SliderHandle;
    if (isSliderDown()) {
        option.activeSubControls = QStyle::SC_SliderHandle;
        option.state |= QStyle::State_Sunken;
    }
    const int knob = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
    const int thickness = std::clamp(height() / 2, 4, 12);
    const QRectF bar(1.5, (height() - thickness) / 2 + 0.5, width() - 4, thickness);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient gradient(knob / 2.0, 0, width() - knob / 2.0, 0);
    gradient.setColorAt(0, ColorAt(0));
    gradient.setColorAt(1, ColorAt(255));
    painter.setBrush(gradient);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRoundedRect(bar, 2, 2);
    painter.setRenderHint(QPainter::Antialiasing, false);

    style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
    if (hasFocus() && (option.state & QStyle::State_KeyboardFocusChange) != 0) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

}  // namespace BPrivate
