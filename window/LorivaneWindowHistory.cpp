// The files that were opened before, in the main window's "Open..." menu.

#include <app/Message.h>
#include <interface/Menu.h>
#include <interface/MenuItem.h>
#include <locale/Locale.h>
#include <storage/Entry.h>
#include <storage/Path.h>
#include <string>

#include "framework/Alert.h"
#include "framework/HintedLabels.h"
#include "framework/MessageCodes.h"
#include "framework/SettingsFile.h"
#include "window/LorivaneWindow.h"

namespace {

constexpr char kFileName[] = "Lorivane_MRUFs.arc";
constexpr int32 kMostFiles = 10;

/// The entry that leads there in other words, such as a path with "//", or with a name that no file
/// can have and so no path of its own; -1 for none.
int32 find_ref(const TMRUF& history, const entry_ref& wanted) {
    for (int32 i = 0; i < history.CountMRUFs(); ++i) {
        entry_ref ref;
        (void)get_ref_for_path(history.MRUFAt(i), &ref);
        if (ref == wanted)
            return i;
    }
    return -1;
}

}  // namespace

void TLorivaneWindow::InitHistory() {
    fHistory.SetShowSC(true);
    fHistory.SetMaxMRUF(kMostFiles);
    fHistory.SetTgtHandler(this);
    fHistory.SetAccFormat(THintedLabels().Format());

    BEntry file;
    if (get_settings_entry(kAppSettingsFolder, kFileName, &file) == B_OK)
        (void)fHistory.Load(file);  // what cannot be read was not there
}

void TLorivaneWindow::GenerateMenuMRUF() {
    fHistory.GenerateMenu();
    // Behind the entries and the separator.
    if (BMenuItem* deleteAll = fOpenMenu->ItemAt(fHistory.CountMRUFs() + 1))
        deleteAll->SetEnabled(fHistory.CountMRUFs() > 0);

    BEntry file;
    if (get_settings_entry(kAppSettingsFolder, kFileName, &file) == B_OK)
        (void)fHistory.Save(file);  // on a full disk the old one stays
}

void TLorivaneWindow::AddHistoryRqtd(BMessage* message) {
    entry_ref ref;
    BPath path;
    if (message->FindRef(kFieldRefs, &ref) != B_OK || path.SetTo(&ref) != B_OK)
        return;
    fHistory.AddMRUF(path.Path());
    GenerateMenuMRUF();
}

void TLorivaneWindow::RemoveHistoryRqtd(BMessage* message) {
    entry_ref ref;
    if (message->FindRef(kFieldRefs, &ref) != B_OK)
        return;
    const int32 index = fHistory.FindMRUF(BPath(&ref).Path());
    (void)fHistory.RemoveMRUF(index >= 0 ? index : find_ref(fHistory, ref));
    GenerateMenuMRUF();
}

void TLorivaneWindow::MItemDelAllMRUFClicked() {
    const THintedLabels labels;
    const std::string no = labels("No", "N");
    const std::string deleteAll = labels("Delete All", "A");
    const int32 answer = show_alert(be_locale->GetString("@Ask_Del_All_MRUFs@"),
        be_locale->GetString("@Hint_Del_One_MRUF@"), no.c_str(), deleteAll.c_str(), nullptr, 0,
        B_WARNING_ALERT);
    if (answer == 0)
        return;
    fHistory.ClearMRUF();
    GenerateMenuMRUF();
}
