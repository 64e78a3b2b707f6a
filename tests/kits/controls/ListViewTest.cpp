#include <chrono>
#include <interface/ListView.h>
#include <memory>
#include <string_view>

#include "tests/kits/controls/Receiver.h"

using namespace BPrivate;

namespace {

class ListViewTest : public ControlTest {
protected:
    void SetUp() override {
        fList = new BListView(BRect(10, 10, 109, 109), "list");
        Fill({"gif", "jpg", "png"});
        fList->SetSelectionMessage(new BMessage('sele'));
        fList->SetInvocationMessage(new BMessage('invo'));
        Add(fList);
        Show();
    }

    void Fill(const std::vector<const char*>& texts) {
        for (const char* text : texts) {
            fItems.push_back(std::make_unique<BStringItem>(text));
            ASSERT_TRUE(fList->AddItem(fItems.back().get()));
        }
    }
    ListViewState State() const {
        fWindow.Settle();
        return StateOf<ListViewState>("list");
    }
    void SelectAsUser(const std::vector<int32>& rows, int32 invoked = -1) {
        fWindow.Screen().SelectRows(OnScreen("list").id, rows, invoked);
    }

    using Texts = std::vector<std::string>;
    using Rows = std::vector<int32>;

    // Before the window of the base, which still shows them, they are gone: they leave it.
    std::vector<std::unique_ptr<BStringItem>> fItems;
    BListView* fList = nullptr;

    void TearDown() override {
        fWindow.Do([&] { fItems.clear(); });
    }
};

std::vector<int32> SelectedRows(const BMessage& message) {
    std::vector<int32> rows;
    int32 row = 0;
    for (int32 i = 0; message.FindInt32("index", i, &row) == B_OK; i++)
        rows.push_back(row);
    return rows;
}

}  // namespace

TEST_F(ListViewTest, ShowsItsRows) {
    EXPECT_EQ(State().rows, (Texts{"gif", "jpg", "png"}));
    EXPECT_TRUE(State().selected.empty());
    EXPECT_FALSE(State().multiple);
    EXPECT_FALSE(State().scrollBar);
    fWindow.Do([&] {
        fItems[1]->SetText("jpeg");
        fItems[2]->SetEnabled(false);
    });
    EXPECT_EQ(State().rows[1], "jpeg");
    EXPECT_EQ(State().disabled, Rows{2});
}

TEST_F(ListViewTest, ItemsComeAndGo) {
    BStringItem bmp("bmp");
    BStringItem odd("odd");
    fWindow.Do([&] {
        EXPECT_TRUE(fList->AddItem(&bmp, 0));
        EXPECT_FALSE(fList->AddItem(&bmp)) << "is in a list already";
        EXPECT_FALSE(fList->AddItem(&odd, 5));
        EXPECT_FALSE(fList->AddItem(&odd, -1));
        EXPECT_FALSE(fList->AddItem(nullptr));
        EXPECT_EQ(fList->CountItems(), 4);
        EXPECT_EQ(fList->IndexOf(fItems[0].get()), 1);
        EXPECT_EQ(fList->FirstItem(), &bmp);
        EXPECT_EQ(fList->LastItem(), fItems[2].get());
        EXPECT_EQ(fList->ItemAt(4), nullptr);
        EXPECT_EQ(fList->ItemAt(-1), nullptr);
    });
    EXPECT_EQ(State().rows, (Texts{"bmp", "gif", "jpg", "png"}));
    fWindow.Do([&] {
        EXPECT_EQ(fList->RemoveItem(1), fItems[0].get());
        EXPECT_EQ(fList->RemoveItem(7), nullptr);
        EXPECT_TRUE(fList->RemoveItem(&bmp));
        EXPECT_FALSE(fList->RemoveItem(&bmp));
        EXPECT_FALSE(fList->HasItem(&bmp));
    });
    EXPECT_EQ(State().rows, (Texts{"jpg", "png"}));
    fWindow.Do([&] {
        EXPECT_FALSE(fList->RemoveItems(0, 0));
        EXPECT_TRUE(fList->RemoveItems(1, 1000));
        EXPECT_EQ(fList->CountItems(), 1);
        fList->MakeEmpty();
        EXPECT_TRUE(fList->IsEmpty());
        EXPECT_TRUE(fList->AddItem(fItems[1].get()));
    });
    EXPECT_EQ(State().rows, Texts{"jpg"});
}

TEST_F(ListViewTest, AnItemThatIsDeletedLeaves) {
    fWindow.Do([&] { fItems.erase(fItems.begin()); });
    EXPECT_EQ(State().rows, (Texts{"jpg", "png"}));
}

TEST_F(ListViewTest, TheUserSelectsARow) {
    SelectAsUser({1});
    const auto messages = Received('sele');
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(SelectedRows(messages[0]), Rows{1});
    EXPECT_EQ(messages[0].GetPointer("source"), fList);
    EXPECT_GT(messages[0].GetInt64("when", 0), 0);
    fWindow.Do([&] {
        EXPECT_EQ(fList->CurrentSelection(), 1);
        EXPECT_EQ(fList->CurrentSelection(1), -1);
        EXPECT_TRUE(fList->IsItemSelected(1));
        EXPECT_FALSE(fList->IsItemSelected(9));
    });
    SelectAsUser({1});
    SelectAsUser({1, 2});  // one too many
    EXPECT_EQ(Received('sele').size(), 1U);
    SelectAsUser({});
    ASSERT_EQ(Received('sele').size(), 2U);
    EXPECT_TRUE(SelectedRows(Received('sele')[1]).empty());
    for (const int32 row : {-1, 3, 0x7fffffff})
        SelectAsUser({row});
    fWindow.Do([&] { EXPECT_EQ(fList->CurrentSelection(), -1); });
    EXPECT_TRUE(Received('invo').empty());
}

TEST_F(ListViewTest, ARowIsOpened) {
    SelectAsUser({2}, 2);
    ASSERT_EQ(Received('invo').size(), 1U);
    EXPECT_EQ(SelectedRows(Received('invo')[0]), Rows{2});
    SelectAsUser({2}, 1000);
    EXPECT_EQ(Received('invo').size(), 1U);
    fWindow.Do([&] { fList->MakeFocus(); });
    fWindow.Screen().KeyDown(B_ENTER, 0, 0, OnScreen("list").id);
    EXPECT_EQ(Received('invo').size(), 2U);
    fWindow.Do([&] { fList->DeselectAll(); });
    fWindow.Screen().KeyDown(B_ENTER, 0, 0, OnScreen("list").id);
    EXPECT_EQ(Received('invo').size(), 2U);
}

TEST_F(ListViewTest, TheProgramSelectsToo) {
    fWindow.Do([&] { fList->Select(1); });
    EXPECT_EQ(State().selected, Rows{1});
    EXPECT_EQ(Received('sele').size(), 1U);
    fWindow.Do([&] {
        fList->Select(1);
        fList->Select(9);
        fList->Select(-1);
        fList->Deselect(0);
    });
    EXPECT_EQ(Received('sele').size(), 1U) << "nothing changed";
    fWindow.Do([&] { fList->Select(2, true); });
    EXPECT_EQ(State().selected, Rows{2}) << "a list of single selection";
    fWindow.Do([&] { fList->Deselect(2); });
    EXPECT_TRUE(State().selected.empty());
    EXPECT_EQ(Received('sele').size(), 3U);
}

TEST_F(ListViewTest, SeveralRowsCanBeSelected) {
    fWindow.Do([&] {
        fList->SetListType(B_MULTIPLE_SELECTION_LIST);
        fList->Select(0);
        fList->Select(2, true);
    });
    EXPECT_TRUE(State().multiple);
    EXPECT_EQ(State().selected, (Rows{0, 2}));
    EXPECT_EQ(SelectedRows(Received('sele').back()), (Rows{0, 2}));
    fWindow.Do([&] {
        EXPECT_EQ(fList->CurrentSelection(1), 2);
        fList->Select(0, 1);
    });
    EXPECT_EQ(State().selected, (Rows{0, 1}));
    SelectAsUser({0, 1, 2});
    fWindow.Do([&] {
        EXPECT_EQ(fList->CurrentSelection(2), 2);
        fList->SetListType(B_SINGLE_SELECTION_LIST);
    });
    EXPECT_EQ(State().selected, Rows{0});
}

TEST_F(ListViewTest, TheHookIsToldBeforeTheMessage) {
    class Counting : public BListView {
    public:
        using BListView::BListView;
        void SelectionChanged() override {
            count++;
            MakeEmpty();  // the row that was opened is gone before it is
        }
        int count = 0;
    };
    BStringItem item("a");
    auto* list = new Counting(BRect(), "counting");
    list->SetInvocationMessage(new BMessage('open'));
    list->AddItem(&item);
    fWindow.Do([&] { Add(list); });
    fWindow.Screen().SelectRows(OnScreen("counting").id, {0}, 0);
    fWindow.Do([&] { EXPECT_EQ(list->count, 1); });
    EXPECT_TRUE(Received('open').empty());
}

TEST_F(ListViewTest, ADisabledRowIsNotSelected) {
    fWindow.Do([&] { fItems[1]->SetEnabled(false); });
    SelectAsUser({1});
    fWindow.Do([&] {
        EXPECT_EQ(fList->CurrentSelection(), -1);
        fList->Select(1);
        EXPECT_EQ(fList->CurrentSelection(), -1);
    });
}

TEST_F(ListViewTest, WhatIsSelectedStaysSoWhenRowsMove) {
    SelectAsUser({1});
    BStringItem bmp("bmp");
    fWindow.Do([&] { fList->AddItem(&bmp, 0); });
    EXPECT_EQ(State().selected, Rows{2});
    fWindow.Do([&] {
        fList->SortItems([](const void* a, const void* b) {
            const auto text = [](const void* item) {
                return std::string_view(
                    static_cast<const BStringItem*>(*static_cast<BListItem* const*>(item))->Text());
            };
            return text(b).compare(text(a));
        });
    });
    EXPECT_EQ(State().rows, (Texts{"png", "jpg", "gif", "bmp"}));
    EXPECT_EQ(State().selected, Rows{1});
    fWindow.Do([&] {
        EXPECT_EQ(fList->RemoveItem(1), fItems[1].get());
        EXPECT_FALSE(fItems[1]->IsSelected());
        fList->RemoveItem(&bmp);
    });
    EXPECT_TRUE(State().selected.empty());
}

TEST_F(ListViewTest, ScrollsToTheSelection) {
    const int32 before = State().scrollSerial;
    fWindow.Do([&] { fList->ScrollToSelection(); });
    EXPECT_EQ(State().scrollSerial, before);
    fWindow.Do([&] {
        fList->Select(2);
        fList->ScrollToSelection();
    });
    EXPECT_NE(State().scrollSerial, before);
}

TEST_F(ListViewTest, ThousandsOfRowsAreOneChange) {
    std::vector<std::unique_ptr<BStringItem>> many;
    for (int i = 0; i < 10000; i++)
        many.push_back(std::make_unique<BStringItem>(std::to_string(i).c_str()));
    State();
    const int32 before = OnScreen("list").serial;
    const auto start = std::chrono::steady_clock::now();
    fWindow.Do([&] {
        for (const auto& item : many)
            fList->AddItem(item.get());
    });
    EXPECT_EQ(State().rows.size(), 10003U);
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_LE(OnScreen("list").serial, before + 2);
    EXPECT_LT(taken, std::chrono::seconds(2)) << "far above what it takes; not thousands of states";
    fWindow.Do([&] { fList->MakeEmpty(); });
}

TEST_F(ListViewTest, CanBeDisabled) {
    fWindow.Do([&] { fList->SetEnabled(false); });
    EXPECT_FALSE(OnScreen("list").place.enabled);
    EXPECT_EQ(OnScreen("list").place.name, "");
}

TEST(ListViewArchive, IsMadeAgainAndOwnsWhatItMade) {
    BListView list(BRect(1, 2, 30, 40), "list", B_MULTIPLE_SELECTION_LIST);
    BStringItem a("a");
    BStringItem b("b");
    list.AddItem(&a);
    list.AddItem(&b);
    list.Select(1);
    a.SetEnabled(false);
    list.SetSelectionMessage(new BMessage('sele'));
    list.SetInvocationMessage(new BMessage('invo'));
    BMessage archive;
    ASSERT_EQ(list.Archive(&archive), B_OK);
    std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* copy = dynamic_cast<BListView*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->ListType(), B_MULTIPLE_SELECTION_LIST);
    ASSERT_EQ(copy->CountItems(), 2);
    EXPECT_STREQ(dynamic_cast<BStringItem*>(copy->ItemAt(1))->Text(), "b");
    EXPECT_FALSE(copy->ItemAt(0)->IsEnabled());
    EXPECT_EQ(copy->CurrentSelection(), 1);
    EXPECT_EQ(copy->SelectionCommand(), uint32('sele'));
    EXPECT_EQ(copy->InvocationCommand(), uint32('invo'));
    const std::unique_ptr<BListItem> mine(copy->RemoveItem(0));
    made.reset();
    EXPECT_FALSE(mine->IsSelected());
    list.MakeEmpty();
}

TEST(ListViewArchive, AbsurdOnesStillGiveAList) {
    BMessage archive;
    archive.AddString("class", "BListView");
    archive.AddInt32("_lv_type", 77);
    BMessage item;
    item.AddString("class", "TNobodyKnowsIt");
    archive.AddMessage("_l_items", &item);
    BMessage view;
    view.AddString("class", "BListView");
    archive.AddMessage("_l_items", &view);
    BMessage good;
    good.AddString("class", "BStringItem");
    good.AddBool("_sel", true);
    archive.AddMessage("_l_items", &good);
    archive.AddMessage("_l_items", &good);
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* list = dynamic_cast<BListView*>(made.get());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->CountItems(), 2);
    EXPECT_EQ(list->ListType(), B_SINGLE_SELECTION_LIST);
    EXPECT_EQ(list->CurrentSelection(0), 0);
    EXPECT_EQ(list->CurrentSelection(1), -1);
    BMessage other;
    other.AddString("class", "BView");
    EXPECT_EQ(BListView::Instantiate(&other), nullptr);
    EXPECT_EQ(BStringItem::Instantiate(&other), nullptr);
}
