#include "kits/desktop/Keyboard.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputEvent>
#include <QKeyEvent>
#include <QThread>
#include <utility>

#include "kits/desktop/Keys.h"

namespace BPrivate {

namespace {

// Bits of the native modifier mask, the same in X11 and in the usual xkb maps.
constexpr quint32 kNativeCapsLock = 0x02;
constexpr quint32 kNativeNumLock = 0x10;

/// Which key sets which bit beside that of its kind.
struct Side {
    uint32 kind;
    int32 leftKey;
    uint32 left;
    int32 rightKey;
    uint32 right;
};

}  // namespace

Keyboard::Keyboard() {
    AskWindowSystem();
    QCoreApplication::instance()->installEventFilter(this);
}

Keyboard::~Keyboard() = default;

uint32 Keyboard::Modifiers() const {
    if (!fHeardEvent && QThread::currentThread() == thread())
        return KitModifiers(QGuiApplication::queryKeyboardModifiers());
    return fModifiers;
}

void Keyboard::GetKeyInfo(key_info& info) const {
    info.modifiers = Modifiers();
    for (size_t i = 0; i < fHeld.size(); ++i)
        info.key_states[i] = fHeld[i];
}

bool Keyboard::eventFilter(QObject* receiver, QEvent* event) {
    // An event passes here for its window first, and then for each widget it is offered to.
    if (!receiver->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::KeyPress: HandleKey(*static_cast<QKeyEvent*>(event), true); break;
    case QEvent::KeyRelease: HandleKey(*static_cast<QKeyEvent*>(event), false); break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel: {
        constexpr uint32 kKinds = B_SHIFT_KEY | B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY;
        const uint32 held = KitModifiers(static_cast<QInputEvent*>(event)->modifiers());
        if ((fModifiers & kKinds) != held)
            fModifiers = held | (fModifiers & (B_CAPS_LOCK | B_NUM_LOCK));
        fHeardEvent = true;
        break;
    }
    case QEvent::FocusIn: AskWindowSystem(); break;
    case QEvent::FocusOut: ReleaseAll(); break;
    default: break;
    }
    return false;
}

void Keyboard::HandleKey(const QKeyEvent& event, bool press) {
    fHeardEvent = true;
    // A key that repeats is reported as released and pressed again, and is held all the while.
    if (press)
        fRepeatCount = IsRepeat(event) ? fRepeatCount + 1 : 0;
    const KeyInput input = TranslateKey(event);
    if (!event.isAutoRepeat())
        SetHeld(input.key, press);

    uint32 modifiers = input.modifiers;
    if (event.nativeModifiers() & kNativeCapsLock)
        modifiers |= B_CAPS_LOCK;
    if (event.nativeModifiers() & kNativeNumLock)
        modifiers |= B_NUM_LOCK;
    const bool swapped = KitModifiers(Qt::AltModifier) == B_COMMAND_KEY;
    const int32 controlLeft = swapped ? 0x5c : 0x5d;
    const int32 controlRight = swapped ? 0x60 : 0x5f;
    const int32 commandLeft = swapped ? 0x5d : 0x5c;
    const int32 commandRight = swapped ? 0x5f : 0x60;
    const Side sides[] = {
        {B_SHIFT_KEY, 0x4b, B_LEFT_SHIFT_KEY, 0x56, B_RIGHT_SHIFT_KEY},
        {B_COMMAND_KEY, commandLeft, B_LEFT_COMMAND_KEY, commandRight, B_RIGHT_COMMAND_KEY},
        {B_CONTROL_KEY, controlLeft, B_LEFT_CONTROL_KEY, controlRight, B_RIGHT_CONTROL_KEY},
        {B_OPTION_KEY, 0x66, B_LEFT_OPTION_KEY, 0x67, B_RIGHT_OPTION_KEY},
    };
    for (const Side& side : sides) {
        if ((modifiers & side.kind) == 0)
            continue;
        if (IsHeld(side.leftKey))
            modifiers |= side.left;
        if (IsHeld(side.rightKey))
            modifiers |= side.right;
    }
    fModifiers = modifiers;
}

bool Keyboard::IsRepeat(const QKeyEvent& press) {
    // On X11 a release and a press of the same millisecond count as a repeat. A program that
    // plays a keyboard strokes keys that fast, but no keyboard repeats within a few milliseconds.
    constexpr uint64 kShortest = 5;
    const uint64 before = std::exchange(fPressTime, press.timestamp());
    const bool timed = fPressTime != 0 && before != 0;
    return press.isAutoRepeat() && !(timed && fPressTime - before < kShortest);
}

void Keyboard::SetHeld(int32 key, bool held) {
    const auto index = static_cast<size_t>(key / 8);
    if (key <= 0 || index >= fHeld.size())
        return;
    const auto bit = static_cast<uint8>(1 << (7 - key % 8));
    if (held)
        fHeld[index] |= bit;
    else
        fHeld[index] &= static_cast<uint8>(~bit);
}

bool Keyboard::IsHeld(int32 key) const {
    return (fHeld[static_cast<size_t>(key / 8)] & (1 << (7 - key % 8))) != 0;
}

void Keyboard::ReleaseAll() {
    for (auto& states : fHeld)
        states = 0;
    fModifiers = fModifiers & (B_CAPS_LOCK | B_NUM_LOCK);
}

void Keyboard::AskWindowSystem() {
    fModifiers = KitModifiers(QGuiApplication::queryKeyboardModifiers()) |
        (fModifiers & (B_CAPS_LOCK | B_NUM_LOCK));
}

}  // namespace BPrivate
