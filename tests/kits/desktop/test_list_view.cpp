#include <QAccessible>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <app/AppDefs.h>
#include <chrono>
#include <gtest/gtest.h>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

using Rows = std::vector<int32>;

Rows Selected(const BMessage& change) {
    Rows rows;
    int32 row = 0;
    for (int32 i = 0; change.FindInt32("selected", i, &row) == B_OK; i++)
        rows.push_back(row);
    return rows;
}

class ListViews : public testing::Test {
protected:
    void SetUp() override {
        fScreen.Show();
        fState.rows = {"gif", "jpg", "png", "tif"};
        Set();
        Place(false);
    }
    void Set() {
        fScreen.Window().SetControl(1, fState, ++fSerial);
        Pump();
    }
    void Place(bool focused) {
        ControlPlace place;
        place.name = "Extensions";
        place.frame = BRect(10, 10, 109, 109);
        place.navigable = true;
        place.focused = focused;
        fScreen.Window().PlaceControl(1, place);
        Pump();
    }
    QListWidget& List() { return *fScreen.Find<QListWidget>("Extensions"); }
    Rows SelectedRows() {
        Rows rows;
        for (const QModelIndex& index : List().selectionModel()->selectedIndexes())
            rows.push_back(index.row());
        std::ranges::sort(rows);
        return rows;
    }
    void Click(int row, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, held,
            List().visualItemRect(List().item(row)).center());
    }
    std::vector<BMessage> Changes() { return fScreen.Messages().All(kControlChanged); }

    Screen fScreen;
    ListViewState fState;
    int32 fSerial = 0;
};

}  // namespace

TEST_F(ListViews, ShowTheirRows) {
    EXPECT_EQ(List().count(), 4);
    EXPECT_EQ(List().item(3)->text().toStdString(), "tif");
    fState.rows = {"bmp", "gif"};
    fState.selected = {1};
    fState.disabled = {0};
    Set();
    EXPECT_EQ(List().count(), 2);
    EXPECT_EQ(List().item(0)->text().toStdString(), "bmp");
    EXPECT_EQ(SelectedRows(), Rows{1});
    EXPECT_FALSE(List().item(0)->flags() & Qt::ItemIsSelectable);
    fState.selected = {};
    fState.disabled = {};
    Set();
    EXPECT_TRUE(SelectedRows().empty());
    EXPECT_TRUE(List().item(0)->flags() & Qt::ItemIsSelectable);
    fState.rows = {};
    Set();
    EXPECT_EQ(List().count(), 0);
    EXPECT_TRUE(Changes().empty());
}

TEST_F(ListViews, AClickSelects) {
    Click(1);
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_EQ(Selected(change), Rows{1});
    EXPECT_FALSE(change.HasInt32("invoked"));
    Click(2);
    EXPECT_EQ(Selected(fScreen.Expect(kControlChanged, 2)), Rows{2});
    // The program may select what it was told of already.
    fState.selected = {2};
    Set();
    EXPECT_EQ(Changes().size(), 2U);
}

TEST_F(ListViews, SeveralRowsWhereTheListAllowsIt) {
    fState.multiple = true;
    Set();
    Click(0);
    Click(2, Qt::ControlModifier);
    EXPECT_EQ(Selected(fScreen.Expect(kControlChanged, 2)), (Rows{0, 2}));
    fState.selected = {0, 1, 3};
    Set();
    EXPECT_EQ(SelectedRows(), (Rows{0, 1, 3}));
}

TEST_F(ListViews, ADoubleClickOpens) {
    const QPoint where = List().visualItemRect(List().item(1)).center();
    Click(1);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, where);
    PumpUntil([&] { return !Changes().empty() && Changes().back().HasInt32("invoked"); });
    EXPECT_EQ(Changes().back().GetInt32("invoked", -1), 1);
    EXPECT_EQ(Selected(Changes().back()), Rows{1});
}

TEST_F(ListViews, KeysMoveTheSelection) {
    fState.selected = {1};
    Set();
    Place(true);
    PressKey(fScreen.Widget(), {Qt::Key_Down});
    EXPECT_EQ(Selected(fScreen.Expect(kControlChanged)), Rows{2});
    PressKey(fScreen.Widget(), {Qt::Key_Home});
    EXPECT_EQ(Selected(fScreen.Expect(kControlChanged, 2)), Rows{0});
    PressKey(fScreen.Widget(), {Qt::Key_P, "p"});
    EXPECT_EQ(Selected(fScreen.Expect(kControlChanged, 3)), Rows{2});
    // What opens a row, or leaves the list, is for the kits.
    PressKey(fScreen.Widget(), {Qt::Key_Return, "\r"});
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("control", 0), 1);
}

TEST_F(ListViews, HaveAScrollBarWhenTheyNeedOne) {
    EXPECT_EQ(List().frameShape(), QFrame::NoFrame);
    for (int i = 0; i < 100; i++)
        fState.rows.push_back("row " + std::to_string(i));
    Set();
    EXPECT_FALSE(List().verticalScrollBar()->isVisible());
    fState.scrollBar = true;
    fState.border = B_FANCY_BORDER;
    Set();
    EXPECT_TRUE(PumpUntil([&] { return List().verticalScrollBar()->isVisible(); }));
    EXPECT_EQ(List().frameShape(), QFrame::StyledPanel);
    fState.border = B_PLAIN_BORDER;
    Set();
    EXPECT_EQ(List().frameShape(), QFrame::Box);
    fState.rows.resize(2);
    Set();
    EXPECT_TRUE(PumpUntil([&] { return !List().verticalScrollBar()->isVisible(); }));
}

TEST_F(ListViews, ScrollToTheSelectionWhenAsked) {
    for (int i = 0; i < 100; i++)
        fState.rows.push_back("row " + std::to_string(i));
    fState.scrollBar = true;
    fState.selected = {90};
    Set();
    EXPECT_EQ(List().verticalScrollBar()->value(), 0);
    fState.scrollSerial++;
    Set();
    const auto isSeen = [&] {
        return List().viewport()->rect().contains(List().visualItemRect(List().item(90)).center());
    };
    EXPECT_TRUE(isSeen());
    // More rows leave it there.
    fState.rows.push_back("last");
    Set();
    EXPECT_TRUE(isSeen());
}

TEST_F(ListViews, ScrollWhenTheyAreShownForTheFirstTime) {
    ListViewState state;
    state.rows = std::vector<std::string>(100, "row");
    state.selected = {90};
    state.scrollSerial = 3;
    fScreen.Window().SetControl(2, state, 1);
    ControlPlace place;
    place.name = "Late";
    place.frame = BRect(120, 10, 209, 109);
    fScreen.Window().PlaceControl(2, place);
    Pump();
    auto* list = fScreen.Find<QListWidget>("Late");
    EXPECT_TRUE(list->viewport()->rect().contains(list->visualItemRect(list->item(90)).center()));
}

TEST_F(ListViews, ThousandsOfRowsAreQuick) {
    for (int i = 0; i < 10000; i++)
        fState.rows.push_back(std::to_string(i));
    const auto start = std::chrono::steady_clock::now();
    Set();
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(List().count(), 10004);
    EXPECT_LT(taken, std::chrono::seconds(1));
    RecordProperty("milliseconds",
        static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(taken).count()));
}

TEST_F(ListViews, AreListsToAssistiveTechnology) {
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&List());
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name).toStdString(), "Extensions");
    ASSERT_EQ(list->childCount(), 4);
    EXPECT_EQ(list->child(1)->role(), QAccessible::ListItem);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name).toStdString(), "jpg");
}

TEST(ListViewSize, IsThatOfItsRows) {
    ListViewState state;
    state.rows = {"a"};
    const BPoint one = TheDisplay().PreferredSize(state);
    state.rows = {"a", "a much longer row", "c"};
    const BPoint three = TheDisplay().PreferredSize(state);
    EXPECT_GT(three.x, one.x);
    EXPECT_FLOAT_EQ(three.y + 1, 3 * (one.y + 1));
}
