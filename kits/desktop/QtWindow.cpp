#include "kits/desktop/QtWindow.h"

#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "kits/desktop/ScreenWatch.h"
#include "kits/desktop/WindowWidget.h"

namespace BPrivate {

namespace {

/// Kit units are pixels less one.
int Pixels(float units) {
    if (std::isnan(units))
        return 1;
    constexpr float kLargest = QWIDGETSIZE_MAX - 1;
    return static_cast<int>(std::ceil(std::clamp(units, 0.0F, kLargest))) + 1;
}

}  // namespace

QtWindow::QtWindow(std::shared_ptr<MainThread> thread, const Keyboard& keyboard,
    ScreenWatch& screens, const WindowSpec& spec, const BMessenger& target, QColor empty)
    : fThread(std::move(thread)), fImage(std::make_shared<FrontImage>(std::move(empty))),
      fCarrier(std::make_shared<Carrier>(fImage)), fScreens(screens.Table()),
      fPlace(std::make_shared<SharedPlace>(fScreens->Holding(PixelsOf(spec.frame)))),
      fFrame(spec.frame) {
    fThread->Post(
        [carrier = fCarrier, image = fImage, place = fPlace, &keyboard, &screens, spec, target] {
            carrier->widget = new WindowWidget(spec, target, image, keyboard, screens, place);
        });
}

QtWindow::~QtWindow() {
    Do([](WindowWidget& widget) {
        widget.hide();
        widget.deleteLater();
    });
}

void QtWindow::Carrier::Carry() {
    QRect changed;
    std::vector<WindowChanges::Change> more = changes.Take(changed);
    taken.insert(
        taken.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    // One that serves events meanwhile leaves the rest to who carries within.
    while (!taken.empty()) {
        const WindowChanges::Change change = std::move(taken.front());
        taken.pop_front();
        change(*widget);
    }
    // Qt paints once, when it has served this.
    widget->Content().update(changed);
}

void QtWindow::CarryIf(bool isToBeTold) {
    if (isToBeTold)
        fThread->Post([carrier = fCarrier] { carrier->Carry(); });
}

void QtWindow::Change(WindowChanges::Change change) {
    CarryIf(fCarrier->changes.Add(std::move(change)));
}

void QtWindow::Do(WindowChanges::Change change) {
    Change(std::move(change));
    Release();
}

void QtWindow::Hold() {
    fCarrier->changes.Hold();
}

void QtWindow::Release() {
    CarryIf(fCarrier->changes.Release());
}

void QtWindow::SetTitle(const std::string& title) {
    Change([title](WindowWidget& widget) { widget.setWindowTitle(QString::fromStdString(title)); });
}

void QtWindow::SetFrame(BRect frame, int32 serial) {
    fFrame = frame;
    Change([=](WindowWidget& widget) { widget.SetContentFrame(frame, serial); });
}

void QtWindow::SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight) {
    const QSize smallest(Pixels(minWidth), Pixels(minHeight));
    const QSize largest(Pixels(maxWidth), Pixels(maxHeight));
    Change([=](WindowWidget& widget) { widget.SetSizeLimits(smallest, largest); });
}

void QtWindow::Show() {
    // The main thread knows better from then on where the window is.
    if (!std::exchange(fWasShown, true))
        fPlace->Set(fScreens->Holding(PixelsOf(fFrame)));
    Do([](WindowWidget& widget) { widget.ShowOnScreen(); });
}

void QtWindow::Hide() {
    Do([](WindowWidget& widget) { widget.hide(); });
}

void QtWindow::Activate() {
    Do([](WindowWidget& widget) { widget.BringToFront(); });
}

void QtWindow::ActivateWith(const std::string& token) {
    Do([token](WindowWidget& widget) {
        // On Wayland Qt looks for it there when it asks for the focus.
        if (!token.empty() && QGuiApplication::platformName() == QLatin1String("wayland"))
            qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
        widget.BringToFront();
    });
}

void QtWindow::Minimize(bool minimize) {
    Do([=](WindowWidget& widget) { widget.Minimize(minimize); });
}

BRect QtWindow::ScreenFrame() {
    return KitRect(Place().frame);
}

float QtWindow::PixelRatio() {
    return Place().ratio;
}

ScreenPlace QtWindow::Place() const {
    return fWasShown ? fPlace->Get() : fScreens->Holding(PixelsOf(fFrame));
}

void QtWindow::SetControl(ControlId id, const ControlState& state, int32 serial) {
    Change([=](WindowWidget& widget) { widget.Content().Controls().Set(id, state, serial); });
}

void QtWindow::PlaceControl(ControlId id, const ControlPlace& place) {
    Change([=](WindowWidget& widget) { widget.Content().Controls().Place(id, place); });
}

void QtWindow::RemoveControl(ControlId id) {
    Change([=](WindowWidget& widget) { widget.Content().Controls().Remove(id); });
}

void QtWindow::OpenMenu(ControlId bar, int32 item) {
    Do([=](WindowWidget& widget) { widget.Content().Controls().OpenMenu(bar, item); });
}

void QtWindow::SetReadableView(int32 id, const ReadableView& view) {
    Change([=](WindowWidget& widget) { widget.Content().Readables().Set(id, view); });
}

void QtWindow::RemoveReadableView(int32 id) {
    Change([=](WindowWidget& widget) { widget.Content().Readables().Remove(id); });
}

void QtWindow::Present(const PixelBuffer& backBuffer, BRect area) {
    CarryIf(fCarrier->changes.Present(backBuffer, PixelsOf(area)));
}

void QtWindow::SetGround(rgb_color color) {
    const QColor ground(color.red, color.green, color.blue);
    Change([ground](WindowWidget& widget) { widget.Content().SetGround(ground); });
}

}  // namespace BPrivate
