#include <QLabel>
#include <QResizeEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/MenuFieldBox.h"

namespace BPrivate {

namespace {

constexpr int kGap = 4;

/// A label and, from the divider on, a box that opens a menu.
class MenuFieldView : public QWidget {
public:
    explicit MenuFieldView(QWidget* parent) : QWidget(parent), fLabel(this), fBox(this) {
        fLabel.setTextFormat(Qt::PlainText);
        fLabel.setBuddy(&fBox);
        setFocusProxy(&fBox);
    }

    MenuFieldBox& Box() { return fBox; }

    void Set(const MenuFieldState& state) {
        fLabel.setText(LabelText(state.label));
        fDivider = static_cast<int>(std::lround(std::clamp(state.divider, 0.0F, 32767.0F)));
        fFixedSize = state.fixedSize;
        fBox.SetMenu(state);
        Arrange();
    }

    QSize sizeHint() const override {
        const int label = fLabel.text().isEmpty() ? 0 : fLabel.sizeHint().width() + kGap;
        const QSize box = fBox.sizeHint();
        return {std::max(label, fDivider) + box.width(),
            std::max(box.height(), fLabel.sizeHint().height())};
    }

protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }

private:
    void Arrange() {
        const int divider = std::min(fDivider, width());
        const int room = width() - divider;
        const int box = fFixedSize ? room : std::min(room, fBox.sizeHint().width());
        fLabel.setGeometry(0, 0, std::max(0, divider - kGap), height());
        fBox.setGeometry(divider, 0, box, height());
    }

    QLabel fLabel;
    MenuFieldBox fBox;
    int fDivider = 0;
    bool fFixedSize = false;
};

class MenuFieldWidget : public ControlWidget {
public:
    MenuFieldWidget(MenuFieldView* view, ControlReport report)
        : ControlWidget(view), fView(*view), fReport(std::move(report)) {
        QObject::connect(&fView.Box(), &QComboBox::activated, &fView, [this](int row) {
            const int32 item = fView.Box().ItemAt(row);
            const int32 choice = fView.Box().Chosen(row);
            if (item == 0)
                return;
            BMessage change;
            change.AddInt32("item", item);
            change.AddInt32("choice", choice);
            fReport(change);
        });
    }

    QWidget& FocusWidget() override { return fView.Box(); }

    void SetState(const ControlState& state) override {
        const auto& field = std::get<MenuFieldState>(state);
        fLabel = QString::fromStdString(field.label).trimmed();
        fView.Set(field);
        ShowName();
    }

    void SetAccessibleName(const QString& name) override {
        fName = name;
        ShowName();
    }

private:
    void ShowName() { fView.Box().setAccessibleName(fLabel.isEmpty() ? fName : fLabel); }

    MenuFieldView& fView;
    const ControlReport fReport;
    QString fLabel;
    QString fName;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeMenuField(QWidget* parent, ControlReport report) {
    return std::make_unique<MenuFieldWidget>(new MenuFieldView(parent), std::move(report));
}

}  // namespace BPrivate
