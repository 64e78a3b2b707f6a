#pragma once

class BView;

/// The view of that name, which is `root` or lies below it, depth first; also in the pages of a
/// tab view that are not shown, which are not in the tree. Null when there is none.
BView* find_view(BView* root, const char* name);

/// The same, when it is a `Kind`; null when it is another.
template <typename Kind>
Kind* find_child(BView* root, const char* name) {
    return dynamic_cast<Kind*>(find_view(root, name));
}

/// The first view below `root`, depth first, that takes the keyboard now and is no button: where the
/// user of a dialog begins. Null when there is none.
BView* first_component(BView* root);
