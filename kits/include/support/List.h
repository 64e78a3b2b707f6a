#pragma once

#include <vector>

#include <support/SupportDefs.h>

/// A list of pointers in order. It does not own what they point to. Not for use from several
/// threads without a lock.
class BList {
public:
    /// `blockSize` items of room are reserved at first.
    explicit BList(int32 blockSize = 20);
    virtual ~BList();
    BList(const BList&);
    BList& operator=(const BList&);
    bool operator==(const BList& other) const { return fItems == other.fItems; }

    /// Appends, or inserts before the item at `index` (0 to CountItems()). False outside.
    bool AddItem(void* item);
    bool AddItem(void* item, int32 index);
    /// Adds all items of another list (which may be this one).
    bool AddList(const BList* list);
    bool AddList(const BList* list, int32 index);

    /// Removes the first place of an item. False if it has none.
    bool RemoveItem(void* item);
    /// Removes and returns the item at `index`, or null outside.
    void* RemoveItem(int32 index);
    /// Removes up to `count` items from `index` on. False outside.
    bool RemoveItems(int32 index, int32 count);
    bool ReplaceItem(int32 index, void* newItem);
    void MakeEmpty();

    /// Sorts with a function that is given pointers to two items and returns less than, equal
    /// to or more than 0.
    void SortItems(int (*compare)(const void*, const void*));
    bool SwapItems(int32 indexA, int32 indexB);
    /// Moves an item so that it ends up at `toIndex`.
    bool MoveItem(int32 fromIndex, int32 toIndex);

    /// The item at `index`, or null outside.
    void* ItemAt(int32 index) const;
    /// The item at an index known to be inside.
    void* ItemAtFast(int32 index) const { return fItems[static_cast<std::size_t>(index)]; }
    void* FirstItem() const;
    void* LastItem() const;
    bool HasItem(const void* item) const;
    /// The first place of an item, or -1.
    int32 IndexOf(const void* item) const;
    int32 CountItems() const { return static_cast<int32>(fItems.size()); }
    bool IsEmpty() const { return fItems.empty(); }
    /// The items one after the other, until the list is changed.
    void* Items() const { return const_cast<void**>(fItems.data()); }

    /// Calls `func` with each item until it returns true.
    void DoForEach(bool (*func)(void* item));
    void DoForEach(bool (*func)(void* item, void* arg), void* arg);

private:
    bool Contains(int32 index) const { return index >= 0 && index < CountItems(); }

    std::vector<void*> fItems;
};
