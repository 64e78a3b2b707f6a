#include "framework/FindChild.h"

#include <interface/Button.h>
#include <interface/MenuField.h>
#include <interface/TabView.h>
#include <interface/View.h>
#include <string_view>

namespace {

BView* find_below(BView* parent, const char* name) {
    for (int32 i = 0; BView* child = parent->ChildAt(i); i++) {
        if (BView* found = find_view(child, name))
            return found;
    }
    return nullptr;
}

/// The shown page is a child besides, and finds the same.
BView* find_in_pages(const BTabView* tabView, const char* name) {
    for (int32 i = 0; i < tabView->CountTabs(); i++) {
        BView* page = tabView->ViewForTab(i);
        if (page == nullptr)
            continue;
        if (BView* found = find_view(page, name))
            return found;
    }
    return nullptr;
}

bool takes_keys(BView* view) {
    if ((view->Flags() & B_NAVIGABLE) == 0)
        return false;
    if (const auto* field = dynamic_cast<const BMenuField*>(view))
        return field->IsEnabled();
    const auto* control = dynamic_cast<const BControl*>(view);
    return control == nullptr || control->IsEnabled();
}

}  // namespace

BView* find_view(BView* root, const char* name) {
    if (root->Name() != nullptr && std::string_view(root->Name()) == name)
        return root;
    if (BView* found = find_below(root, name))
        return found;
    const auto* tabView = dynamic_cast<const BTabView*>(root);
    return tabView != nullptr ? find_in_pages(tabView, name) : nullptr;
}

BView* first_component(BView* root) {
    for (int32 i = 0; BView* child = root->ChildAt(i); i++) {
        if (child->IsHidden(child) || dynamic_cast<BButton*>(child) != nullptr)
            continue;
        if (takes_keys(child))
            return child;
        if (BView* found = first_component(child))
            return found;
    }
    return nullptr;
}
