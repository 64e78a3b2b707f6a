// Where the views of the image information stand, in every language.

#include <cmath>
#include <interface/Button.h>
#include <interface/StringView.h>
#include <vector>

#include "framework/FindChild.h"
#include "tests/window/information/InformationFixture.h"

namespace {

constexpr float kMargin = 8.0F;  // the least
constexpr const char* kRows[] = {"FileName", "FolderName", "Kind", "Size", "Memory"};

class PropertyLayout : public InformationFixture {
protected:
    static BStringView* Find(TPropertyWindow* window, const std::string& name) {
        return find_child<BStringView>(window->ChildAt(0), name.c_str());
    }
    static float WidthOf(BView* view) {
        float width = 0;
        view->GetPreferredSize(&width, nullptr);
        return std::ceil(width);
    }

    static void ExpectNoOverlap(const BView& root) {
        const BRect inside = root.Bounds().InsetByCopy(kMargin, kMargin);
        for (int32 i = 0; BView* one = root.ChildAt(i); i++) {
            EXPECT_TRUE(inside.Contains(one->Frame())) << one->Name();
            for (int32 j = i + 1; BView* other = root.ChildAt(j); j++)
                EXPECT_FALSE(one->Frame().Intersects(other->Frame()))
                    << one->Name() << ", " << other->Name();
        }
    }

    static void ExpectAllSeen(const BView& root, bool alsoWide = true) {
        for (int32 i = 0; BView* view = root.ChildAt(i); i++) {
            float width = 0;
            float height = 0;
            view->GetPreferredSize(&width, &height);
            EXPECT_GE(view->Bounds().Height(), std::floor(height)) << view->Name();
            EXPECT_TRUE(!alsoWide || view->Bounds().Width() >= std::floor(width)) << view->Name();
        }
    }

    static void ExpectColumns(TPropertyWindow* window) {
        const float labels = Find(window, "StrViewFileNameLabel")->Frame().left;
        const BRect first = Find(window, "StrViewFileNameValue")->Frame();
        for (const std::string row : kRows) {
            const BRect label = Find(window, "StrView" + row + "Label")->Frame();
            const BRect value = Find(window, "StrView" + row + "Value")->Frame();
            EXPECT_EQ(label.left, labels) << row;
            EXPECT_EQ(value.left, first.left) << row;
            EXPECT_EQ(value.right, first.right) << row;
            EXPECT_EQ(label.top, value.top) << row;
            EXPECT_LT(label.right, value.left) << row;
        }
        const BRect button = find_child<BButton>(window->ChildAt(0), "ButtonOK")->Frame();
        EXPECT_EQ(button.right, first.right);
        EXPECT_EQ(window->Bounds(), window->ChildAt(0)->Frame());
    }
};

TEST_F(PropertyLayout, FitsEveryLanguage) {
    for (const char* language : {"en", "de", "ja"}) {
        SCOPED_TRACE(language);
        BPrivate::set_catalogue(BPrivate::catalogue_of(language));
        TPropertyWindow* window = Open(*MakeImage(640, 480, "a.png"));
        with_lock(window, [&] {
            ExpectColumns(window);
            ExpectNoOverlap(*window->ChildAt(0));
            ExpectAllSeen(*window->ChildAt(0));
        });
    }
}

TEST_F(PropertyLayout, FitsALanguageItChangesTo) {
    TPropertyWindow* window = Open(*MakeImage(640, 480, "a.png"));
    // Words that are longer than any language's, and then shorter ones.
    for (const std::string& label : {std::string(60, 'W') + ": ", std::string("A: ")}) {
        SCOPED_TRACE(label);
        SetTexts({{"Folder: ", label}, {"OK", label}}, window);
        EXPECT_TRUE(recording::WaitFor([&] {
            return Screen().FindControl(label).has_value() &&
                TextOf("StrViewFolderNameLabel") == label;
        }));
        // The window has its size once the label setter has given back the lock.
        with_lock(window, [&] {
            ExpectColumns(window);
            ExpectNoOverlap(*window->ChildAt(0));
            ExpectAllSeen(*window->ChildAt(0));
        });
    }
}

TEST_F(PropertyLayout, GrowsWithTheNameUpToALimit) {
    TPropertyWindow* window = Open(*MakeImage(20, 10, "a.png"));
    const float narrow = with_lock(window, [&] { return window->Bounds().Width(); });

    const std::string kLong = std::string(50, 'n') + ".png";
    window = Open(*MakeImage(20, 10, kLong));
    const float wide = with_lock(window, [&] {
        BStringView* value = Find(window, "StrViewFileNameValue");
        EXPECT_GE(value->Bounds().Width(), std::floor(WidthOf(value)));
        ExpectColumns(window);
        ExpectNoOverlap(*window->ChildAt(0));
        return window->Bounds().Width();
    });
    EXPECT_GT(wide, narrow);

    const std::string kVeryLong = std::string(250, 'n') + ".png";
    window = Open(*MakeImage(20, 10, kVeryLong));
    with_lock(window, [&] {
        BStringView* value = Find(window, "StrViewFileNameValue");
        EXPECT_LT(value->Bounds().Width(), WidthOf(value));
        EXPECT_LT(window->Bounds().Width(), 700);
        ExpectColumns(window);
        ExpectNoOverlap(*window->ChildAt(0));
        ExpectAllSeen(*window->ChildAt(0), false);
    });
    EXPECT_EQ(TextOf("StrViewFileNameValue"), kVeryLong);  // what the tool tip shows, too
}

}  // namespace
