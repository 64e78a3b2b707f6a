#include "kits/desktop/LabelReading.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <algorithm>
#include <utility>

#include "kits/desktop/MenuText.h"

namespace BPrivate {

namespace {

/// Qt tells of a label as a name alone. Those who read what is on the screen, piece by piece, ask
/// for a text.
class LabelReading : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit LabelReading(QLabel& label)
        : QAccessibleWidget(&label, QAccessible::StaticText), fLabel(label) {}

    QString text(QAccessible::Text kind) const override {
        const QString given = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? Shown() : given;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }

    // The other side, that something is labelled by this, Qt finds by itself.
    QList<std::pair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation wanted) const override {
        auto relations = QAccessibleWidget::relations(wanted);
        if (QWidget* buddy = fLabel.buddy();
            buddy != nullptr && (wanted & QAccessible::Labelled) != 0) {
            relations.append({QAccessible::queryAccessibleInterface(buddy), QAccessible::Labelled});
        }
        return relations;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    // The text. Nothing of it can be selected, and there is no cursor.

    int characterCount() const override { return static_cast<int>(Shown().size()); }
    QString text(int start, int end) const override {
        return Shown().mid(start, std::max(0, end - start));
    }
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

    QRect characterRect(int offset) const override {
        const QString shown = Shown();
        const QFontMetrics metrics = fLabel.fontMetrics();
        const int left = metrics.horizontalAdvance(shown.left(offset));
        const int width = metrics.horizontalAdvance(shown.mid(offset, 1));
        const QRect place = rect();
        return {place.left() + StartOf(metrics.horizontalAdvance(shown)) + left, place.top(), width,
            place.height()};
    }

    int offsetAtPoint(const QPoint& point) const override {
        for (int offset = 0; offset < characterCount(); offset++) {
            if (characterRect(offset).contains(point))
                return offset;
        }
        return -1;
    }

private:
    /// Without the marks that stand for a letter to be underlined, of which only labels of
    /// something else have any.
    QString Shown() const {
        return fLabel.buddy() != nullptr ? WithoutMarks(fLabel.text()) : fLabel.text();
    }

    int StartOf(int length) const {
        const int left = fLabel.width() - length;
        if (left <= 0 || (fLabel.alignment() & Qt::AlignLeft) != 0)
            return 0;
        return (fLabel.alignment() & Qt::AlignRight) != 0 ? left : left / 2;
    }

    const QLabel& fLabel;
};

QAccessibleInterface* MakeLabelReading(const QString&, QObject* object) {
    auto* label = qobject_cast<QLabel*>(object);
    const bool isText =
        label != nullptr && label->pixmap(Qt::ReturnByValue).isNull() && label->movie() == nullptr;
    return isText ? new LabelReading(*label) : nullptr;
}

}  // namespace

void TellLabelsToScreenReaders() {
    // Asked for every object; a second time it would only be asked twice.
    [[maybe_unused]] static const bool told = (QAccessible::installFactory(MakeLabelReading), true);
}

}  // namespace BPrivate
