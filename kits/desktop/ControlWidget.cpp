#include "kits/desktop/ControlWidget.h"

#include <utility>

namespace BPrivate {

namespace {

struct Maker {
    QWidget* parent;
    ControlReport report;

    using Made = std::unique_ptr<ControlWidget>;
    Made operator()(const ScrollBarState&) { return MakeScrollBar(parent, std::move(report)); }
    Made operator()(const StringViewState&) { return MakeStringView(parent); }
    Made operator()(const BoxState&) { return MakeBox(parent); }
    Made operator()(const ButtonState&) { return MakeButton(parent, std::move(report)); }
    Made operator()(const CheckBoxState&) { return MakeCheckBox(parent, std::move(report)); }
    Made operator()(const RadioButtonState&) { return MakeRadioButton(parent, std::move(report)); }
    Made operator()(const TextControlState&) { return MakeTextControl(parent, std::move(report)); }
    Made operator()(const MenuBarState&) { return MakeMenuBar(parent, std::move(report)); }
    Made operator()(const PopUpMenuState&) { return MakePopUpMenu(parent, std::move(report)); }
    Made operator()(const MenuFieldState&) { return MakeMenuField(parent, std::move(report)); }
    Made operator()(const SliderState&) { return MakeSlider(parent, std::move(report)); }
    Made operator()(const ListViewState&) { return MakeListView(parent, std::move(report)); }
    Made operator()(const TabViewState&) { return MakeTabView(parent, std::move(report)); }
    Made operator()(const ColorControlState&) {
        return MakeColorControl(parent, std::move(report));
    }
    Made operator()(const AlertTextState&) { return MakeAlertText(parent); }
    Made operator()(const FilePanelState&) { return MakeFilePanel(parent, std::move(report)); }
};

}  // namespace

std::unique_ptr<ControlWidget> MakeControlWidget(
    const ControlState& state, QWidget* parent, ControlReport report) {
    auto control = std::visit(Maker{parent, std::move(report)}, state);
    control->SetState(state);
    return control;
}

QString LabelText(const std::string& utf8) {
    return QString::fromStdString(utf8).replace(u'&', QStringLiteral("&&"));
}

}  // namespace BPrivate
