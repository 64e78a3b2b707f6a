#pragma once

#include <QColor>
#include <QSlider>

namespace BPrivate {

/// A slider for one of a colour's three shares, 0 to 255. Its bar shows what the colour would
/// become. Main thread only.
class ShareSlider : public QSlider {
public:
    /// `share`: 0 for red, 1 for green, 2 for blue.
    ShareSlider(int share, QWidget* parent);

    /// The colour whose share is chosen; the slider's value is left alone.
    void SetColor(QColor color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor ColorAt(int value) const;

    const int fShare;
    QColor fColor;
};

}  // namespace BPrivate
