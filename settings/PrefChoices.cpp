#include "settings/PrefChoices.h"

const char LKK_MITEM_ENCODING[kCommentEncodingCount][32] = {
    "UTF-8 (BeOS)",
    "Shift-JIS",
    "JIS",
    "-",
    "Auto Detect",
};

const char LKK_POPMITEM_COL_TARGET[kPrefColorCount][32] = {
    "Backgrounds",
    "Comment",
    "Comment Backgrounds",
};
