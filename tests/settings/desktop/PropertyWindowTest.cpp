// The image information as the desktop shows it.

#include "window/PropertyWindow.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <app/AppDefs.h>
#include <app/Messenger.h>
#include <gtest/gtest.h>
#include <memory>
#include <storage/File.h>
#include <string>
#include <translation/TranslatorRoster.h>
#include <vector>

#include "kits/locale/Catalogue.h"
#include "tests/framework/TemporaryFolder.h"
#include "tests/kits/desktop/Screen.h"
#include "tests/viewer/FakeRoster.h"
#include "viewer/Image.h"

namespace {

using desktop_test::PumpUntil;

class PropertyWindow : public testing::Test {
protected:
    PropertyWindow() {
        fake::ReleaseAll();
        fRoster.AddTranslators(nullptr);
    }
    ~PropertyWindow() override {
        BPrivate::set_catalogue(BPrivate::catalogue_of("en"));
        Close();
    }

    void Close() {
        if (fScreen == nullptr)
            return;
        (void)fWindow.SendMessage(B_QUIT_REQUESTED);
        EXPECT_TRUE(PumpUntil([&] { return !IsThere(); }));
        fScreen = nullptr;
    }

    void Open(const std::string& name, const char* language) {
        BPrivate::set_catalogue(BPrivate::catalogue_of(language));
        write_text(fFolder / name, fake::ImageFile("a", 640, 480, {1, 2, 3, 255}));
        BFile file((fFolder / name).c_str(), B_READ_ONLY);
        translator_info info;
        ASSERT_EQ(fRoster.Identify(&file, nullptr, &info, 0, nullptr, 0), B_OK);
        const TImage image(fFolder / name, &fRoster, info);
        auto* window = new TPropertyWindow(BRect(50, 50, 149, 149), &image);
        fWindow = BMessenger(window);
        ASSERT_EQ(window->InitCheck(), B_OK);
        window->Show();
        ASSERT_TRUE(PumpUntil([&] {
            fScreen = FindScreen(name);
            return fScreen != nullptr && Shown<QPushButton>().size() == 1 &&
                Shown<QLabel>().size() == 10;
        }));
    }

    /// The labels, or the button, of the window that are visible.
    template <typename Kind>
    std::vector<Kind*> Shown() const {
        std::vector<Kind*> shown;
        for (Kind* widget : fScreen->findChildren<Kind*>()) {
            if (widget->isVisible())
                shown.push_back(widget);
        }
        return shown;
    }

    /// The label whose view has that name in the program.
    QLabel* Find(const char* name) const {
        for (QLabel* label : Shown<QLabel>()) {
            if (label->objectName() == QString::fromUtf8(name))
                return label;
        }
        ADD_FAILURE() << name << " is not there";
        return nullptr;
    }

    void ExpectNoOverlap() const {
        std::vector<QWidget*> all;
        for (QLabel* label : Shown<QLabel>())
            all.push_back(label);
        all.push_back(Shown<QPushButton>().front());
        const QRect inside = all.front()->parentWidget()->rect().adjusted(8, 8, -8, -8);
        for (size_t i = 0; i < all.size(); ++i) {
            EXPECT_TRUE(inside.contains(all[i]->geometry())) << all[i]->objectName().toStdString();
            for (size_t j = i + 1; j < all.size(); ++j)
                EXPECT_FALSE(all[i]->geometry().intersects(all[j]->geometry()))
                    << all[i]->objectName().toStdString() << ", "
                    << all[j]->objectName().toStdString();
        }
    }

    TTemporaryFolder fFolder;
    QWidget* fScreen = nullptr;

private:
    static QWidget* FindScreen(const std::string& name) {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->windowTitle().contains(QString::fromStdString(name)))
                return widget;
        }
        return nullptr;
    }
    bool IsThere() const { return QApplication::topLevelWidgets().contains(fScreen); }

    BTranslatorRoster fRoster;
    BMessenger fWindow;
};

TEST_F(PropertyWindow, CutsNothingInAnyLanguage) {
    for (const char* language : {"en", "de", "ja"}) {
        SCOPED_TRACE(language);
        Open(std::string("a picture ") + language, language);
        ASSERT_FALSE(HasFatalFailure());
        ExpectNoOverlap();
        for (const QLabel* label : Shown<QLabel>()) {
            // A label that is cut has a tool tip. The folder's path may be long.
            EXPECT_TRUE(label->toolTip().isEmpty() ||
                label->objectName() == QLatin1String("StrViewFolderNameValue"))
                << label->text().toStdString();
            EXPECT_GE(label->height(), label->fontMetrics().height())
                << label->text().toStdString();
        }
        const QPushButton* button = Shown<QPushButton>().front();
        EXPECT_GE(button->width(), button->sizeHint().width());
        EXPECT_GE(button->height(), button->sizeHint().height());
        EXPECT_EQ(button->text(), QLatin1String("OK"));
        EXPECT_TRUE(button->isDefault());
        Close();
    }
}

TEST_F(PropertyWindow, TellsALongNameByItsToolTip) {
    const std::string kName = std::string(200, 'W') + ".png";
    Open(kName, "en");
    ASSERT_FALSE(HasFatalFailure());
    ExpectNoOverlap();
    const QLabel* label = Find("StrViewFileNameValue");
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->toolTip().contains(QString::fromStdString(kName)));
    EXPECT_LT(fScreen->width(), 700);
    EXPECT_TRUE(Find("StrViewSizeValue")->toolTip().isEmpty());
}

}  // namespace
