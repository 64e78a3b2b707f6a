#include <QLabel>
#include <QLineEdit>
#include <QResizeEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

constexpr int kGap = 4;

/// A label and, from the divider on, a field.
class LabelledField : public QWidget {
public:
    explicit LabelledField(QWidget* parent) : QWidget(parent), fLabel(this), fField(this) {
        fLabel.setBuddy(&fField);  // for screen readers
    }

    QLabel& Label() { return fLabel; }
    QLineEdit& Field() { return fField; }

    void SetDivider(float divider) {
        fDivider = static_cast<int>(std::lround(std::clamp(divider, 0.0F, 32767.0F)));
        Arrange();
    }

    QSize sizeHint() const override {
        const QSize field = fField.minimumSizeHint().expandedTo(QSize(60, 0));
        const int label = fLabel.text().isEmpty() ? 0 : fLabel.sizeHint().width() + kGap;
        return QSize(std::max(label, fDivider) + field.width(),
            std::max(fField.sizeHint().height(), fLabel.sizeHint().height()));
    }

protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }

private:
    void Arrange() {
        const int divider = std::min(fDivider, width());
        fLabel.setGeometry(0, 0, std::max(0, divider - kGap), height());
        fField.setGeometry(divider, 0, width() - divider, height());
    }

    QLabel fLabel;
    QLineEdit fField;
    int fDivider = 0;
};

class TextControlWidget : public ControlWidget {
public:
    TextControlWidget(LabelledField* field, ControlReport report)
        : ControlWidget(field), fField(*field), fReport(std::move(report)) {
        fField.setFocusProxy(&fField.Field());
        fField.Label().setTextFormat(Qt::PlainText);
        // Not only what is typed: assistive programs put in a text as a whole.
        QObject::connect(
            &fField.Field(), &QLineEdit::textChanged, &fField, [this](const QString& text) {
                BMessage change;
                change.AddString("text", text.toStdString().c_str());
                fReport(change);
            });
    }

    QWidget& FocusWidget() override { return fField.Field(); }

    void SetState(const ControlState& state) override {
        const auto& control = std::get<TextControlState>(state);
        fField.Label().setText(LabelText(control.label));
        fField.SetDivider(control.divider);
        const QString text = QString::fromStdString(control.text);
        if (fField.Field().text() == text)
            return;
        // A text longer than the field shows its start, or stays where it is being edited.
        const QSignalBlocker blocker(fField.Field());
        const int cursor = fField.Field().cursorPosition();
        fField.Field().setText(text);
        fField.Field().setCursorPosition(cursor);
    }

    void SetAccessibleName(const QString& name) override { fField.Field().setAccessibleName(name); }

private:
    LabelledField& fField;
    ControlReport fReport;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeTextControl(QWidget* parent, ControlReport report) {
    return std::make_unique<TextControlWidget>(new LabelledField(parent), std::move(report));
}

}  // namespace BPrivate
