#include "framework/FindChild.h"

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

}  // namespace

BView* find_view(BView* root, const char* name) {
    if (root->Name() != nullptr && std::string_view(root->Name()) == name)
        return root;
    if (BView* found = find_below(root, name))
        return found;
    const auto* tabView = dynamic_cast<const BTabView*>(root);
    return tabView != nullptr ? find_in_pages(tabView, name) : nullptr;
}
