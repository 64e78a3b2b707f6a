#include "kits/desktop/ReadableViews.h"

#include "kits/desktop/FrontImage.h"

namespace BPrivate {

ReadableWidget::ReadableWidget(QWidget& content) : QWidget(&content) {
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(0, 0, 1, 1);
    lower();
}

void ReadableWidget::Show(const ReadableView& view) {
    fFrame = PixelsOf(view.frame);
    // The name last: with it the change is announced, and who hears that may ask for the rest.
    setAccessibleDescription(QString::fromStdString(view.description));
    setAccessibleName(QString::fromStdString(view.name));
    show();
}

QRect ReadableWidget::ScreenRect() const {
    return {parentWidget()->mapToGlobal(fFrame.topLeft()), fFrame.size()};
}

void ReadableViews::Set(int32 id, const ReadableView& view) {
    ReadableWidget*& widget = fWidgets[id];
    if (widget == nullptr)
        widget = new ReadableWidget(fContent);
    widget->Show(view);
    SetFocused(id, view.focused);
}

void ReadableViews::Remove(int32 id) {
    const auto found = fWidgets.find(id);
    if (found == fWidgets.end())
        return;
    SetFocused(id, false);
    delete found->second;
    fWidgets.erase(found);
}

QWidget* ReadableViews::At(QPoint point) const {
    for (const auto& [id, widget] : fWidgets) {
        if (widget->ScreenRect().contains(point))
            return widget;
    }
    return nullptr;
}

void ReadableViews::SetFocused(int32 id, bool focused) {
    if (focused == (fFocused == id))
        return;
    fFocused = focused ? id : 0;
    const bool hasKeyboard = fContent.hasFocus();
    fContent.setFocusProxy(focused ? fWidgets.at(id) : nullptr);
    // A proxy that is taken away would keep it.
    if (hasKeyboard)
        fContent.setFocus();
}

}  // namespace BPrivate
