// The controls that are clicked: push button, check box, radio button.

#include <QButtonGroup>
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

/// Those of one choice are a group of Qt's, which the arrow keys go along. All controls of a window
/// have one parent here, so that it is not by itself a group.
class RadioButtonWidget : public ControlWidget {
public:
    RadioButtonWidget(QRadioButton* button, const ControlReport& report)
        : ControlWidget(button), fButton(*button) {
        QObject::connect(
            &fButton, &QRadioButton::clicked, &fButton, [report] { ReportValue(report, true); });
    }
    ~RadioButtonWidget() override { Leave(); }

    void SetState(const ControlState& state) override {
        const auto& button = std::get<RadioButtonState>(state);
        fButton.setText(LabelText(button.label));
        if (fButton.parentWidget() != nullptr)
            Join(QStringLiteral("group %1").arg(button.group));
        // The kits may turn all off, and have two on for a moment.
        SetExclusive(false);
        fButton.setChecked(button.on);
        SetExclusive(true);
    }

private:
    void Join(const QString& name) {
        if (fButton.group() != nullptr && fButton.group()->objectName() == name)
            return;
        Leave();
        QWidget* const window = fButton.parentWidget();
        auto* group = window->findChild<QButtonGroup*>(name, Qt::FindDirectChildrenOnly);
        if (group == nullptr) {
            group = new QButtonGroup(window);
            group->setObjectName(name);
        }
        group->addButton(&fButton);
    }
    void Leave() {
        QButtonGroup* const group = fButton.group();
        if (group == nullptr)
            return;
        group->removeButton(&fButton);
        if (group->buttons().isEmpty())
            delete group;
    }

    void SetExclusive(bool exclusive) {
        if (fButton.group() != nullptr)
            fButton.group()->setExclusive(exclusive);
    }

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
