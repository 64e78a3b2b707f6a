// Where the preferences dialog's controls stand.

#include <interface/MenuField.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>

#include "tests/settings/LayoutCheck.h"
#include "tests/settings/PrefViewFixture.h"

namespace {

class PrefViewLayoutTest : public PrefViewFixture {
protected:
    void ExpectTidy() {
        for (int32 tab = 0; tab < 3; tab++) {
            ShowTab(tab);
            with_lock(fWindow, [&] { layout_check::expect_tidy(fWindow->ChildAt(0)); });
        }
        with_lock(fWindow, [&] {
            EXPECT_EQ(fWindow->Bounds().Width(), fWindow->ChildAt(0)->Frame().Width());
            EXPECT_EQ(fWindow->Bounds().Height(), fWindow->ChildAt(0)->Frame().Height());
            EXPECT_EQ(fWindow->ChildAt(0)->Frame().LeftTop(), BPoint(0, 0));
        });
    }
    template <typename Control>
    float Divider(const char* name) {
        return Of<Control>(name, [](auto& control) { return control.Divider(); });
    }
};

TEST_F(PrefViewLayoutTest, IsTidyInEveryLanguageAndFormat) {
    Open();
    for (const char* language : {"en", "de", "ja"}) {
        for (const char* format : {"\2(a)", "\1a) ", "\1a・", "\1a - ", ""}) {
            SCOPED_TRACE(std::string(language) + " " + format);
            SetLanguage(language);
            SetHints(format);
            ExpectTidy();
        }
    }
}

TEST_F(PrefViewLayoutTest, FieldsOfAColumnBeginAtOnePlace) {
    Open();
    SetLanguage("de");
    EXPECT_EQ(Divider<BTextControl>("TxtCtrlCommentMargin"),
        Divider<BMenuField>("MFieldCommentFontFace"));
    EXPECT_EQ(Divider<BTextControl>("TxtCtrlCommentMargin"),
        Divider<BMenuField>("MFieldCommentEncoding"));
    EXPECT_EQ(Divider<BTextControl>("TxtCtrlCommentPadding"),
        Divider<BTextControl>("TxtCtrlCommentFontSize"));
}

TEST_F(PrefViewLayoutTest, TheWindowFollowsItsLabels) {
    Open();
    const float english = with_lock(fWindow, [&] { return fWindow->Bounds().Width(); });
    SetLanguage("de");
    SetHints("\1a - ");
    EXPECT_GT(with_lock(fWindow, [&] { return fWindow->Bounds().Width(); }), english);
    SetLanguage("en");
    SetHints("");
    EXPECT_EQ(with_lock(fWindow, [&] { return fWindow->Bounds().Width(); }), english);
}

TEST_F(PrefViewLayoutTest, KeyboardGoesFromTopToBottom) {
    Open();
    const float margin = Of<BView>("TxtCtrlCommentMargin", [](auto& v) { return v.Frame().top; });
    EXPECT_GT(margin, Of<BView>("BoxCommentAlign", [](auto& v) { return v.Frame().bottom; }));
    for (int32 tab = 0; tab < 3; tab++) {
        ShowTab(tab);
        with_lock(fWindow, [&] {
            const auto* tabs = find_child<BTabView>(fWindow->ChildAt(0), "TabViewPref");
            const BView* page = tabs->ViewForTab(tab);
            for (int32 i = 1; i < page->CountChildren(); i++) {
                const BRect before = page->ChildAt(i - 1)->Frame();
                const BRect after = page->ChildAt(i)->Frame();
                // The list stands beside what is added to it.
                EXPECT_TRUE(after.top >= before.top || after.left > before.right)
                    << layout_check::name_of(page->ChildAt(i));
            }
        });
    }
}

}  // namespace
