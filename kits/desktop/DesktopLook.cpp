#include "kits/desktop/DesktopLook.h"

#include <QApplication>
#include <QPalette>
#include <utility>

namespace BPrivate {

namespace {

constexpr std::pair<color_which, QPalette::ColorRole> kRoles[] = {
    {B_PANEL_BACKGROUND_COLOR, QPalette::Window},
    {B_MENU_BACKGROUND_COLOR, QPalette::Window},
    {B_WINDOW_TAB_COLOR, QPalette::Window},
    {B_KEYBOARD_NAVIGATION_COLOR, QPalette::Highlight},
    {B_DESKTOP_COLOR, QPalette::Dark},
    {B_MENU_SELECTED_BACKGROUND_COLOR, QPalette::Highlight},
    {B_MENU_ITEM_TEXT_COLOR, QPalette::WindowText},
    {B_MENU_SELECTED_ITEM_TEXT_COLOR, QPalette::HighlightedText},
    {B_PANEL_TEXT_COLOR, QPalette::WindowText},
    {B_DOCUMENT_BACKGROUND_COLOR, QPalette::Base},
    {B_DOCUMENT_TEXT_COLOR, QPalette::Text},
    {B_CONTROL_BACKGROUND_COLOR, QPalette::Button},
    {B_CONTROL_TEXT_COLOR, QPalette::ButtonText},
};

}  // namespace

DesktopLook::DesktopLook() {
    ReadColors();
    qApp->installEventFilter(this);
}

DesktopLook::~DesktopLook() = default;

rgb_color DesktopLook::Color(color_which which) const {
    const std::lock_guard lock(fLock);
    const auto index = static_cast<size_t>(which);
    return index < fColors.size() ? fColors[index] : rgb_color{};
}

bool DesktopLook::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && receiver == qApp)
        ReadColors();
    return false;
}

void DesktopLook::ReadColors() {
    const QPalette palette = QApplication::palette();
    const std::lock_guard lock(fLock);
    for (const auto& [which, role] : kRoles) {
        const QColor color = palette.color(role);
        fColors[static_cast<size_t>(which)] = {static_cast<uint8>(color.red()),
            static_cast<uint8>(color.green()), static_cast<uint8>(color.blue()), 255};
    }
}

}  // namespace BPrivate
