#include "kits/desktop/WindowHold.h"

#include <QGuiApplication>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <xcb/xcb.h>

namespace BPrivate {

namespace {

/// Replies belong to who asked.
struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, Freed>;

struct Atoms {
    xcb_atom_t state = XCB_ATOM_NONE;
    std::array<xcb_atom_t, 2> maximized{};
};

/// Null where there is no X11.
xcb_connection_t* Connection() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name) {
    const auto asked =
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.data());
    const ReplyPtr<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, asked, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

const Atoms& TheAtoms(xcb_connection_t* connection) {
    static const Atoms atoms{AtomOf(connection, "_NET_WM_STATE"),
        {AtomOf(connection, "_NET_WM_STATE_MAXIMIZED_HORZ"),
            AtomOf(connection, "_NET_WM_STATE_MAXIMIZED_VERT")}};
    return atoms;
}

/// More states than there are.
constexpr uint32_t kMostStates = 64;

}  // namespace

WindowHold::WindowHold(const QWidget& window, std::function<void()> changed)
    : fWindow(window), fChanged(std::move(changed)) {
    if (Connection() != nullptr)
        qGuiApp->installNativeEventFilter(this);
}

WindowHold::~WindowHold() = default;

bool WindowHold::IsHeld() const {
    return Connection() != nullptr ? IsMaximizedByNote() : fWindow.isMaximized();
}

bool WindowHold::IsMaximizedByNote() const {
    xcb_connection_t* const connection = Connection();
    const WId window = fWindow.internalWinId();
    if (window == 0)
        return false;
    const Atoms& atoms = TheAtoms(connection);
    const auto asked = xcb_get_property(connection, 0, static_cast<xcb_window_t>(window),
        atoms.state, XCB_ATOM_ATOM, 0, kMostStates);
    const ReplyPtr<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, asked, nullptr));
    if (!reply || reply->format != 32)
        return false;
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    const std::span<const xcb_atom_t> states(
        static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())),
        length / sizeof(xcb_atom_t));
    return std::ranges::find_first_of(states, atoms.maximized) != states.end();
}

bool WindowHold::nativeEventFilter(const QByteArray& type, void* event, qintptr*) {
    if (type != "xcb_generic_event_t")
        return false;
    constexpr uint8_t kSentByClient = 0x80;
    const auto* any = static_cast<const xcb_generic_event_t*>(event);
    if ((any->response_type & ~kSentByClient) != XCB_PROPERTY_NOTIFY)
        return false;
    const auto* changed = static_cast<const xcb_property_notify_event_t*>(event);
    if (changed->window == fWindow.internalWinId() && changed->atom == TheAtoms(Connection()).state)
        fChanged();
    return false;
}

}  // namespace BPrivate
