#pragma once

#include <QSlider>

namespace BPrivate {

/// A slider with a number of marks at equal distances, which need not be whole values. Main thread
/// only.
class MarkedSlider : public QSlider {
public:
    explicit MarkedSlider(QWidget* parent);

    /// The number of marks, both ends included, and the sides they are on: above or left, below or
    /// right. Marks closer than every other pixel are left out.
    void SetMarks(int count, bool before, bool after);

    /// Where the middle of the knob is at that part (0 to 1) of the range, from the left or, of a
    /// vertical one, from the bottom.
    double PlaceOf(double part) const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect Knob(const QSize& size) const;
    void DrawMarks(QPainter& painter) const;

    int fMarks = 0;
};

}  // namespace BPrivate
