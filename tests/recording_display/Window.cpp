#include <algorithm>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <kernel/OS.h>

#include "tests/recording_display/RecordingDisplay.h"
#include "tests/recording_display/RecordingWindow.h"

namespace recording {

Window::Window(BPrivate::WindowSpec spec, BMessenger target)
    : fSpec(std::move(spec)), fTarget(target), fTitle(fSpec.title), fFrame(fSpec.frame) {}

BPrivate::WindowSpec Window::Spec() const {
    return fSpec;
}

std::string Window::Title() const {
    const std::lock_guard guard(fLock);
    return fTitle;
}

BRect Window::Frame() const {
    const std::lock_guard guard(fLock);
    return fFrame;
}

bool Window::IsShown() const {
    const std::lock_guard guard(fLock);
    return fShown;
}

bool Window::IsOpen() const {
    const std::lock_guard guard(fLock);
    return fOpen;
}

bool Window::IsMinimized() const {
    const std::lock_guard guard(fLock);
    return fMinimized;
}

int32 Window::CountActivations() const {
    const std::lock_guard guard(fLock);
    return fActivations;
}

Limits Window::SizeLimits() const {
    const std::lock_guard guard(fLock);
    return fLimits;
}

std::vector<std::pair<ControlId, int32>> Window::OpenedMenus() const {
    const std::lock_guard guard(fLock);
    return fOpenedMenus;
}

float Window::_PixelRatio() const {
    const std::lock_guard guard(fLock);
    return fPixelRatio;
}

std::vector<BRect> Window::Presented() const {
    const std::lock_guard guard(fLock);
    return fPresented;
}

Picture Window::Shown() const {
    const std::lock_guard guard(fLock);
    return fPicture;
}

std::vector<Seen> Window::Moments() const {
    const std::lock_guard guard(fLock);
    return fSeen;
}

rgb_color Window::Ground() const {
    const std::lock_guard guard(fLock);
    return fGround;
}

std::vector<Control> Window::Controls() const {
    const std::lock_guard guard(fLock);
    std::vector<Control> controls;
    for (const auto& entry : fControls)
        controls.push_back(entry.second);
    return controls;
}

std::optional<Control> Window::FindControl(const std::string& name) const {
    for (const Control& control : Controls()) {
        if (control.place.view == name || control.place.name == name ||
            TextOf(control.state) == name)
            return control;
    }
    return std::nullopt;
}

std::vector<BPrivate::ReadableView> Window::ReadableViews() const {
    const std::lock_guard guard(fLock);
    std::vector<BPrivate::ReadableView> views;
    for (const auto& entry : fReadableViews)
        views.push_back(entry.second);
    return views;
}

void Window::Send(BMessage& message) {
    if (!message.HasInt64("when"))
        (void)message.AddInt64("when", system_time());
    (void)fTarget.SendMessage(&message);
}

namespace {

BMessage KeyMessage(uint32 what, char rawChar, uint32 modifiers, int32 key, ControlId control) {
    BMessage message(what);
    const char bytes[] = {rawChar, '\0'};
    (void)message.AddInt32("key", key);
    (void)message.AddInt32("modifiers", static_cast<int32>(modifiers));
    (void)message.AddInt32("raw_char", static_cast<uint8>(rawChar));
    (void)message.AddInt8("byte", rawChar);
    (void)message.AddString("bytes", bytes);
    if (control != 0)
        (void)message.AddInt32("control", control);
    return message;
}

BMessage MouseMessage(uint32 what, BPoint where, int32 buttons, uint32 modifiers) {
    BMessage message(what);
    (void)message.AddPoint("be:window_where", where);
    (void)message.AddInt32("buttons", buttons);
    (void)message.AddInt32("modifiers", static_cast<int32>(modifiers));
    return message;
}

}  // namespace

void Window::PressKey(char rawChar, uint32 modifiers, int32 key) {
    KeyDown(rawChar, modifiers, key);
    KeyUp(rawChar, modifiers, key);
}

void Window::KeyDown(char rawChar, uint32 modifiers, int32 key, ControlId control) {
    BMessage message = KeyMessage(B_KEY_DOWN, rawChar, modifiers, key, control);
    Send(message);
}

void Window::KeyRepeated(char rawChar, int32 count) {
    BMessage message = KeyMessage(B_KEY_DOWN, rawChar, 0, 0, 0);
    (void)message.AddInt32("be:key_repeat", count);
    Send(message);
}

void Window::KeyUp(char rawChar, uint32 modifiers, int32 key, ControlId control) {
    BMessage message = KeyMessage(B_KEY_UP, rawChar, modifiers, key, control);
    Send(message);
}

void Window::MouseDown(BPoint where, int32 buttons, int32 clicks, uint32 modifiers) {
    BMessage message = MouseMessage(B_MOUSE_DOWN, where, buttons, modifiers);
    (void)message.AddInt32("clicks", clicks);
    Send(message);
}

void Window::MouseMoved(BPoint where, int32 buttons, uint32 modifiers, bool inside) {
    BMessage message = MouseMessage(B_MOUSE_MOVED, where, buttons, modifiers);
    (void)message.AddBool("be:inside", inside);
    Send(message);
}

void Window::MouseUp(BPoint where, int32 buttons, uint32 modifiers) {
    BMessage message = MouseMessage(B_MOUSE_UP, where, buttons, modifiers);
    Send(message);
}

void Window::Wheel(BPoint where, float deltaX, float deltaY) {
    BMessage message(B_MOUSE_WHEEL_CHANGED);
    (void)message.AddFloat("be:wheel_delta_x", deltaX);
    (void)message.AddFloat("be:wheel_delta_y", deltaY);
    (void)message.AddPoint("be:window_where", where);
    Send(message);
}

void Window::Drop(const std::vector<entry_ref>& refs, BPoint where) {
    BMessage message(B_SIMPLE_DATA);
    for (const entry_ref& ref : refs)
        (void)message.AddRef("refs", &ref);
    (void)message.AddPoint("_drop_point_", where + Frame().LeftTop());
    (void)message.AddPoint("be:window_where", where);
    Send(message);
}

void Window::UserResize(float width, float height) {
    BMessage message(B_WINDOW_RESIZED);
    _Change([&] {
        fFrame.right = fFrame.left + width;
        fFrame.bottom = fFrame.top + height;
        (void)message.AddInt32("serial", fFrameSerial);
    });
    (void)message.AddInt32("width", static_cast<int32>(width));
    (void)message.AddInt32("height", static_cast<int32>(height));
    Send(message);
}

void Window::UserMove(BPoint where) {
    BMessage message(B_WINDOW_MOVED);
    _Change([&] {
        fFrame.OffsetTo(where);
        (void)message.AddInt32("serial", fFrameSerial);
    });
    (void)message.AddPoint("where", where);
    Send(message);
}

void Window::SetActive(bool active) {
    BMessage message(B_WINDOW_ACTIVATED);
    (void)message.AddBool("active", active);
    Send(message);
}

void Window::UserMinimize(bool minimize) {
    _Change([&] { fMinimized = minimize; });
    BMessage message(B_MINIMIZE);
    (void)message.AddBool("minimize", minimize);
    Send(message);
}

void Window::Hold(bool held) {
    BMessage message(BPrivate::kWindowHeld);
    (void)message.AddBool("held", held);
    Send(message);
}

void Window::PressCloseBox() {
    BMessage message(B_QUIT_REQUESTED);
    Send(message);
}

void Window::_SendControl(ControlId id, BMessage& message) {
    int32 serial = 0;
    {
        const std::lock_guard guard(fLock);
        const auto control = fControls.find(id);
        serial = control != fControls.end() ? control->second.serial : 0;
    }
    (void)message.AddInt32("control", id);
    (void)message.AddInt32("serial", serial);
    (void)message.AddInt32("modifiers", static_cast<int32>(TheRecordingDisplay().Modifiers()));
    Send(message);
}

// The control shows what the user did to it, whatever the kits make of it. When they have removed
// it meanwhile, what the user did was on its way already.

void Window::SetScrollBar(ControlId id, float value) {
    _ChangeControl<BPrivate::ScrollBarState>(id, [&](auto& own) { own.value = value; });
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddFloat("value", value);
    _SendControl(id, message);
}

void Window::SetValue(ControlId id, int32 value) {
    _Change([&] {
        const auto change = [&](auto& own) {
            if constexpr (requires { own.on; })
                own.on = value != 0;
        };
        if (const auto control = fControls.find(id); control != fControls.end())
            std::visit(change, control->second.state);
    });
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddInt32("value", value);
    _SendControl(id, message);
}

void Window::SetText(ControlId id, const std::string& text) {
    _ChangeControl<BPrivate::TextControlState>(id, [&](auto& own) { own.text = text; });
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddString("text", text.c_str());
    _SendControl(id, message);
}

void Window::SelectRows(ControlId id, const std::vector<int32>& rows, int32 invoked) {
    _ChangeControl<BPrivate::ListViewState>(id, [&](auto& own) { own.selected = rows; });
    BMessage message(BPrivate::kControlChanged);
    for (const int32 row : rows)
        (void)message.AddInt32("selected", row);
    if (invoked >= 0)
        (void)message.AddInt32("invoked", invoked);
    _SendControl(id, message);
}

void Window::MoveSlider(ControlId id, int32 value, bool final) {
    _ChangeControl<BPrivate::SliderState>(id, [&](auto& own) { own.value = value; });
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddInt32("value", value);
    (void)message.AddBool("final", final);
    _SendControl(id, message);
}

void Window::ChooseTab(ControlId id, int32 tab) {
    _ChangeControl<BPrivate::TabViewState>(id, [&](auto& own) { own.selected = tab; });
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddInt32("value", tab);
    _SendControl(id, message);
}

void Window::SetColor(ControlId id, rgb_color color) {
    _ChangeControl<BPrivate::ColorControlState>(id, [&](auto& own) { own.value = color; });
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddInt32("color", color.red << 16 | color.green << 8 | color.blue);
    _SendControl(id, message);
}

bool Window::ChooseItem(ControlId id, const std::vector<std::string>& labels) {
    const std::vector<BPrivate::MenuItemState>* items = nullptr;
    ControlState state;
    {
        const std::lock_guard guard(fLock);
        const auto control = fControls.find(id);
        if (control == fControls.end())
            return false;
        state = control->second.state;
    }
    if (const auto* bar = std::get_if<BPrivate::MenuBarState>(&state))
        items = &bar->items;
    else if (const auto* popUp = std::get_if<BPrivate::PopUpMenuState>(&state))
        items = &popUp->items;
    else
        items = &std::get<BPrivate::MenuFieldState>(state).items;
    const BPrivate::MenuItemState* chosen = nullptr;
    for (const std::string& label : labels) {
        const auto named = [&](const auto& item) { return item.label == label; };
        const auto found = std::ranges::find_if(*items, named);
        if (found == items->end() || !found->enabled)
            return false;
        chosen = &*found;
        items = &chosen->items;
    }
    if (chosen == nullptr || !chosen->command || chosen->separator)
        return false;
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddInt32("item", chosen->id);
    _SendControl(id, message);
    return true;
}

void Window::ClosePopUp(ControlId id) {
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddBool("closed", true);
    _SendControl(id, message);
}

void Window::ChangeScreen(BRect frame, float ratio) {
    _Change([&] {
        fScreenFrame = frame;
        fPixelRatio = ratio;
    });
    BMessage message(BPrivate::kScreenChanged);
    (void)message.AddRect("frame", frame);
    (void)message.AddFloat("ratio", ratio);
    Send(message);
}

void Window::ChooseFiles(ControlId id, const std::vector<entry_ref>& refs) {
    BMessage message(BPrivate::kControlChanged);
    for (const entry_ref& ref : refs)
        (void)message.AddRef("refs", &ref);
    _SendControl(id, message);
}

void Window::CancelPanel(ControlId id) {
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddBool("cancel", true);
    _SendControl(id, message);
}

void Window::EnterFolder(ControlId id, const std::string& path) {
    _ChangeControl<BPrivate::FilePanelState>(id, [&](auto& own) { own.folder = path; });
    BMessage message(BPrivate::kControlChanged);
    (void)message.AddString("folder", path.c_str());
    _SendControl(id, message);
}

void Window::FocusControl(ControlId id) {
    BMessage message(BPrivate::kControlFocused);
    (void)message.AddInt32("control", id);
    Send(message);
}

}  // namespace recording
