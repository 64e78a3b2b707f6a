#pragma once

#include "framework/Archivable.h"
#include "settings/PrefField.h"

#include <array>
#include <interface/GraphicsDefs.h>
#include <string>
#include <vector>

/// Where the comment stands over the image.
enum comment_align : int32 { kCommentAtTop = 0, kCommentAtBottom = 1 };

/// How comment files are encoded. 3 is the separator of the encoding menu and never stored.
enum comment_encoding : int32 {
    kEncodingUTF8 = 0,
    kEncodingShiftJIS = 1,
    kEncodingJIS = 2,
    kEncodingAutoDetect = 4,
};

/// The colours the user may choose, in the order of the record.
enum pref_color : int32 {
    kColorBackground,
    kColorComment,
    kColorCommentBackground,
    kPrefColorCount,
};

/// The user's preferences. Every thread may read any field at any time: the preferences dialog
/// writes them one at a time and then sends a notice. A copy is field by field, not a snapshot
/// of one instant.
///
/// Values read from a file are taken as they are: whoever uses one must cope with any value.
class TPrefs : public TArchivable {
public:
    TPrefField<bool> fEnableComment{true};
    TPrefField<bool> fEnablePreload{true};
    TPrefField<int32> fCommentAlign{kCommentAtBottom};
    TPrefField<int32> fCommentEncoding{kEncodingAutoDetect};
    TPrefField<int32> fDisplayOption{1};        ///< 0 to 5; 1 fits the window to the image
    TPrefField<float> fCommentFontSize{12.0F};  ///< points
    TPrefField<float> fCommentMargin{20.0F};    ///< pixels from the window's edge to the box
    TPrefField<float> fCommentPadding{5.0F};    ///< pixels from the box's edge to the text
    std::array<TPrefField<rgb_color>, kPrefColorCount> fColors{
        rgb_color{0, 0, 0, 255}, rgb_color{255, 255, 255, 255}, rgb_color{0, 0, 0, 127}};
    TPrefField<std::string> fCommentFontFamily{std::string("Swis721 BT")};
    /// Extensions of comment files, without the dot, in the order they are looked for.
    TPrefField<std::vector<std::string>> fCommentFileExts{
        std::vector<std::string>{"doc", "hed", "txt"}};

    status_t Archive(BMessage* archive) const override;
    status_t Unarchive(const BMessage& archive) override;

    /// @return 0, or -1 when not all of the record was read.
    status_t LoadFromFile();
    /// @return 0, or -1 when nothing was written.
    status_t SaveToFile() const;
};

/// The preferences in force.
extern TPrefs gPrefs;
