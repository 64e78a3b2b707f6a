#pragma once

// The preferences dialog on the recording display, with an application that does not run: the
// notices sent to it stay in its queue.

#include <app/Application.h>
#include <app/Message.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/FindChild.h"
#include "settings/Prefs.h"
#include "settings/PrefsWindow.h"
#include "tests/framework/SettingsHome.h"
#include "tests/framework/TestWindows.h"

class PrefViewFixture : public testing::Test {
public:
    using Texts = std::vector<std::string>;

protected:
    /// Labels have no hints at first.
    PrefViewFixture();
    ~PrefViewFixture() override;

    /// Makes the dialog and shows it.
    void Open();
    /// Shows it again after it was hidden.
    void Reopen();
    void Close();
    /// Until all that was sent to the dialog so far, and what that has sent to it, is dealt with.
    void Settle();
    /// Lets labels have hints of that format, and tells the dialog.
    void SetHints(const std::string& format);
    void SetLanguage(const std::string& language);

    /// The view of that name, in whatever tab.
    template <typename View>
    View* Find(const char* name) {
        return with_lock(fWindow, [&] { return find_child<View>(fWindow->ChildAt(0), name); });
    }
    /// What `ask` answers of the view, under the window's lock.
    template <typename View, typename Function>
    auto Of(const char* name, Function ask) {
        View* view = Find<View>(name);
        return with_lock(fWindow, [&] { return ask(*view); });
    }
    bool IsEnabled(const char* name);
    std::string TextOf(const char* name);
    /// What the menu field shows as chosen; empty for nothing.
    std::string ChoiceOf(const char* name);
    Texts Rows();

    // What the user does, to the control of that name or label. Everything is dealt with when
    // these return.
    void ShowTab(int32 index);
    void Click(const std::string& control, int32 value = 1);
    void Type(const std::string& control, const std::string& text);
    void Choose(const std::string& control, const std::string& item);
    /// -1 selects no row.
    void SelectRow(int32 row);
    void SetSlider(int32 value, bool final = true);
    void SetColor(uint8 red, uint8 green, uint8 blue);
    void Press(char rawChar, uint32 modifiers = 0, int32 key = 0);
    /// A message from elsewhere, to the window.
    void Tell(BMessage message);
    /// One of a control's, however it came about.
    void TellView(BMessage message);

    /// The codes of what the application was sent, oldest first, which are forgotten then. A
    /// preference notice that is not the dialog's own ends with "?".
    Texts Notices();
    /// What Notices() tells after the text was typed into the field of that label.
    Texts NoticesOfTyping(const std::string& control, const std::string& text);

    /// The preferences as they were saved last; the defaults when they never were.
    TPrefs Saved() const;
    bool IsSaved() const;

    TSettingsHome fHome;
    BApplication fApp;
    TPrefsWindow* fWindow = nullptr;
    std::shared_ptr<recording::Window> fScreen;

private:
    /// Tells the dialog that the user changed the control.
    void Change(const std::string& control, BMessage change);
};

/// Whether all fields have the same values.
bool same_prefs(const TPrefs& a, const TPrefs& b);
