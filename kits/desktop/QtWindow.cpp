#include "kits/desktop/QtWindow.h"

#include <QGuiApplication>
#include <algorithm>
#include <cmath>
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
      fSlot(std::make_shared<Slot>()), fScreens(screens.Table()),
      fPlace(std::make_shared<SharedPlace>(fScreens->Holding(PixelsOf(spec.frame)))),
      fFrame(spec.frame) {
    fThread->Post(
        [slot = fSlot, image = fImage, place = fPlace, &keyboard, &screens, spec, target] {
            slot->widget = new WindowWidget(spec, target, image, keyboard, screens, place);
        });
}

QtWindow::~QtWindow() {
    Post([](WindowWidget& widget) {
        widget.hide();
        widget.deleteLater();
    });
}

void QtWindow::Post(std::function<void(WindowWidget&)> work) {
    fThread->Post([slot = fSlot, work = std::move(work)] { work(*slot->widget); });
}

void QtWindow::SetTitle(const std::string& title) {
    Post([title](WindowWidget& widget) { widget.setWindowTitle(QString::fromStdString(title)); });
}

void QtWindow::SetFrame(BRect frame, int32 serial) {
    fFrame = frame;
    Post([=](WindowWidget& widget) { widget.SetContentFrame(frame, serial); });
}

void QtWindow::SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight) {
    const QSize smallest(Pixels(minWidth), Pixels(minHeight));
    const QSize largest(Pixels(maxWidth), Pixels(maxHeight));
    Post([=](WindowWidget& widget) { widget.SetSizeLimits(smallest, largest); });
}

void QtWindow::Show() {
    // The main thread knows better from then on where the window is.
    if (!std::exchange(fWasShown, true))
        fPlace->Set(fScreens->Holding(PixelsOf(fFrame)));
    Post([](WindowWidget& widget) { widget.ShowOnScreen(); });
}

void QtWindow::Hide() {
    Post([](WindowWidget& widget) { widget.hide(); });
}

void QtWindow::Activate() {
    Post([](WindowWidget& widget) { widget.BringToFront(); });
}

void QtWindow::ActivateWith(const std::string& token) {
    Post([token](WindowWidget& widget) {
        // On Wayland Qt looks for it there when it asks for the focus.
        if (!token.empty() && QGuiApplication::platformName() == QLatin1String("wayland"))
            qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
        widget.BringToFront();
    });
}

void QtWindow::Minimize(bool minimize) {
    Post([=](WindowWidget& widget) { widget.Minimize(minimize); });
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
    Post([=](WindowWidget& widget) { widget.Content().Controls().Set(id, state, serial); });
}

void QtWindow::PlaceControl(ControlId id, const ControlPlace& place) {
    Post([=](WindowWidget& widget) { widget.Content().Controls().Place(id, place); });
}

void QtWindow::RemoveControl(ControlId id) {
    Post([=](WindowWidget& widget) { widget.Content().Controls().Remove(id); });
}

void QtWindow::OpenMenu(ControlId bar, int32 item) {
    Post([=](WindowWidget& widget) { widget.Content().Controls().OpenMenu(bar, item); });
}

void QtWindow::SetReadableView(int32 id, const ReadableView& view) {
    Post([=](WindowWidget& widget) { widget.Content().Readables().Set(id, view); });
}

void QtWindow::RemoveReadableView(int32 id) {
    Post([=](WindowWidget& widget) { widget.Content().Readables().Remove(id); });
}

void QtWindow::Present(const PixelBuffer& backBuffer, BRect area) {
    if (!fImage->Present(backBuffer, PixelsOf(area)))
        return;
    Post([image = fImage](WindowWidget& widget) { widget.Content().update(image->TakeChanged()); });
}

}  // namespace BPrivate
