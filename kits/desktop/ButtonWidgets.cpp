// The controls that are clicked: push button, check box, radio button.

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

void ReportValue(const ControlReport& report, bool on) {
    BMessage change;
    change.AddInt32("value", on ? 1 : 0);
    report(change);
}

class ButtonWidget : public ControlWidget {
public:
    ButtonWidget(QPushButton* button, const ControlReport& report)
        : ControlWidget(button), fButton(*button) {
        fButton.setAutoDefault(false);
        QObject::connect(
            &fButton, &QPushButton::clicked, &fButton, [report] { ReportValue(report, true); });
    }

    void SetState(const ControlState& state) override {
        const auto& button = std::get<ButtonState>(state);
        fButton.setText(LabelText(button.label));
        fButton.setDefault(button.isDefault);
        fButton.setFlat(button.flat);
        if (button.pressed != fPressed)
            fButton.setDown(button.pressed);
        fPressed = button.pressed;
    }

private:
    QPushButton& fButton;
    bool fPressed = false;  // by the program; the user's own press is the button's business
};

class CheckBoxWidget : public ControlWidget {
public:
    CheckBoxWidget(QCheckBox* box, const ControlReport& report) : ControlWidget(box), fBox(*box) {
        QObject::connect(
            &fBox, &QCheckBox::clicked, &fBox, [report](bool on) { ReportValue(report, on); });
    }

    void SetState(const ControlState& state) override {
        const auto& box = std::get<CheckBoxState>(state);
        fBox.setText(LabelText(box.label));
        fBox.setChecked(box.on);
    }

private:
    QCheckBox& fBox;
};

class RadioButtonWidget : public ControlWidget {
public:
    RadioButtonWidget(QRadioButton* button, const ControlReport& report)
        : ControlWidget(button), fButton(*button) {
        // All controls of a window have one parent here; which belong together the kits know.
        fButton.setAutoExclusive(false);
        QObject::connect(&fButton, &QRadioButton::clicked, &fButton, [this, report] {
            fButton.setChecked(true);  // not turned off by a second click
            ReportValue(report, true);
        });
    }

    void SetState(const ControlState& state) override {
        const auto& button = std::get<RadioButtonState>(state);
        fButton.setText(LabelText(button.label));
        fButton.setChecked(button.on);
    }

private:
    QRadioButton& fButton;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeButton(QWidget* parent, ControlReport report) {
    return std::make_unique<ButtonWidget>(new QPushButton(parent), report);
}

std::unique_ptr<ControlWidget> MakeCheckBox(QWidget* parent, ControlReport report) {
    return std::make_unique<CheckBoxWidget>(new QCheckBox(parent), report);
}

std::unique_ptr<ControlWidget> MakeRadioButton(QWidget* parent, ControlReport report) {
    return std::make_unique<RadioButtonWidget>(new QRadioButton(parent), report);
}

}  // namespace BPrivate
