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
    const QString description = QString::fromStdString(view.description);
    if (accessibleDescription() != description)
        setAccessibleDescription(description);
    if (fName != view.name)
        setAccessibleName(QString::fromStdString(view.name));
    fName = view.name;
    show();
}

QRect ReadableWidget::ScreenRect() const {
    return {parentWidget()->mapToGlobal(fFrame.topLeft()), fFrame.size()};
}

void ReadableViews::Set(int32 id, const ReadableView& view) {
    ReadableWidget*& widget = fWidgets[id];
    ReadableWidget* before = widget;
    if (widget == nullptr || widget->Name() != view.name)
        widget = new ReadableWidget(fContent);
    widget->Show(view);
    if (view.focused)
        GiveKeyboardTo(widget);
    else if (before != nullptr && fContent.focusProxy() == before)
        GiveKeyboardTo(nullptr);
    if (before != widget)
        delete before;
}

void ReadableViews::Remove(int32 id) {
    const auto found = fWidgets.find(id);
    if (found == fWidgets.end())
        return;
    if (fContent.focusProxy() == found->second)
        GiveKeyboardTo(nullptr);
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

void ReadableViews::GiveKeyboardTo(ReadableWidget* widget) {
    if (fContent.focusProxy() == widget)
        return;
    // Of a window that is not active, or minimised, as well: it is to have it when it comes back.
    const QWidget* focus = fContent.window()->focusWidget();
    const bool hasKeyboard = focus == &fContent || focus == fContent.focusProxy();
    fContent.setFocusProxy(widget);
    // A proxy that is taken away would keep it.
    if (hasKeyboard)
        fContent.setFocus();
}

}  // namespace BPrivate
