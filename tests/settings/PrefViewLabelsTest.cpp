// The preferences dialog's texts, and the keys they show.

#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/InterfaceDefs.h>
#include <interface/MenuField.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>

#include <map>

#include "framework/Accelerator.h"
#include "framework/MessageCodes.h"
#include "iap/InterAppPrefs.h"
#include "settings/PrefChoices.h"
#include "tests/settings/PrefViewFixture.h"

namespace {

class PrefViewLabelsTest : public PrefViewFixture {
protected:
    std::string Label(const char* name) {
        BView* view = Find<BView>(name);
        return with_lock(fWindow, [&]() -> std::string {
            if (const auto* field = dynamic_cast<BMenuField*>(view))
                return field->Label();
            return dynamic_cast<BControl&>(*view).Label();
        });
    }
    std::string TabLabel(int32 index) {
        return Of<BTabView>(
            "TabViewPref", [&](auto& tabs) { return std::string(tabs.TabAt(index)->Label()); });
    }
    std::string BoxLabel() {
        return Of<BBox>("BoxCommentAlign", [](auto& box) { return std::string(box.Label()); });
    }
    bool IsFocused(const char* name) {
        return Of<BView>(name, [](auto& view) { return view.IsFocus(); });
    }
};

TEST_F(PrefViewLabelsTest, HaveNoHintsWithoutAFormat) {
    Open();
    EXPECT_EQ(fScreen->Title(), "Preferences");
    EXPECT_EQ(TabLabel(0), "Comment");
    EXPECT_EQ(TabLabel(1), "Colors");
    EXPECT_EQ(TabLabel(2), "Etc.");
    EXPECT_EQ(BoxLabel(), "Position");
    EXPECT_EQ(Label("CBoxEnableComment"), "Enable Comment");
    EXPECT_EQ(Label("ButtonHelp"), "Help");
}

TEST_F(PrefViewLabelsTest, HaveTheHintsOfTheFormat) {
    Open();
    SetHints("\2(a)");
    const std::pair<const char*, const char*> labels[] = {
        {"CBoxEnableComment", "Enable Comment(C)"},
        {"RButtonCommentAlignTop", "Top(T)"},
        {"RButtonCommentAlignBottom", "Bottom(B)"},
        {"TxtCtrlCommentMargin", "Margin(M): "},
        {"TxtCtrlCommentPadding", "Padding(P): "},
        {"MFieldCommentFontFace", "Font(F): "},
        {"TxtCtrlCommentFontSize", "Size(S): "},
        {"TxtCtrlAddCommentFileExt", "Extension of Comment File(X): "},
        {"ButtonAddCommentFileExt", "Add >>(A)"},
        {"ButtonRemoveCommentFileExt", "<< Remove(R)"},
        {"MFieldCommentEncoding", "Encoding(E): "},
        {"MFieldColTarget", "Target(T): "},
        {"SliderColAlpha", "Opacity"},
        {"MFieldDispOpt", "Display Option(I): "},
        {"CBoxEnablePreload", "Enable Pre-load(P)"},
        {"ButtonHelp", "Help(F1)"},
        {"ButtonDefaults", "Defaults(D)"},
        {"ButtonCancel", "Cancel"},
        {"ButtonOK", "OK"},
    };
    for (const auto& [name, label] : labels)
        EXPECT_EQ(Label(name), label);
    EXPECT_EQ(TabLabel(0), "Comment");
    EXPECT_EQ(BoxLabel(), "Position");

    SetHints("\1a - ");
    EXPECT_EQ(Label("ButtonHelp"), "F1 - Help");
    EXPECT_EQ(Label("MFieldColTarget"), "T - Target: ");
}

TEST_F(PrefViewLabelsTest, FollowOnlyTheFormatOfTheHints) {
    Open();
    BMessage other(kMsgSharedItemChanged);
    (void)other.AddString(kFieldSharedItem, "FlatToolBar");
    // The dialog is not told of this one, and must not find out by what it is told.
    (void)gIAPs.SetString("AccKeyFormat2", "\2(a)");
    gPrefs.fCommentMargin = 77;
    Tell(other);
    Tell(BMessage(kMsgSharedItemChanged));
    EXPECT_EQ(Label("CBoxEnableComment"), "Enable Comment");
    SetHints("\2(a)");
    EXPECT_EQ(Label("CBoxEnableComment"), "Enable Comment(C)");
    EXPECT_EQ(TextOf("TxtCtrlCommentMargin"), "20");
}

TEST_F(PrefViewLabelsTest, FollowTheLanguage) {
    Open();
    SetHints("\2(a)");
    SetLanguage("de");
    EXPECT_EQ(fScreen->Title(), "Einstellungen");
    EXPECT_EQ(TabLabel(0), "Kommentar");
    EXPECT_EQ(Label("CBoxEnableComment"), "Kommentar anzeigen(C)");
    EXPECT_EQ(Label("TxtCtrlCommentMargin"), "Außenabstand(M): ");
    EXPECT_EQ(ChoiceOf("MFieldCommentFontFace"), "Serif");
    const std::string german = ChoiceOf("MFieldDispOpt");
    EXPECT_NE(german, "Fit Window to Image");
    EXPECT_NE(german, "");

    // The menus made anew still do what the old ones did.
    Choose("Zeichenkodierung(E): ", "JIS");
    EXPECT_EQ(gPrefs.fCommentEncoding, 2);
    EXPECT_EQ(Notices(), Texts{"pcec"});
    SetLanguage("en");
    EXPECT_EQ(fScreen->Title(), "Preferences");
    EXPECT_EQ(ChoiceOf("MFieldCommentEncoding"), "JIS");
    EXPECT_EQ(ChoiceOf("MFieldDispOpt"), "Fit Window to Image");
    EXPECT_EQ(Label("CBoxEnableComment"), "Enable Comment(C)");
}

TEST_F(PrefViewLabelsTest, TheTitlesOfMenusFollowTheLanguage) {
    recording::TheRecordingDisplay().SetFontFamilies({});
    gPrefs.fCommentEncoding = kEncodingSeparator;
    Open();
    const auto title = [&](const char* field) {
        return std::get<BPrivate::MenuFieldState>(fScreen->FindControl(field)->state).title;
    };
    EXPECT_EQ(title("Font: "), "Select...");
    EXPECT_EQ(title("Encoding: "), "Select...");
    SetLanguage("de");
    EXPECT_EQ(title("Schriftart: "), "Auswählen...");
    EXPECT_EQ(title("Zeichenkodierung: "), "Auswählen...");
}

TEST_F(PrefViewLabelsTest, NoTwoOfATabHaveOneKey) {
    constexpr const char* kButtons[] = {"ButtonHelp", "ButtonDefaults", "ButtonCancel", "ButtonOK"};
    const std::vector<std::vector<const char*>> pages{
        {"CBoxEnableComment", "RButtonCommentAlignTop", "RButtonCommentAlignBottom",
            "TxtCtrlCommentMargin", "TxtCtrlCommentPadding", "MFieldCommentFontFace",
            "TxtCtrlCommentFontSize", "TxtCtrlAddCommentFileExt", "ButtonAddCommentFileExt",
            "ButtonRemoveCommentFileExt", "MFieldCommentEncoding"},
        {"MFieldColTarget", "SliderColAlpha"},
        {"MFieldDispOpt", "CBoxEnablePreload"},
    };
    Open();
    for (const char* format : {"\2(a)", "\1a) ", "\1a・", "\1a - ", ""}) {
        for (const char* language : {"en", "de", "ja"}) {
            SetHints(format);
            SetLanguage(language);
            for (std::vector<const char*> names : pages) {
                names.insert(names.end(), std::begin(kButtons), std::end(kButtons));
                std::map<char, std::string> owners;
                for (const char* name : names) {
                    const std::string label = Label(name);
                    const char key = short_cut_from_label(label);
                    if (key == 0)
                        continue;
                    EXPECT_TRUE(owners.emplace(key, label).second)
                        << label << " and " << owners[key];
                }
                EXPECT_EQ(owners.empty(), *format == '\0') << format << language;
            }
        }
    }
}

TEST_F(PrefViewLabelsTest, KeysReachTheTabThatIsShown) {
    for (const char* format : {"\2(a)", "\1a) ", "\1a・", "\1a - "}) {
        Open();
        SetHints(format);
        Press('t', B_CONTROL_KEY);
        EXPECT_EQ(gPrefs.fCommentAlign, kCommentAtTop);
        Press('p', B_CONTROL_KEY);
        EXPECT_TRUE(IsFocused("TxtCtrlCommentPadding"));
        Press('e', B_CONTROL_KEY);
        EXPECT_TRUE(IsFocused("MFieldCommentEncoding"));
        Press('c', B_CONTROL_KEY);
        EXPECT_FALSE(gPrefs.fEnableComment);
        (void)Notices();

        // What is disabled does not answer.
        Press('b', B_CONTROL_KEY);
        EXPECT_EQ(gPrefs.fCommentAlign, kCommentAtTop);
        Press('a', B_CONTROL_KEY);
        EXPECT_EQ(Notices(), Texts{});

        ShowTab(1);
        Press('t', B_CONTROL_KEY);
        EXPECT_TRUE(IsFocused("MFieldColTarget"));
        ShowTab(2);
        Press('p', B_CONTROL_KEY);
        EXPECT_FALSE(gPrefs.fEnablePreload);
        Press('i', B_CONTROL_KEY);
        EXPECT_TRUE(IsFocused("MFieldDispOpt"));
        Press('d', B_CONTROL_KEY);
        EXPECT_TRUE(gPrefs.fEnablePreload);
        Close();
        gPrefs = TPrefs();
    }
}

}  // namespace
