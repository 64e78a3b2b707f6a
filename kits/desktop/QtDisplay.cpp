#include "kits/desktop/QtDisplay.h"

#include <QLoggingCategory>
#include <app/Application.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/Fonts.h"
#include "kits/desktop/LabelReading.h"
#include "kits/desktop/ProgramIcon.h"
#include "kits/desktop/QtWindow.h"
#include "kits/desktop/WindowReading.h"

namespace BPrivate {

namespace {

/// Qt aborts when there is no screen to show anything on. That is no crash but an ordinary
/// mistake, and is said in one line.
void ReportNoScreen(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg)
        return;
    const char* display = std::getenv("DISPLAY");
    std::fprintf(stderr, "%s: there is no screen to open a window on (DISPLAY is %s)\n",
        program_invocation_short_name, display != nullptr ? display : "not set");
    std::_Exit(EXIT_FAILURE);
}

std::unique_ptr<QApplication> MakeApplication() {
    // Qt keeps both; the desktop files the windows under the program's name.
    static int count = 1;
    static char* arguments[] = {program_invocation_name, nullptr};

    // Menus stay in their windows, where the kits put them.
    // Qt counts on standard error how many events it had to take memory for when many come at once.
    // The rules of the environment stand above this one.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.events.reader.debug=false"));
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QtMessageHandler before = qInstallMessageHandler(ReportNoScreen);
    auto application = std::make_unique<QApplication>(count, arguments);
    qInstallMessageHandler(before);
    QApplication::setQuitOnLastWindowClosed(false);
    TellWindowsToScreenReaders();
    TellLabelsToScreenReaders();
    QApplication::setWindowIcon(ProgramIcon(*BApplication::AppResources()));
    return application;
}

}  // namespace

QtDisplay::QtDisplay()
    : fApplication(MakeApplication()), fThread(std::make_shared<MainThread>()),
      fKeyboard(std::make_unique<Keyboard>()), fLook(std::make_unique<DesktopLook>()),
      fLanguage(std::make_unique<LanguageWatch>()), fScreens(std::make_unique<ScreenWatch>()) {}

QtDisplay::~QtDisplay() {
    fThread->Close();
    // The display goes with the process's static objects, when some of Qt's own may have gone. So
    // the application, and the windows that are left, end with the process instead.
    (void)fApplication.release();
}

void QtDisplay::Run() {
    QApplication::exec();
    fLanguage.reset();
}

void QtDisplay::Quit() {
    // Not quit(), which asks the windows first.
    fThread->Post([] { QCoreApplication::exit(0); });
}

std::unique_ptr<DisplayWindow> QtDisplay::CreateWindow(
    const WindowSpec& spec, const BMessenger& target) {
    const rgb_color panel = UiColor(B_PANEL_BACKGROUND_COLOR);
    return std::make_unique<QtWindow>(
        fThread, *fKeyboard, *fScreens, spec, target, QColor(panel.red, panel.green, panel.blue));
}

BRect QtDisplay::MainScreenFrame() {
    return KitRect(fScreens->Table()->Main().frame);
}

uint32 QtDisplay::Modifiers() {
    return fKeyboard->Modifiers();
}

void QtDisplay::GetKeyInfo(key_info& info) {
    fKeyboard->GetKeyInfo(info);
}

rgb_color QtDisplay::UiColor(color_which which) {
    return fLook->Color(which);
}

std::vector<std::string> QtDisplay::FontFamilies() {
    return InstalledFontFamilies();
}

FontMetrics QtDisplay::Metrics(const FontSpec& font) {
    return MetricsOf(font);
}

float QtDisplay::StringWidth(const FontSpec& font, const std::string& utf8) {
    return WidthOf(font, utf8);
}

std::vector<int32> QtDisplay::LineEnds(const FontSpec& font, const std::string& utf8, float width) {
    return LineEndsOf(font, utf8, width);
}

void QtDisplay::DrawText(const PixelBuffer& buffer, BRect clip, BPoint origin, rgb_color color,
    const FontSpec& font, const std::string& utf8) {
    DrawTextInto(buffer, clip, origin, color, font, utf8);
}

BPoint QtDisplay::PreferredSize(const ControlState& state) {
    BPoint size;
    fThread->Call([&] {
        const auto control = MakeControlWidget(state, nullptr, [](BMessage&) {});
        control->Widget().ensurePolished();
        const QSize hint = control->Widget().sizeHint();
        size.Set(static_cast<float>(hint.width() - 1), static_cast<float>(hint.height() - 1));
    });
    return size;
}

std::unique_ptr<Display> CreateDisplay() {
    return std::make_unique<QtDisplay>();
}

}  // namespace BPrivate
