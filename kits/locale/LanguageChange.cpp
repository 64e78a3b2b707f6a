#include "kits/locale/LanguageChange.h"

#include "kits/app/MessengerAccess.h"
#include "kits/locale/Catalogue.h"

namespace BPrivate {

void change_language(const std::string& language) {
    set_catalogue(catalogue_of(language));
    // A window that has closed meanwhile needs no new texts.
    for (const BMessenger& window : MessengerAccess::ForWindows())
        (void)window.SendMessage(kLanguageChanged);
}

}  // namespace BPrivate
