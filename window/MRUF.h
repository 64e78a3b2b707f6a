#pragma once

#include <app/Message.h>
#include <deque>
#include <string>
#include <support/SupportDefs.h>

#include "framework/Archivable.h"

class BHandler;
class BMenu;

/// The files that were opened most recently, newest first, kept in a settings file and shown as
/// items of a menu.
///
/// The archive has one string "MRUF" for each entry, the oldest first.
///
/// Threads: where it is used with a menu, under the lock of that menu's window.
class TMRUF : public TArchivable {
public:
    TMRUF();

    status_t Archive(BMessage* archive) const override;
    /// Replaces the entries by those of the archive.
    /// @return 0, however many there are.
    status_t Unarchive(const BMessage& archive) override;

    /// Puts the path at the front, from wherever it is listed. The oldest beyond the most that are
    /// kept are dropped. An empty path or a null one names no file and is not taken.
    void AddMRUF(const char* path);
    /// Takes the entry out and hands its path over; empty when there is none at that index.
    std::string RemoveMRUF(int32 index);
    /// Nothing happens when the path is not listed.
    void RemoveMRUF(const char* path);
    void ClearMRUF();

    /// The index of the very same path; -1 for none.
    int32 FindMRUF(const char* path) const;
    /// Null for none. Valid until the list is changed.
    const char* MRUFAt(int32 index) const;
    int32 CountMRUFs() const { return static_cast<int32>(fPaths.size()); }

    /// How many entries are kept, brought into 1 to 20. What is too much is dropped at once.
    void SetMaxMRUF(int32 count);
    /// Whether the items of the first entries have keyboard shortcuts.
    void SetShowSC(bool show) { fShowShortcuts = show; }
    /// Where in the menu the first item goes; not below 0.
    void SetTgtBase(int32 index);
    /// The number that the newest entry's key stands for.
    void SetTriggerBase(int32 number) { fTriggerBase = number; }
    /// Who gets the items' messages. Borrowed.
    void SetTgtHandler(BHandler* handler) { fTargetHandler = handler; }
    /// Where GenerateMenu() puts the items; null for nowhere. Borrowed.
    void SetTgtMenu(BMenu* menu) { fTargetMenu = menu; }
    /// What the items send, `B_REFS_RECEIVED` at first, with "refs" added. Copied.
    void SetMessage(const BMessage* message);
    /// How the items' labels show their keys; see framework/Accelerator.h.
    void SetAccFormat(const std::string& format) { fAccFormat = format; }

    /// Makes the items of the target menu anew: those from the target base to the first separator
    /// are deleted, and one is added for each entry.
    void GenerateMenu();

private:
    void DeleteExtraMRUF();
    void DeleteItems();
    void AddItem(int32 index);

    bool fShowShortcuts = false;
    int32 fTargetBase = 0;
    int32 fTriggerBase = 0;
    int32 fMax = 10;
    std::deque<std::string> fPaths;  // the newest first
    std::string fAccFormat;
    BHandler* fTargetHandler = nullptr;
    BMenu* fTargetMenu = nullptr;
    BMessage fMessage;
};
