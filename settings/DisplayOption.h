#pragma once

// The display option: how an image is brought to its size. It is kept in the preferences record.

#include <app/Message.h>
#include <support/SupportDefs.h>

enum display_option : int32 {
    kDontFitAnything = 0,
    kFitWindowToImage = 1,
    kFitImageToWindow = 2,
    kScaleImageToWindow = 3,
    kScaleImageToWindowWidth = 4,
    kScaleImageToWindowHeight = 5,
};

constexpr int32 kDisplayOptionCount = 6;

/// The options' labels, keys for the locale service, by option.
extern const char LKK_MITEM_DO[kDisplayOptionCount][128];
/// Their accelerator letters, by option.
extern const char* const ACC_KEY_DO[kDisplayOptionCount];

/// A message with the option in its field "DispOpt". It belongs to the caller.
BMessage* create_display_option_message(uint32 what, int32 option);

/// Makes the option in "DispOpt", whatever its value, that of the preferences record. `B_ERROR`
/// without the field, and nothing changes.
status_t set_display_option(BMessage* message);
