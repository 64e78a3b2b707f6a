#include "kits/locale/LanguageChange.h"

#include <app/Message.h>
#include <gtest/gtest.h>
#include <interface/Window.h>
#include <locale/Locale.h>

#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

#include "kits/locale/Catalogue.h"
#include "tests/Eventually.h"
#include "tests/recording_display/RecordingDisplay.h"

namespace {

using BPrivate::change_language;

class ReadingWindow : public BWindow {
public:
    ReadingWindow(const char* title, std::vector<std::string>* read, std::mutex* lock)
        : BWindow(BRect(0, 0, 99, 99), title, B_TITLED_WINDOW, 0), fRead(read), fLock(lock) {}

    void MessageReceived(BMessage* message) override {
        if (message->what != '_BLC')
            return BWindow::MessageReceived(message);
        const std::lock_guard guard(*fLock);
        fRead->push_back(std::string(Title()) + ": " + be_locale->GetString("Quit"));
    }

private:
    std::vector<std::string>* fRead;
    std::mutex* fLock;
};

class LanguageChange : public testing::Test {
protected:
    ~LanguageChange() override {
        for (BWindow* window : fWindows) {
            if (window->Lock())
                window->Quit();
        }
        BPrivate::set_catalogue(BPrivate::catalogue_of("en"));
    }

    BWindow* Show(const char* title) {
        fWindows.push_back(new ReadingWindow(title, &fRead, &fLock));
        fWindows.back()->Show();
        return fWindows.back();
    }
    std::vector<std::string> Read() {
        const std::lock_guard guard(fLock);
        auto read = fRead;
        std::sort(read.begin(), read.end());
        return read;
    }

    std::mutex fLock;
    std::vector<std::string> fRead;
    std::vector<BWindow*> fWindows;
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(LanguageChange, ReachesEveryWindowWithTheNewTexts) {
    Show("A");
    Show("B");
    change_language("de");
    EXPECT_TRUE(eventually([&] { return Read() == Texts{"A: Beenden", "B: Beenden"}; }));
    Show("C");
    change_language("en");
    EXPECT_TRUE(eventually([&] {
        return Read() == Texts{"A: Beenden", "A: Quit", "B: Beenden", "B: Quit", "C: Quit"};
    }));
}

TEST_F(LanguageChange, WaitsForNoWindow) {
    BWindow* busy = Show("busy");
    ASSERT_TRUE(busy->Lock());
    Show("idle");
    change_language("de");
    EXPECT_TRUE(eventually([&] { return Read() == Texts{"idle: Beenden"}; }));
    busy->Unlock();
    EXPECT_TRUE(eventually([&] { return Read() == Texts{"busy: Beenden", "idle: Beenden"}; }));
}

TEST_F(LanguageChange, WithoutAWindowExchangesTheTexts) {
    change_language("de");
    EXPECT_STREQ(be_locale->GetString("Quit"), "Beenden");
    change_language("tlh");
    EXPECT_STREQ(be_locale->GetString("Quit"), "Quit");
}
