#pragma once

#include <string_view>
#include <support/SupportDefs.h>
#include <vector>

namespace BPrivate {

/// What is known of one item of a menu before it has a trigger.
struct TriggerWish {
    std::string_view label;
    char letter = 0;  ///< asked for; 0 for none
};

/// For every item of a menu the byte of its label whose letter chooses it; -1 for none. No letter
/// is given twice, in whatever case.
///
/// The letters that are asked for come first, then those that labels show as a hint ("X) ", "X - "
/// or "X・" before, "(X)" after the text), then for each label its first letter that is still free,
/// capitals before small ones.
std::vector<int32> FindTriggers(const std::vector<TriggerWish>& items);

}  // namespace BPrivate
