#include <support/List.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

BList::BList(int32 blockSize) {
    // A hint from the caller, so a wild one must not cost anything.
    constexpr int32 kMostReserved = 1 << 16;
    fItems.reserve(static_cast<std::size_t>(std::clamp(blockSize, 0, kMostReserved)));
}

BList::~BList() = default;
BList::BList(const BList&) = default;
BList& BList::operator=(const BList&) = default;

bool BList::AddItem(void* item) {
    fItems.push_back(item);
    return true;
}

bool BList::AddItem(void* item, int32 index) {
    if (index < 0 || index > CountItems())
        return false;
    fItems.insert(fItems.begin() + index, item);
    return true;
}

bool BList::AddList(const BList* list) {
    return AddList(list, CountItems());
}

bool BList::AddList(const BList* list, int32 index) {
    if (list == nullptr || index < 0 || index > CountItems())
        return false;
    const std::vector<void*> added = list->fItems;
    fItems.insert(fItems.begin() + index, added.begin(), added.end());
    return true;
}

bool BList::RemoveItem(void* item) {
    const int32 index = IndexOf(item);
    if (index < 0)
        return false;
    fItems.erase(fItems.begin() + index);
    return true;
}

void* BList::RemoveItem(int32 index) {
    if (!Contains(index))
        return nullptr;
    void* const item = ItemAtFast(index);
    fItems.erase(fItems.begin() + index);
    return item;
}

bool BList::RemoveItems(int32 index, int32 count) {
    if (!Contains(index) || count < 0)
        return false;
    const auto first = fItems.begin() + index;
    fItems.erase(first, first + min_c(count, CountItems() - index));
    return true;
}

bool BList::ReplaceItem(int32 index, void* newItem) {
    if (!Contains(index))
        return false;
    fItems[static_cast<std::size_t>(index)] = newItem;
    return true;
}

void BList::MakeEmpty() {
    fItems.clear();
}

void BList::SortItems(int (*compare)(const void*, const void*)) {
    // Unlike std::sort, qsort() stays inside the array when `compare` contradicts itself.
    if (compare != nullptr && !fItems.empty())
        std::qsort(fItems.data(), fItems.size(), sizeof(void*), compare);
}

bool BList::SwapItems(int32 indexA, int32 indexB) {
    if (!Contains(indexA) || !Contains(indexB))
        return false;
    std::swap(fItems[static_cast<std::size_t>(indexA)], fItems[static_cast<std::size_t>(indexB)]);
    return true;
}

bool BList::MoveItem(int32 fromIndex, int32 toIndex) {
    if (!Contains(fromIndex) || !Contains(toIndex))
        return false;
    const auto from = fItems.begin() + fromIndex;
    const auto to = fItems.begin() + toIndex;
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    return true;
}

void* BList::ItemAt(int32 index) const {
    return Contains(index) ? ItemAtFast(index) : nullptr;
}

void* BList::FirstItem() const {
    return ItemAt(0);
}

void* BList::LastItem() const {
    return ItemAt(CountItems() - 1);
}

bool BList::HasItem(const void* item) const {
    return IndexOf(item) >= 0;
}

int32 BList::IndexOf(const void* item) const {
    const auto found = std::find(fItems.begin(), fItems.end(), item);
    return found == fItems.end() ? -1 : static_cast<int32>(found - fItems.begin());
}

void BList::DoForEach(bool (*func)(void* item)) {
    // By index: the function may change the list.
    for (int32 i = 0; func != nullptr && i < CountItems(); i++) {
        if (func(ItemAtFast(i)))
            return;
    }
}

void BList::DoForEach(bool (*func)(void* item, void* arg), void* arg) {
    for (int32 i = 0; func != nullptr && i < CountItems(); i++) {
        if (func(ItemAtFast(i), arg))
            return;
    }
}
