#include <QMenuBar>

#include "kits/desktop/ControlWidget.h"

namespace BPrivate {

namespace {

class MenuBarWidget : public ControlWidget {
public:
    explicit MenuBarWidget(QWidget* parent) : ControlWidget(new QMenuBar(parent)) {}
    void SetState(const ControlState&) override {}
};

}  // namespace

std::unique_ptr<ControlWidget> MakeMenuBar(QWidget* parent, ControlReport) {
    return std::make_unique<MenuBarWidget>(parent);
}

}  // namespace BPrivate
