// The process-wide records. They stand in one file because their order matters: they are built
// in this order before main() and destroyed in the reverse order.

#include "framework/AppPrivacy.h"
#include "iap/InterAppPrefs.h"
#include "settings/ExitStates.h"
#include "settings/Prefs.h"

TAppPrivacy gAppPrivacy;
TExitStates gExitStates;
TPrefs gPrefs;
TInterAppPrefs gIAPs;
