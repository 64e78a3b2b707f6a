#pragma once

#include <QRect>
#include <QWidget>
#include <map>
#include <string>

#include "kits/interface/Display.h"

namespace BPrivate {

/// A view that the kits draw, for assistive programs: a picture with a name and a description.
///
/// Qt tells them of widgets, and that one of them has the keyboard, only where there is one. So
/// there is one for each view, too small to be seen, and has the keyboard in the content's place:
/// the keys it is given go on to the content. Nothing has to be painted anew when the view moves.
///
/// Another name is another picture, and another widget: screen readers say what the keyboard goes
/// to, while of one that stays they may not say that its name has changed.
class ReadableWidget : public QWidget {
public:
    explicit ReadableWidget(QWidget& content);

    void Show(const ReadableView& view);
    const std::string& Name() const { return fName; }
    /// Where the view is on the screen.
    QRect ScreenRect() const;

private:
    std::string fName;
    QRect fFrame;  // in the content's coordinates
};

/// Those of one window. Main thread only.
class ReadableViews {
public:
    explicit ReadableViews(QWidget& content) : fContent(content) {}

    void Set(int32 id, const ReadableView& view);
    void Remove(int32 id);
    /// The one at that point of the screen; null when there is none.
    QWidget* At(QPoint point) const;

private:
    void GiveKeyboardTo(ReadableWidget* widget);

    QWidget& fContent;
    std::map<int32, ReadableWidget*> fWidgets;  // the content's children
};

}  // namespace BPrivate
