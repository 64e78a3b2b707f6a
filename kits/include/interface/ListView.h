#pragma once

#include <app/Invoker.h>
#include <interface/GraphicsDefs.h>
#include <interface/ListItem.h>
#include <interface/View.h>
#include <memory>
#include <vector>

enum list_view_type { B_SINGLE_SELECTION_LIST, B_MULTIPLE_SELECTION_LIST };

/// A list of rows of which one, or several, can be selected. Selecting sends the selection
/// message, by the user as by the program; a double click or Enter on a row sends the invocation
/// message, which is the one of BInvoker. Both carry "when" (int64), "source" (pointer to this)
/// and for every selected row an "index" (int32), ascending.
///
/// Items. The list does not own those that were added to it: whoever adds them deletes them, in
/// the list or once they are out of it. Those that came from the list's own archive belong to the
/// list, until one of the removing functions hands them over to the caller.
///
/// In a BScrollView it has the desktop's own scroll bar and border. Belongs to its window's thread.
class BListView : public BView, public BInvoker {
public:
    BListView(BRect frame, const char* name, list_view_type type = B_SINGLE_SELECTION_LIST,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE);
    /// From an archive: BView's fields and "_lv_type" int32, "_disable" bool, "_l_items" the
    /// items' archives, "_msg" the invocation and "_2nd_msg" the selection message. What is no
    /// list item is left out.
    explicit BListView(BMessage* archive);
    ~BListView() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    // The items. An index that does not exist, and an item of another list, is refused: false or
    // null. What is selected stays selected when rows move.

    virtual bool AddItem(BListItem* item);
    /// Before the item of that index; at the end for the number of items.
    virtual bool AddItem(BListItem* item, int32 index);
    virtual bool RemoveItem(BListItem* item);
    /// The item, which belongs to the caller.
    virtual BListItem* RemoveItem(int32 index);
    virtual bool RemoveItems(int32 index, int32 count);
    /// Removes all items and deletes none.
    virtual void MakeEmpty();
    BListItem* ItemAt(int32 index) const;
    BListItem* FirstItem() const { return ItemAt(0); }
    BListItem* LastItem() const { return ItemAt(CountItems() - 1); }
    /// -1 when it is not in this list.
    int32 IndexOf(const BListItem* item) const;
    bool HasItem(const BListItem* item) const { return IndexOf(item) >= 0; }
    int32 CountItems() const { return static_cast<int32>(fItems.size()); }
    bool IsEmpty() const { return fItems.empty(); }
    /// Shows the row again after its item changed.
    void InvalidateItem(int32 index);
    /// Calls the function for every item until it answers true.
    void DoForEach(bool (*function)(BListItem* item));
    /// Sorts like qsort() does an array of pointers to items.
    void SortItems(int (*compare)(const void* first, const void* second));

    // The selection.

    /// The index of the nth selected row; -1 when there is none.
    int32 CurrentSelection(int32 nth = 0) const;
    bool IsItemSelected(int32 index) const;
    /// Selects the row; with `extend`, in a list of multiple selection, besides the others. Sends
    /// the selection message unless nothing changes.
    void Select(int32 index, bool extend = false);
    void Select(int32 first, int32 last, bool extend = false);
    void Deselect(int32 index);
    void DeselectAll();
    /// Scrolls the first selected row into sight.
    void ScrollToSelection();
    /// Hook: other rows are selected now, by the user or the program.
    virtual void SelectionChanged();

    /// A list of single selection keeps the first selected row only.
    virtual void SetListType(list_view_type type);
    list_view_type ListType() const { return fType; }

    /// Takes ownership; null for none.
    virtual void SetSelectionMessage(BMessage* message);
    BMessage* SelectionMessage() const { return fSelectionMessage.get(); }
    uint32 SelectionCommand() const;
    /// Takes ownership; null for none.
    virtual void SetInvocationMessage(BMessage* message);
    BMessage* InvocationMessage() const { return Message(); }
    uint32 InvocationCommand() const { return Command(); }

    /// Sends the message given, or else the invocation message, to the target with the fields
    /// named above. `B_BAD_VALUE` when there is neither.
    status_t Invoke(BMessage* message = nullptr) override;

    /// A disabled list cannot be operated by the user.
    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const { return fEnabled; }

    /// Without a target the window becomes it.
    void AttachedToWindow() override;
    void KeyDown(const char* bytes, int32 numBytes) override;
    /// Wide enough for the widest row, and as high as all of them.
    void GetPreferredSize(float* width, float* height) override;

private:
    friend class BListItem;
    friend class BScrollView;
    class Peer;

    static void _LetGo(BListItem* item);
    void _ItemGone(BListItem* item);
    std::vector<bool> _Selected() const;
    void _Select(const std::vector<bool>& wanted);
    bool _Adopt(const std::vector<bool>& wanted);  // true when it changed something
    void _Notify();
    void _StateChanged();
    void _SetScrolled(bool scrollBar, border_style border);

    std::vector<BListItem*> fItems;
    std::unique_ptr<BMessage> fSelectionMessage;
    list_view_type fType = B_SINGLE_SELECTION_LIST;
    int32 fScrollSerial = 0;
    border_style fBorder = B_NO_BORDER;
    bool fScrollBar = false;
    bool fEnabled = true;
};
