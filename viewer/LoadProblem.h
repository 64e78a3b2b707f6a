#pragma once

#include <string>
#include <support/SupportDefs.h>

class BMessage;

/// Why a picture, or a folder, is not shown.
struct TLoadProblem {
    enum Reason {
        kNone,
        kDamaged,
        kIncomplete,
        kTooLarge,
        kNoImage,     ///< nothing that a translator knows
        kUnreadable,  ///< forbidden, or the disk fails
        kGone,
        kNoFurtherImage,  ///< the path is that of the image it was to come after or before
        kNoImageInFolder,
        kUnreadableFolder,
    };

    Reason reason = kNone;
    std::string path;
    std::string details;  ///< one sentence in English for whoever looks into it; may be empty

    /// Whether it is about a picture that the user could expect to see. A folder is full of other
    /// files, which are stepped over in silence.
    bool IsOfImage() const { return reason != kNone && reason != kNoImage; }
};

/// What the status of opening, identifying or decoding a file tells.
/// @param explanation the message for extensions that a translator was given; may be null
TLoadProblem problem_with(
    const std::string& path, status_t status, const BMessage* explanation = nullptr);

/// For the user, in his language: the file's name and the reason.
std::string problem_text(const TLoadProblem& problem);

/// For the terminal, in English: the path and the details.
std::string problem_line(const TLoadProblem& problem);
