// The slider, the colour control and the box as a sample of a colour.

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QStyleOptionSlider>
#include <QTest>
#include <QTranslator>
#include <app/AppDefs.h>
#include <gtest/gtest.h>
#include <map>
#include <string_view>

#include "kits/desktop/MarkedSlider.h"
#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

class Sliders : public testing::Test {
protected:
    void SetUp() override { fScreen.Show(); }
    void Set(const ControlState& state, int32 serial = 1) {
        fScreen.Window().SetControl(1, state, serial);
        Pump();
    }
    void Place(const char* name, bool focused = false, BRect frame = BRect(10, 10, 289, 99)) {
        ControlPlace place;
        place.name = name;
        place.frame = frame;
        place.navigable = true;
        place.focused = focused;
        fScreen.Window().PlaceControl(1, place);
        Pump();
    }
    MarkedSlider& Slider() { return *fScreen.Find<MarkedSlider>("Opacity"); }
    std::vector<BMessage> Changes() { return fScreen.Messages().All(kControlChanged); }

    Screen fScreen;
};

SliderState Opacity() {
    SliderState state;
    state.label = "Opacity";
    state.minLabel = "0";
    state.maxLabel = "255";
    state.max = 255;
    state.value = 100;
    state.hashMarks = 17;
    state.hashesBelow = true;
    return state;
}

}  // namespace

TEST_F(Sliders, ShowTheirState) {
    Set(Opacity());
    Place("Opacity");
    EXPECT_EQ(Slider().value(), 100);
    EXPECT_EQ(Slider().maximum(), 255);
    EXPECT_EQ(Slider().singleStep(), 1);
    EXPECT_EQ(Slider().tickPosition(), QSlider::TicksBelow);
    std::map<std::string, QRect> labels;
    for (const QLabel* label : Slider().parentWidget()->findChildren<QLabel*>())
        labels[label->text().toStdString()] = label->geometry();
    EXPECT_LE(labels["Opacity"].bottom(), Slider().geometry().top());
    EXPECT_GE(labels["0"].top(), Slider().geometry().bottom());
    EXPECT_EQ(labels["0"].left(), 0);
    EXPECT_EQ(labels["255"].right(), 279);
    SliderState other = Opacity();
    other.value = 7;
    other.direction = B_VERTICAL;
    other.hashesAbove = true;
    Set(other, 2);
    EXPECT_EQ(Slider().value(), 7);
    EXPECT_EQ(Slider().orientation(), Qt::Vertical);
    EXPECT_EQ(Slider().tickPosition(), QSlider::TicksBothSides);
    EXPECT_TRUE(Changes().empty());
}

TEST_F(Sliders, KeysAreFinal) {
    Set(Opacity());
    Place("Opacity", true);
    PressKey(fScreen.Widget(), {Qt::Key_Right});
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_EQ(change.GetInt32("value", -1), 101);
    EXPECT_TRUE(change.GetBool("final", false));
    PressKey(fScreen.Widget(), {Qt::Key_End});
    EXPECT_EQ(fScreen.Expect(kControlChanged, 2).GetInt32("value", -1), 255);
}

TEST_F(Sliders, ADragIsFinalAtItsEnd) {
    SliderState state = Opacity();
    state.value = 0;
    Set(state);
    Place("Opacity");
    const int y = Slider().height() / 2;
    const auto at = [&](double part) {
        return QPoint(static_cast<int>(Slider().PlaceOf(part)), y);
    };
    QTest::mousePress(&Slider(), Qt::LeftButton, {}, at(0));
    EXPECT_TRUE(Slider().isSliderDown());
    QTest::mouseMove(&Slider(), at(0.5));
    QMouseEvent move(QEvent::MouseMove, at(0.5), Slider().mapToGlobal(at(0.5)), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Slider(), &move);
    const BMessage drag = fScreen.Expect(kControlChanged);
    EXPECT_FALSE(drag.GetBool("final", true));
    EXPECT_NEAR(drag.GetInt32("value", -1), 128, 3);
    QTest::mouseRelease(&Slider(), Qt::LeftButton, {}, at(0.5));
    PumpUntil([&] { return Changes().back().GetBool("final", false); });
    EXPECT_EQ(Changes().back().GetInt32("value", -1), Slider().value());
}

TEST_F(Sliders, MarksAreAtTheirTruePlaces) {
    Set(Opacity());
    Place("Opacity");
    const double step = (Slider().PlaceOf(1) - Slider().PlaceOf(0)) / 16;
    SliderState none = Opacity();
    none.hashMarks = 0;
    const QImage picture = Slider().grab().toImage();
    const double ratio = picture.devicePixelRatio();
    // Whether there is a mark below the bar, at that part of its length.
    const auto isMarked = [&](double part) {
        const auto x = static_cast<int>(static_cast<int>(Slider().PlaceOf(part)) * ratio);
        const int last = picture.height() - 1;
        const QColor ground = picture.pixelColor(x + static_cast<int>(step * ratio / 2), last);
        for (int y = last - static_cast<int>(5 * ratio); y <= last; y++) {
            if (picture.pixelColor(x, y) != ground || picture.pixelColor(x + 1, y) != ground)
                return true;
        }
        return false;
    };
    for (int i = 0; i < 16; i++) {
        EXPECT_TRUE(isMarked(i / 16.0)) << i;
        EXPECT_FALSE(isMarked((i + 0.5) / 16)) << i;
    }
    // Marks without end are none.
    none.hashMarks = 1000000000;
    Set(none, 2);
    Slider().grab();
}

TEST_F(Sliders, HaveRoomForTheirKnob) {
    for (const bool marked : {false, true}) {
        SliderState state = Opacity();
        state.hashesBelow = marked;
        Set(state);
        const BPoint wanted = TheDisplay().PreferredSize(state);
        Place("Opacity", false, BRect(10, 10, 209, 10 + wanted.y));
        QStyleOptionSlider option;
        option.initFrom(&Slider());
        option.tickPosition = Slider().tickPosition();
        const QRect knob = Slider().style()->subControlRect(
            QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &Slider());
        EXPECT_GE(knob.top(), 0);
        EXPECT_LT(knob.bottom(), Slider().height());
    }
}

TEST_F(Sliders, ExtremeRangesWork) {
    SliderState state;
    state.label = "Opacity";
    state.min = std::numeric_limits<int32>::min();
    state.max = std::numeric_limits<int32>::max();
    state.value = state.max;
    Set(state);
    Place("Opacity", true);
    EXPECT_EQ(Slider().value(), state.max);
    PressKey(fScreen.Widget(), {Qt::Key_PageUp});
    PressKey(fScreen.Widget(), {Qt::Key_PageDown});
    EXPECT_LT(fScreen.Expect(kControlChanged).GetInt32("value", 0), state.max);
}

TEST_F(Sliders, KeepTheirTextsWhereThereIsLittleHeight) {
    Set(Opacity());
    const BPoint wanted = TheDisplay().PreferredSize(Opacity());
    Place("Opacity", false, BRect(10, 10, 289, 10 + wanted.y - 6));
    QWidget& view = *Slider().parentWidget();
    for (const QLabel* label : view.findChildren<QLabel*>()) {
        EXPECT_EQ(label->height(), label->sizeHint().height());
        EXPECT_LE(label->geometry().bottom(), view.height());
    }
}

TEST_F(Sliders, AreSlidersToAssistiveTechnology) {
    Set(Opacity());
    Place("Opacity");
    QAccessibleInterface* slider = QAccessible::queryAccessibleInterface(&Slider());
    EXPECT_EQ(slider->role(), QAccessible::Slider);
    EXPECT_EQ(slider->text(QAccessible::Name).toStdString(), "Opacity");
    EXPECT_EQ(slider->valueInterface()->currentValue().toInt(), 100);
    EXPECT_EQ(slider->valueInterface()->maximumValue().toInt(), 255);
}

TEST_F(Sliders, AColorControlHasAFieldAndASliderForEachShare) {
    Set(ColorControlState{{200, 100, 50, 255}});
    Place("Color");
    EXPECT_EQ(fScreen.Find<QSlider>("Red")->value(), 200);
    EXPECT_EQ(fScreen.Find<QSpinBox>("Green")->value(), 100);
    EXPECT_EQ(fScreen.Find<QSpinBox>("Blue")->value(), 50);
    EXPECT_TRUE(Changes().empty());
    fScreen.Find<QSpinBox>("Green")->setFocus();
    fScreen.Find<QSpinBox>("Green")->selectAll();
    PressKey(fScreen.Widget(), {Qt::Key_9, "9"});
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_EQ(change.GetInt32("color", 0), 0xc80932);
    EXPECT_EQ(fScreen.Find<QSlider>("Green")->value(), 9);
    fScreen.Find<QSlider>("Blue")->setValue(255);
    EXPECT_EQ(fScreen.Expect(kControlChanged, 2).GetInt32("color", 0), 0xc809ff);
    Set(ColorControlState{{1, 2, 3, 255}}, 2);
    EXPECT_EQ(fScreen.Find<QSpinBox>("Red")->value(), 1);
    EXPECT_EQ(Changes().size(), 2U);
}

TEST_F(Sliders, TabGoesThroughAColorControl) {
    Set(ColorControlState{{200, 100, 50, 255}});
    Place("Color", true);
    EXPECT_TRUE(fScreen.Find<QSlider>("Red")->hasFocus());
    PressKey(fScreen.Widget(), {Qt::Key_Tab, "\t"});
    EXPECT_TRUE(fScreen.Find<QSpinBox>("Red")->hasFocus());
    PressKey(fScreen.Widget(), {Qt::Key_Tab, "\t"});
    EXPECT_TRUE(fScreen.Find<QSlider>("Green")->hasFocus());
    PressKey(fScreen.Widget(), {Qt::Key_Backtab, "\t", Qt::ShiftModifier});
    EXPECT_TRUE(fScreen.Find<QSpinBox>("Red")->hasFocus());
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
    fScreen.Find<QSpinBox>("Blue")->setFocus();
    PressKey(fScreen.Widget(), {Qt::Key_Tab, "\t"});
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("raw_char", 0), B_TAB);
    fScreen.Find<QSlider>("Red")->setFocus();
    PressKey(fScreen.Widget(), {Qt::Key_Backtab, "\t", Qt::ShiftModifier});
    fScreen.Expect(B_KEY_DOWN, 2);
}

TEST_F(Sliders, AColorControlSpeaksTheDesktopsLanguage) {
    class Words : public QTranslator {
    public:
        QString translate(
            const char* context, const char* source, const char*, int) const override {
            if (std::string_view(context) != "QColorDialog")
                return {};
            if (std::string_view(source) == "&Red:")
                return QStringLiteral("&Rot:");
            return std::string_view(source) == "&Green:" ? QStringLiteral("緑(&G)：") : QString();
        }
        bool isEmpty() const override { return false; }
    };
    Set(ColorControlState{});
    Place("Color");
    EXPECT_NE(fScreen.Find<QSpinBox>("Red"), nullptr);
    Words words;
    QCoreApplication::installTranslator(&words);
    EXPECT_TRUE(PumpUntil([&] { return fScreen.Find<QSpinBox>("Rot") != nullptr; }));
    EXPECT_NE(fScreen.Find<QSlider>("緑"), nullptr);
    EXPECT_NE(fScreen.Find<QSlider>("Blue"), nullptr);
    QCoreApplication::removeTranslator(&words);
    EXPECT_TRUE(PumpUntil([&] { return fScreen.Find<QSpinBox>("Red") != nullptr; }));
}

TEST_F(Sliders, AColorControlIsCompact) {
    const BPoint size = TheDisplay().PreferredSize(ColorControlState{});
    EXPECT_GE(size.x, 200);
    EXPECT_LE(size.x, 340);
    EXPECT_LE(size.y, 110);
}

TEST_F(Sliders, ABoxIsFilledInsideOfItsBorder) {
    BoxState box;
    box.fill = rgb_color{255, 0, 0, 255};
    Set(box);
    Place("Sample", false, BRect(10, 10, 59, 59));
    const auto at = [&](int x, int y) {
        const QImage picture = fScreen.Widget().grab().toImage();
        const double ratio = picture.devicePixelRatio();
        return picture.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
    };
    EXPECT_EQ(at(35, 35), QColor(255, 0, 0));
    EXPECT_EQ(at(13, 13), QColor(255, 0, 0));
    EXPECT_NE(at(10, 35), QColor(255, 0, 0));
    box.border = B_NO_BORDER;
    Set(box, 2);
    EXPECT_EQ(at(10, 10), QColor(255, 0, 0));
    EXPECT_EQ(at(59, 59), QColor(255, 0, 0));
    box.fill = rgb_color{255, 0, 0, 0};
    Set(box, 3);
    EXPECT_EQ(at(12, 12), QColor(Qt::lightGray));
    EXPECT_EQ(at(18, 12), QColor(Qt::white));
    box.fill = std::nullopt;
    Set(box, 4);
    EXPECT_NE(at(35, 35), QColor(255, 0, 0));
}
