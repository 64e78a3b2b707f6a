#include "viewer/PictureReading.h"

#include "viewer/LorivaneView.h"
#include "viewer/StatusView.h"

#include <interface/Accessibility.h>

#include "framework/FileName.h"

namespace {

// In bytes. A comment may be a book, and all of it would go to the screen with every step.
constexpr std::string::size_type kLongestComment = 2000;

std::string beginning_of(const std::string& text) {
    if (text.size() <= kLongestComment)
        return text;
    std::string::size_type end = kLongestComment;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
        --end;  // not within a character
    return text.substr(0, end) + "\xE2\x80\xA6";
}

}  // namespace

std::string picture_description(const std::string& kind, BRect bounds, const std::string& comment) {
    std::string description = kind.empty() ? "" : kind + ", ";
    description += size_text(bounds);
    return comment.empty() ? description : description + ". " + beginning_of(comment);
}

// What is said in the picture's place is told in its place.
void TLorivaneView::TellPicture() {
    std::string name;
    if (const TLoadProblem* problem = fMessage.Problem())
        name = problem_text(*problem);
    else if (fCurrentImage)
        name = extract_file_name(fCurrentImage->FileName());
    // The name last: it is what is announced.
    if (fCurrentImage)
        set_accessible_description(this,
            picture_description(fCurrentImage->Kind(), fCurrentImage->OrgImage()->Bounds(),
                fCurrentImage->Comment()->Text())
                .c_str());
    set_accessible_name(this, name.empty() ? nullptr : name.c_str());
}
