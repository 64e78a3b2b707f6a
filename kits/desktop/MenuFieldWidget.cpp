#include <QComboBox>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

class MenuFieldWidget : public ControlWidget {
public:
    explicit MenuFieldWidget(QWidget* parent) : ControlWidget(new QComboBox(parent)) {}
    void SetState(const ControlState&) override {}
};

}  // namespace

std::unique_ptr<ControlWidget> MakeMenuField(QWidget* parent, ControlReport) {
    return std::make_unique<MenuFieldWidget>(parent);
}

}  // namespace BPrivate
