// The main window's menus.

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <interface/InterfaceDefs.h>
#include <interface/MenuBar.h>
#include <interface/MenuItem.h>
#include <memory>
#include <string>

#include "framework/HintedLabels.h"
#include "framework/MessageCodes.h"
#include "framework/WaitingMessages.h"
#include "iap/ItemNames.h"
#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "window/LorivaneWindow.h"

namespace {

BMenuItem* make_item(const THintedLabels& labels, const char* key, const char* letter,
    BMessage* message, char shortcut = 0) {
    auto* item = new BMenuItem(labels(key, letter).c_str(), message, shortcut);
    item->SetTrigger(labels.Trigger(letter));
    return item;
}

BMenuItem* make_item(const THintedLabels& labels, const char* key, const char* letter, uint32 what,
    char shortcut = 0) {
    return make_item(labels, key, letter, new BMessage(what), shortcut);
}

BMenu* add_menu(BMenuBar* bar, const THintedLabels& labels, const char* key, const char* letter) {
    auto* menu = new BMenu(labels(key, letter).c_str());
    bar->AddItem(menu);
    menu->Superitem()->SetTrigger(labels.Trigger(letter));
    return menu;
}

/// Returns the menu that the files opened before go into.
BMenu* fill_file_menu(BMenu* menu, const THintedLabels& labels) {
    auto* recent = new BMenu(labels("Open...", "O").c_str());
    recent->AddSeparatorItem();
    BMenuItem* deleteAll = make_item(labels, "Delete All MRUFs", "D", kMsgDeleteAllHistory);
    deleteAll->SetEnabled(false);
    recent->AddItem(deleteAll);

    auto* open = new BMenuItem(recent, new BMessage(kMsgOpen));
    open->SetTrigger(labels.Trigger("O"));
    open->SetShortcut('O', B_COMMAND_KEY);
    (void)open->SetTarget(be_app);
    menu->AddItem(open);
    menu->AddSeparatorItem();
    menu->AddItem(make_item(labels, "Quit", "Q", B_QUIT_REQUESTED));
    return recent;
}

void fill_tool_menu(BMenu* menu, const THintedLabels& labels) {
    menu->AddItem(make_item(labels, "Show Image Information...", "I", kMsgShowImageInfo, 'I'));
    menu->AddSeparatorItem();
    menu->AddItem(make_item(labels, "Preferences...", "P", kMsgShowPrefs, 'P'));
    menu->AddItem(make_item(labels, "ZELKAN Common Preferences...", "S", kMsgShowSharedPrefs));
    (void)menu->SetTargetForItems(be_app);
}

void fill_help_menu(BMenu* menu, const THintedLabels& labels) {
    menu->AddItem(make_item(labels, "Help", "H", kMsgShowHelp));
    menu->AddItem(make_item(labels, "About...", "A", B_ABOUT_REQUESTED));
    (void)menu->SetTargetForItems(be_app);
}

}  // namespace

void TLorivaneWindow::CreateMenu() {
    const THintedLabels labels;
    fMenuFormat = labels.Format();
    fOpenMenu = fill_file_menu(add_menu(fMenuBar, labels, "File", "F"), labels);

    BMenu* view = add_menu(fMenuBar, labels, "View", "V");
    view->AddItem(make_item(labels, "First Image [Home]", "F", kMsgFirstImage, 'F'));
    view->AddItem(make_item(labels, "Previous Image [Backspace]", "P", kMsgPrevImage));
    view->AddItem(make_item(labels, "Next Image [Space]", "N", kMsgNextImage));
    view->AddItem(make_item(labels, "Last Image [End]", "L", kMsgLastImage, 'L'));
    view->AddSeparatorItem();
    view->AddItem(make_item(labels, "Full Screen [Enter]", "U", kMsgToggleFullScreen));
    view->AddSeparatorItem();
    for (int32 option = 0; option < kDisplayOptionCount; ++option) {
        fDisplayOptionItems[option] = make_item(labels, LKK_MITEM_DO[option], ACC_KEY_DO[option],
            create_display_option_message(kMsgChooseDisplayOption, option));
        view->AddItem(fDisplayOptionItems[option]);
    }
    view->AddSeparatorItem();
    fEnableCommentItem = make_item(labels, "Enable Comment", "C", kMsgToggleComment);
    view->AddItem(fEnableCommentItem);

    fill_tool_menu(add_menu(fMenuBar, labels, "Tool", "T"), labels);
    fill_help_menu(add_menu(fMenuBar, labels, "Help", "H"), labels);
    UpdateDisplayOptionCompos();
    UpdateEnableCommentCompos();
    fHistory.SetTgtMenu(fOpenMenu);
    GenerateMenuMRUF();
}

void TLorivaneWindow::DestroyMenu() {
    fHistory.SetTgtMenu(nullptr);
    fOpenMenu = nullptr;
    while (BMenu* menu = fMenuBar->SubmenuAt(0)) {
        fMenuBar->RemoveItem(menu);
        delete menu;
    }
    fDisplayOptionItems = {};
    fEnableCommentItem = nullptr;
}

void TLorivaneWindow::LanguageChanged() {
    DestroyMenu();
    CreateMenu();
}

void TLorivaneWindow::IAPChanged(BMessage* message) {
    const char* item = nullptr;
    if (message->FindString(kFieldSharedItem, &item) != B_OK ||
        item != std::string(kAccKeyFormatItem))
        return;
    // Once for all that wait, and not for what the menus show already.
    remove_waiting(*this, same_shared_item(*message));
    const std::string format = THintedLabels().Format();
    if (format == fMenuFormat)
        return;
    fHistory.SetAccFormat(format);
    DestroyMenu();
    CreateMenu();
}

void TLorivaneWindow::PrefDisplayOptionChanged() {
    UpdateDisplayOptionCompos();
}

void TLorivaneWindow::PrefEnableCommentChanged() {
    UpdateEnableCommentCompos();
}

// An option beyond those there are marks none.
void TLorivaneWindow::UpdateDisplayOptionCompos() {
    for (int32 option = 0; option < kDisplayOptionCount; ++option)
        fDisplayOptionItems[option]->SetMarked(option == gPrefs.fDisplayOption);
}

void TLorivaneWindow::UpdateEnableCommentCompos() {
    fEnableCommentItem->SetMarked(gPrefs.fEnableComment);
}
