#pragma once

#include <string>

#include "kits/interface/Display.h"

class BView;

namespace BPrivate {

/// What assistive programs are told of a view. Made for those that the program says something of.
///
/// Of a view with a control this is a part of the control's place. A view that draws itself is
/// handed down by itself, as long as it has a name, is attached and can be seen.
///
/// Threads. Under the lock of the view's window.
class ViewReading {
public:
    /// The view's; made when it is first asked for.
    static ViewReading& Of(BView& view);

    explicit ViewReading(BView& view) : fView(view) {}

    void SetName(std::string name);
    void SetDescription(std::string description);
    const std::string& Name() const { return fName; }
    const std::string& Description() const { return fDescription; }

    /// Hands down what has changed. Does nothing for a view with a control.
    void Update();
    /// Before the view is detached.
    void Forget();

private:
    void Changed();
    ReadableView Described() const;

    BView& fView;
    std::string fName;
    std::string fDescription;
    int32 fId = 0;  // 0 while the screen does not know of it
    ReadableView fLast;
};

}  // namespace BPrivate
