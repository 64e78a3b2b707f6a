#include "kits/desktop/WindowReading.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

#include "kits/desktop/ReadableViews.h"
#include "kits/desktop/WindowWidget.h"

namespace BPrivate {

namespace {

/// A window, its content, or what is around the parts of a control. The keyboard is never theirs
/// while something in them has it, though Qt says so of all that pass it on.
class SurroundingsReading : public QAccessibleWidget {
public:
    SurroundingsReading(QWidget& widget, QAccessible::Role role)
        : QAccessibleWidget(&widget, role) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focused = QApplication::focusWidget() == widget();
        state.focusable = state.focusable && widget()->focusProxy() == nullptr;
        return state;
    }
};

class ContentReading : public SurroundingsReading {
public:
    explicit ContentReading(ContentWidget& content)
        : SurroundingsReading(content, QAccessible::Client), fContent(content) {}

    // What the user has under the pointer is a control, or else a view below all of them.
    QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* control = SurroundingsReading::childAt(x, y);
        QWidget* view = fContent.Readables().At({x, y});
        return control != nullptr || view == nullptr ? control
                                                     : QAccessible::queryAccessibleInterface(view);
    }

private:
    const ContentWidget& fContent;
};

class PictureReading : public QAccessibleWidget {
public:
    explicit PictureReading(ReadableWidget& view)
        : QAccessibleWidget(&view, QAccessible::Graphic), fView(view) {}

    QRect rect() const override { return fView.ScreenRect(); }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = true;
        return state;
    }

private:
    const ReadableWidget& fView;
};

QAccessibleInterface* MakeWindowReading(const QString&, QObject* object) {
    if (auto* window = dynamic_cast<WindowWidget*>(object)) {
        return new SurroundingsReading(
            *window, window->IsDialog() ? QAccessible::Dialog : QAccessible::Window);
    }
    if (auto* content = dynamic_cast<ContentWidget*>(object))
        return new ContentReading(*content);
    if (auto* view = dynamic_cast<ReadableWidget*>(object))
        return new PictureReading(*view);
    const bool isPlain = object->metaObject() == &QWidget::staticMetaObject;
    return isPlain ? new SurroundingsReading(*static_cast<QWidget*>(object), QAccessible::Client)
                   : nullptr;
}

}  // namespace

void TellWindowsToScreenReaders() {
    // Asked for every object; a second time it would only be asked twice.
    [[maybe_unused]] static const bool told =
        (QAccessible::installFactory(MakeWindowReading), true);
}

}  // namespace BPrivate
