#pragma once

#include <app/Message.h>
#include <stdexcept>
#include <string>
#include <string_view>

/// What is wrong with a layout's source. what() begins with the place: "line 3, column 7: ..." or,
/// in a source that is valid JSON, the way to the view, as in "children[2] \"ButtonOK\": ...".
class LayoutError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The archive of the view that a layout's source describes, as BView::Archive() would make it.
/// docs/layouts.md describes the source.
/// @throws LayoutError
BMessage compile_layout(std::string_view source);
