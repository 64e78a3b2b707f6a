#include <gtest/gtest.h>

#include <string>

#include <support/List.h>

namespace {

char kLetters[] = "abcdefgh";

/// A list of letters, and back.
BList list_of(const std::string& text) {
    BList list;
    for (const char letter : text)
        list.AddItem(&kLetters[letter - 'a']);
    return list;
}

std::string text_of(const BList& list) {
    std::string text;
    for (int32 i = 0; i < list.CountItems(); i++)
        text += *static_cast<char*>(list.ItemAt(i));
    return text;
}

void* item(char letter) {
    return &kLetters[letter - 'a'];
}

}  // namespace

TEST(List, AddsAtPlacesInside) {
    BList list(INT32_MAX);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_TRUE(list.AddItem(item('b')));
    EXPECT_TRUE(list.AddItem(item('a'), 0));
    EXPECT_TRUE(list.AddItem(item('d'), 2));
    EXPECT_TRUE(list.AddItem(item('c'), 2));
    EXPECT_FALSE(list.AddItem(item('a'), 5));
    EXPECT_FALSE(list.AddItem(item('a'), -1));
    EXPECT_EQ(text_of(list), "abcd");
    EXPECT_TRUE(list.AddItem(nullptr));
    EXPECT_TRUE(list.HasItem(nullptr));

    BList more = list_of("ab");
    const BList others = list_of("cd");
    EXPECT_TRUE(more.AddList(&others));
    EXPECT_TRUE(more.AddList(&more, 1));
    EXPECT_EQ(text_of(more), "aabcdbcd");
    EXPECT_FALSE(more.AddList(nullptr));
    EXPECT_FALSE(more.AddList(&others, 9));
}

TEST(List, RemovesAndReplaces) {
    BList list = list_of("abcabc");
    EXPECT_TRUE(list.RemoveItem(item('b')));
    EXPECT_EQ(text_of(list), "acabc");
    EXPECT_FALSE(list.RemoveItem(item('h')));
    EXPECT_EQ(list.RemoveItem(int32{1}), item('c'));
    EXPECT_EQ(list.RemoveItem(int32{4}), nullptr);
    EXPECT_EQ(list.RemoveItem(int32{-1}), nullptr);
    EXPECT_EQ(text_of(list), "aabc");
    EXPECT_TRUE(list.RemoveItems(1, 2));
    EXPECT_EQ(text_of(list), "ac");
    EXPECT_TRUE(list.RemoveItems(1, INT32_MAX));
    EXPECT_FALSE(list.RemoveItems(1, 1));
    EXPECT_FALSE(list.RemoveItems(0, -1));
    EXPECT_TRUE(list.ReplaceItem(0, item('h')));
    EXPECT_FALSE(list.ReplaceItem(1, item('h')));
    EXPECT_EQ(text_of(list), "h");
    list.MakeEmpty();
    EXPECT_EQ(list.CountItems(), 0);
    EXPECT_EQ(list.FirstItem(), nullptr);
    EXPECT_EQ(list.LastItem(), nullptr);
}

TEST(List, FindsItems) {
    const BList list = list_of("abca");
    EXPECT_EQ(list.IndexOf(item('a')), 0);
    EXPECT_EQ(list.IndexOf(item('c')), 2);
    EXPECT_EQ(list.IndexOf(item('h')), -1);
    EXPECT_EQ(list.FirstItem(), item('a'));
    EXPECT_EQ(list.LastItem(), item('a'));
    EXPECT_EQ(list.ItemAt(4), nullptr);
    EXPECT_EQ(list.ItemAt(-1), nullptr);
    EXPECT_EQ(static_cast<void**>(list.Items())[1], item('b'));
    EXPECT_TRUE(list == list_of("abca"));
    EXPECT_FALSE(list == list_of("abc"));
    BList copy = list_of("h");
    copy = list;
    EXPECT_EQ(text_of(copy), "abca");
}

TEST(List, OrdersItems) {
    BList list = list_of("cabd");
    list.SortItems([](const void* a, const void* b) {
        return **static_cast<char* const*>(a) - **static_cast<char* const*>(b);
    });
    EXPECT_EQ(text_of(list), "abcd");
    list.SortItems(nullptr);
    // A comparison that makes no sense may order anyhow, but no item may be lost.
    list.SortItems([](const void*, const void*) { return 1; });
    EXPECT_EQ(list.CountItems(), 4);
    EXPECT_TRUE(list.HasItem(item('a')) && list.HasItem(item('d')));
    BList().SortItems([](const void*, const void*) { return 0; });

    BList moved = list_of("abcd");
    EXPECT_TRUE(moved.SwapItems(0, 3));
    EXPECT_EQ(text_of(moved), "dbca");
    EXPECT_FALSE(moved.SwapItems(0, 4));
    EXPECT_TRUE(moved.MoveItem(0, 2));
    EXPECT_EQ(text_of(moved), "bcda");
    EXPECT_TRUE(moved.MoveItem(3, 0));
    EXPECT_EQ(text_of(moved), "abcd");
    EXPECT_TRUE(moved.MoveItem(1, 1));
    EXPECT_FALSE(moved.MoveItem(-1, 0));
    EXPECT_FALSE(moved.MoveItem(0, 4));
    EXPECT_EQ(text_of(moved), "abcd");
}

TEST(List, GoesThroughItemsUntilToldToStop) {
    static std::string seen;
    seen.clear();
    BList list = list_of("abcd");
    list.DoForEach([](void* i) {
        seen += *static_cast<char*>(i);
        return false;
    });
    EXPECT_EQ(seen, "abcd");
    std::string text;
    list.DoForEach(
        [](void* i, void* arg) {
            *static_cast<std::string*>(arg) += *static_cast<char*>(i);
            return *static_cast<char*>(i) == 'b';
        },
        &text);
    EXPECT_EQ(text, "ab");
    list.DoForEach(
        [](void*, void* arg) { return static_cast<BList*>(arg)->RemoveItem(int32{0}) == nullptr; },
        &list);
    EXPECT_EQ(text_of(list), "cd");
}
