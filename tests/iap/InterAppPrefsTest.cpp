#include "iap/InterAppPrefs.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"
#include "tests/iap/TestItem.h"

namespace {

using Entries = std::vector<std::string>;

TEST(InterAppPrefs, KnowsNothingAtFirst) {
    TInterAppPrefs store;
    bool flag = true;
    std::string text = "before";
    EXPECT_EQ(store.GetBool("Item", &flag), -1);
    EXPECT_EQ(store.SetBool("Item", true), -1);
    EXPECT_EQ(store.GetString("Item", &text), -1);
    EXPECT_EQ(store.SetString("Item", "text"), -1);
    EXPECT_EQ(store.SetValue(change_of("Item")), -1);
    EXPECT_EQ(store.NotifyToObservers(change_of("Item")), B_OK);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(store.AddItem(nullptr), -1);
}

TEST(InterAppPrefs, AnswersForTheItemOfTheName) {
    TInterAppPrefs store;
    EXPECT_EQ(store.AddItem(new TTestItem("One")), B_OK);
    EXPECT_EQ(store.AddItem(new TTestItem("Two")), B_OK);
    EXPECT_EQ(store.SetBool("One", true), B_OK);
    EXPECT_EQ(store.SetString("Two", "second"), B_OK);
    bool flag = false;
    std::string text;
    EXPECT_EQ(store.GetBool("One", &flag), B_OK);
    EXPECT_TRUE(flag);
    EXPECT_EQ(store.GetBool("Two", &flag), B_OK);
    EXPECT_FALSE(flag);
    EXPECT_EQ(store.GetString("One", &text), B_OK);
    EXPECT_EQ(text, "first");
    EXPECT_EQ(store.GetString("Two", &text), B_OK);
    EXPECT_EQ(text, "second");
    for (const char* name : {"one", "On", "One ", ""})
        EXPECT_EQ(store.GetString(name, &text), -1) << name;
}

TEST(InterAppPrefs, PassesOnThatAnItemHasNoSuchValue) {
    const TSharedFiles files;
    TInterAppPrefs store;
    (void)store.AddItem(new TIAPItemAccKeyFormat);
    (void)store.AddItem(new TIAPItemFlatToolBar);
    bool flag = false;
    std::string text;
    EXPECT_EQ(store.GetBool("AccKeyFormat2", &flag), -1);
    EXPECT_EQ(store.SetBool("AccKeyFormat2", true), -1);
    EXPECT_EQ(store.GetString("FlatToolBar", &text), -1);
    EXPECT_EQ(store.SetString("FlatToolBar", "text"), -1);
    EXPECT_EQ(store.GetString("AccKeyFormat2", &text), B_OK);
    EXPECT_EQ(text, "\2(a)");
    EXPECT_EQ(store.GetBool("FlatToolBar", &flag), B_OK);
    EXPECT_TRUE(flag);
}

TEST(InterAppPrefs, TellsItemsTheSignatureNowAndLater) {
    TInterAppPrefs store;
    auto* early = new TTestItem("Early");
    auto* late = new TTestItem("Late");
    (void)early->SetAppSignatureRef(kOtherApp);
    (void)store.AddItem(early);
    EXPECT_EQ(early->AppSignatureRef(), nullptr);
    EXPECT_EQ(store.SetAppSignatureRef(kOwnApp), B_OK);
    EXPECT_EQ(early->AppSignatureRef(), kOwnApp);
    (void)store.AddItem(late);
    EXPECT_EQ(late->AppSignatureRef(), kOwnApp);
}

TEST(InterAppPrefs, ReplacesAnItemAndDeletesItWithTheOthers) {
    TLog log;
    {
        TInterAppPrefs store;
        auto* earlier = new TTestItem("Item", &log, "earlier");
        (void)store.AddItem(earlier);
        (void)store.AddItem(new TTestItem("Other", &log));
        (void)store.SetString("Item", "of the earlier");
        EXPECT_EQ(store.AddItem(new TTestItem("Item", &log, "later")), B_OK);

        std::string text;
        EXPECT_EQ(store.GetString("Item", &text), B_OK);
        EXPECT_EQ(text, "first");
        EXPECT_EQ(store.SetValue(change_of("Item")), B_OK);
        EXPECT_EQ(log.Entries(), Entries{"later set"});
        // Whoever still has the earlier one may use it.
        EXPECT_EQ(earlier->GetString(&text, false), B_OK);
        EXPECT_EQ(text, "of the earlier");
    }
    Entries entries = log.Entries();
    std::sort(entries.begin(), entries.end());
    EXPECT_EQ(entries, (Entries{"Other deleted", "earlier deleted", "later deleted", "later set"}));
}

TEST(InterAppPrefs, OwnsAnItemThatIsAddedTwiceOnce) {
    TLog log;
    {
        TInterAppPrefs store;
        auto* item = new TTestItem("Item", &log);
        (void)store.AddItem(item);
        (void)store.AddItem(item);
    }
    EXPECT_EQ(log.Entries(), Entries{"Item deleted"});
}

}  // namespace
