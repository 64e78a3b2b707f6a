// The controls that are clicked: push button, check box, radio button.

#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

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
        // Not only clicks: assistive programs turn it on and off without one.
        QObject::connect(
            &fBox, &QCheckBox::toggled, &fBox, [report](bool on) { ReportValue(report, on); });
    }

    void SetState(const ControlState& state) override {
        const auto& box = std::get<CheckBoxState>(state);
        const QSignalBlocker blocker(fBox);
        fBox.setText(LabelText(box.label));
        fBox.setChecked(box.on);
    }

private:
    QCheckBox& fBox;
};

/// Knows clicks, by mouse or keys, from other ways to turn it on.
class ClickedRadioButton : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

    bool IsClicked() const { return fClicked; }

protected:
    void nextCheckState() override {
        fClicked = true;
        QRadioButton::nextCheckState();
        fClicked = false;
    }

private:
    bool fClicked = false;
};

/// Those of one choice are a group of Qt's, which the arrow keys go along. All controls of a window
/// have one parent here, so that it is not by itself a group.
class RadioButtonWidget : public ControlWidget {
public:
    RadioButtonWidget(ClickedRadioButton* button, const ControlReport& report)
        : ControlWidget(button), fButton(*button) {
        // Of one that is on already, too.
        QObject::connect(
            &fButton, &QRadioButton::clicked, &fButton, [report] { ReportValue(report, true); });
        // Assistive programs turn it on without a click.
        QObject::connect(&fButton, &QRadioButton::toggled, &fButton, [this, report](bool on) {
            if (on && !fButton.IsClicked())
                ReportValue(report, true);
        });
    }
    ~RadioButtonWidget() override { Leave(); }

    void SetState(const ControlState& state) override {
        const auto& button = std::get<RadioButtonState>(state);
        fButton.setText(LabelText(button.label));
        if (fButton.parentWidget() != nullptr)
            Join(QStringLiteral("group %1").arg(button.group));
        const QSignalBlocker blocker(fButton);
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

    ClickedRadioButton& fButton;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeButton(QWidget* parent, ControlReport report) {
    return std::make_unique<ButtonWidget>(new QPushButton(parent), report);
}

std::unique_ptr<ControlWidget> MakeCheckBox(QWidget* parent, ControlReport report) {
    return std::make_unique<CheckBoxWidget>(new QCheckBox(parent), report);
}

std::unique_ptr<ControlWidget> MakeRadioButton(QWidget* parent, ControlReport report) {
    return std::make_unique<RadioButtonWidget>(new ClickedRadioButton(parent), report);
}

}  // namespace BPrivate
