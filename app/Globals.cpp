// The process-wide records. They stand in one file because their order matters: they are built
// in this order before main() and destroyed in the reverse order.

#include "framework/AppPrivacy.h"
#include "framework/HintedLabels.h"
#include "iap/InterAppPrefs.h"
#include "iap/ItemNames.h"
#include "settings/Additions.h"
#include "settings/ExitStates.h"
#include "settings/Prefs.h"

TAppPrivacy gAppPrivacy;
TExitStates gExitStates;
TPrefs gPrefs;
TAdditions gAdditions;
TInterAppPrefs gIAPs;

std::string accelerator_key_format() {
    std::string format;
    (void)gIAPs.GetString(kAccKeyFormatItem, &format);
    return format;
}
