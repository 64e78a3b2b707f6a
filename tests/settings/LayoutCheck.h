#pragma once

// Whether the controls of a dialog have the room they need, and leave each other theirs.

#include <gtest/gtest.h>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/ListView.h>
#include <interface/MenuField.h>
#include <interface/ScrollView.h>
#include <interface/TextControl.h>
#include <interface/View.h>

#include <algorithm>
#include <string>

namespace layout_check {

inline std::string name_of(const BView* view) {
    return view->Name() != nullptr ? view->Name() : "?";
}

/// The width a view needs to show its label and something of what is behind it.
inline float needed_width(BView* view) {
    float width = 0;
    view->GetPreferredSize(&width, nullptr);
    // A long choice may be cut off, but not the label.
    if (const auto* field = dynamic_cast<BMenuField*>(view))
        return std::min(width, field->Divider() + 100);
    return width;
}

inline float needed_height(BView* view) {
    float height = 0;
    view->GetPreferredSize(nullptr, &height);
    return height;
}

/// The same for the label alone, which the divider has to leave room for.
inline float label_width(const char* label) {
    const auto preferred = [](const char* text) {
        float width = 0;
        BTextControl(BRect(0, 0, 0, 0), "", text, "", nullptr).GetPreferredSize(&width, nullptr);
        return width;
    };
    return preferred(label) - preferred("");
}

/// Checks the view's children, which have to lie within it, and what is below them.
inline void expect_tidy(BView* parent) {
    for (int32 i = 0; BView* view = parent->ChildAt(i); i++) {
        const std::string name = name_of(view);
        EXPECT_TRUE(parent->Bounds().Contains(view->Frame())) << name;
        const bool isSized = dynamic_cast<BBox*>(view) == nullptr &&
            dynamic_cast<BListView*>(view) == nullptr &&
            dynamic_cast<BScrollView*>(view) == nullptr && view->CountChildren() == 0;
        if (isSized) {
            EXPECT_GE(view->Bounds().Width(), needed_width(view)) << name;
            EXPECT_GE(view->Bounds().Height(), needed_height(view)) << name;
        }
        if (const auto* field = dynamic_cast<BMenuField*>(view)) {
            EXPECT_GE(field->Divider(), label_width(field->Label())) << name;
        }
        if (const auto* control = dynamic_cast<BTextControl*>(view)) {
            EXPECT_GE(control->Divider(), label_width(control->Label())) << name;
        }
        for (int32 other = 0; other < i; other++) {
            const BView* sibling = parent->ChildAt(other);
            EXPECT_FALSE(view->Frame().Intersects(sibling->Frame()))
                << name << " and " << name_of(sibling);
        }
        if (dynamic_cast<BScrollView*>(view) == nullptr)
            expect_tidy(view);
    }
}

}  // namespace layout_check
