#include "viewer/LoadProblem.h"

#include <algorithm>
#include <app/Message.h>
#include <storage/Entry.h>
#include <translation/TranslationDefs.h>

#include "framework/FileName.h"
#include "framework/LocalText.h"

namespace {

struct ReasonTexts {
    TLoadProblem::Reason reason;
    const char* key;      // of the text for the user
    const char* details;  // for the terminal, where the translators have said nothing
};

constexpr ReasonTexts kTexts[] = {
    {TLoadProblem::kDamaged, "@Err_Image_Is_Damaged %FileName%@", "the file is damaged"},
    {TLoadProblem::kIncomplete, "@Err_Image_Is_Incomplete %FileName%@",
        "the file ends before the picture does"},
    {TLoadProblem::kTooLarge, "@Err_Image_Is_Too_Large %FileName%@",
        "there is not enough memory for the picture"},
    {TLoadProblem::kNoImage, "@Err_No_Known_Image %FileName%@",
        "the file is no picture of a known format"},
    {TLoadProblem::kUnreadable, "@Err_File_Cannot_Be_Read %FileName%@", "the file cannot be read"},
    {TLoadProblem::kGone, "@Err_File_Is_Gone %FileName%@", "there is no such file or folder"},
    {TLoadProblem::kNoFurtherImage, "@Err_No_Further_Image %FileName%@",
        "there is no further picture beside this one"},
    {TLoadProblem::kNoImageInFolder, "@Err_No_Image_In_Folder %FileName%@",
        "the folder has no picture"},
    {TLoadProblem::kUnreadableFolder, "@Err_Folder_Cannot_Be_Read %FileName%@",
        "the folder cannot be read"},
};

const ReasonTexts& texts_of(TLoadProblem::Reason reason) {
    const auto* found = std::ranges::find(kTexts, reason, &ReasonTexts::reason);
    return found != std::end(kTexts) ? *found : kTexts[0];
}

TLoadProblem::Reason reason_of(status_t status) {
    switch (status) {
    case B_NO_MEMORY: return TLoadProblem::kTooLarge;
    case B_NO_TRANSLATOR: return TLoadProblem::kNoImage;
    case B_ENTRY_NOT_FOUND:
    case B_NOT_A_DIRECTORY: return TLoadProblem::kGone;
    case B_PERMISSION_DENIED:
    case B_NOT_ALLOWED:
    case B_IO_ERROR:
    case B_LINK_LIMIT:
    case B_NAME_TOO_LONG:
    case B_NO_MORE_FDS: return TLoadProblem::kUnreadable;
    default: return TLoadProblem::kDamaged;
    }
}

/// The name in one line.
std::string shown_name(const std::string& path) {
    std::string name = extract_file_name(path);
    if (name.empty())
        name = path;
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; };
    std::ranges::replace_if(name, isControl, ' ');
    return name;
}

}  // namespace

TLoadProblem problem_with(const std::string& path, status_t status, const BMessage* explanation) {
    TLoadProblem problem{reason_of(status), path, ""};
    if (problem.reason != TLoadProblem::kNoImage && BEntry(path.c_str(), true).IsDirectory())
        problem.reason = TLoadProblem::kNoImage;
    if (explanation != nullptr) {
        problem.details = explanation->GetString(B_TRANSLATOR_EXT_PROBLEM, "");
        if (problem.reason == TLoadProblem::kDamaged &&
            explanation->GetBool(B_TRANSLATOR_EXT_INCOMPLETE, false))
            problem.reason = TLoadProblem::kIncomplete;
    }
    return problem;
}

std::string problem_text(const TLoadProblem& problem) {
    return local_text_with(
        texts_of(problem.reason).key, "%FileName%", shown_name(problem.path).c_str());
}

std::string problem_line(const TLoadProblem& problem) {
    return problem.path + ": " +
        (problem.details.empty() ? texts_of(problem.reason).details : problem.details.c_str());
}
