#include <QAction>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTranslator>
#include <QTreeView>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <storage/Entry.h>
#include <storage/FilePanel.h>
#include <storage/Path.h>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;
namespace fs = std::filesystem;

namespace {

/// A panel in a folder with a file, a folder and links.
class FilePanel : public testing::Test {
protected:
    void SetUp() override {
        std::string name = fs::temp_directory_path() / "panel-test-XXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        fFolder = fs::canonical(name);
        for (const char* file : {"a.png", "b.png", "it\"s.png", "\xe7\x8c\xab.png", ".hidden"})
            std::ofstream(fFolder / file) << "x";
        fs::create_directory(fFolder / "sub");
        std::ofstream(fFolder / "sub" / "inner.png") << "x";
        fs::create_symlink(fFolder / "a.png", fFolder / "link.png");
        fs::create_symlink(fFolder / "none", fFolder / "broken");
    }
    void TearDown() override {
        fScreen.reset();
        std::error_code ignored;
        fs::remove_all(fFolder, ignored);
    }

    void Show(uint32 flavors = B_ANY_NODE, bool multiple = true) {
        fState.folder = fFolder;
        fState.flavors = flavors;
        fState.multiple = multiple;
        fScreen->Window().SetControl(1, fState, 1);
        ControlPlace place;
        place.name = "files";
        place.frame = BRect(0, 0, 799, 599);
        place.focused = place.navigable = true;
        fScreen->Window().PlaceControl(1, place);
        fScreen->Show();
        WaitListed(fFolder);
    }
    /// Until the folder is shown with all that is in it, in order: folders come first.
    void WaitListed(const fs::path& folder) {
        const auto isSeen = [](const fs::directory_entry& entry) {
            return entry.exists() && !entry.path().filename().string().starts_with('.');
        };
        const fs::directory_iterator entries(folder);
        const auto count = std::count_if(begin(entries), end(entries), isSeen);
        const auto listed = [&] {
            const QModelIndex root = List().rootIndex();
            const QAbstractItemModel& model = *root.model();
            if (root.data(QFileSystemModel::FilePathRole).toString().toStdString() != folder ||
                model.rowCount(root) < count)
                return false;
            const auto name = [&](int row) {
                return fs::path(model.index(row, 0, root)
                                    .data(QFileSystemModel::FilePathRole)
                                    .toString()
                                    .toStdString());
            };
            for (int row = 1; row < model.rowCount(root); row++) {
                if (fs::is_directory(name(row)) && !fs::is_directory(name(row - 1)))
                    return false;
            }
            return true;
        };
        EXPECT_TRUE(PumpUntil(listed)) << folder;
        Pump();
    }

    QFileDialog& Dialog() { return *fScreen->Widget().findChild<QFileDialog*>(); }
    QLineEdit& Name() { return *Dialog().findChild<QLineEdit*>("fileNameEdit"); }
    /// The one of its views that is shown; both have the same rows and selection.
    QAbstractItemView& View() {
        if (List().isVisible())
            return List();
        return *Dialog().findChild<QTreeView*>("treeView");
    }
    QListView& List() { return *Dialog().findChild<QListView*>("listView"); }
    QPushButton& Button(QDialogButtonBox::StandardButton which) {
        return *Dialog().findChild<QDialogButtonBox*>("buttonBox")->button(which);
    }
    QModelIndex RowOf(const char* name) {
        const QModelIndex root = List().rootIndex();
        for (int row = 0; row < root.model()->rowCount(root); row++) {
            const QModelIndex index = root.model()->index(row, 0, root);
            if (index.data(QFileSystemModel::FileNameRole).toString() == QString::fromUtf8(name))
                return index;
        }
        return {};
    }
    void Click(const char* name, Qt::KeyboardModifiers modifiers = {}, bool twice = false) {
        ASSERT_TRUE(PumpUntil([&] { return RowOf(name).isValid(); })) << name;
        const QModelIndex row = RowOf(name);
        View().scrollTo(row);
        Pump();
        const QPoint where = View().visualRect(row).center();
        QTest::mouseClick(View().viewport(), Qt::LeftButton, modifiers, where);
        if (twice)
            QTest::mouseDClick(View().viewport(), Qt::LeftButton, modifiers, where);
        Pump();
    }
    void Type(const char* text) {
        Name().setFocus();
        Name().clear();
        QTest::keyClicks(&Name(), QString::fromUtf8(text));
        QTest::keyClick(&Name(), Qt::Key_Return);
        Pump();
    }
    std::vector<std::string> Names(const BMessage& message) {
        std::vector<std::string> names;
        entry_ref ref;
        for (int32 i = 0; message.FindRef("refs", i, &ref) == B_OK; i++)
            names.push_back(fs::path(BPath(&ref).Path()).lexically_relative(fFolder));
        return names;
    }
    /// What the panel told so far, one field each.
    std::vector<BMessage> Told(const char* field) {
        Pump();
        std::vector<BMessage> found;
        for (const BMessage& message : fScreen->Messages().All(kControlChanged)) {
            if (message.HasRef(field) || message.HasString(field) || message.HasBool(field))
                found.push_back(message);
        }
        return found;
    }
    BMessage WaitTold(const char* field, size_t count = 1) {
        EXPECT_TRUE(PumpUntil([&] { return Told(field).size() >= count; })) << field;
        const auto told = Told(field);
        return told.size() >= count ? told[count - 1] : BMessage();
    }
    QMessageBox* Complaint() { return Dialog().findChild<QMessageBox*>(); }

    fs::path fFolder;
    FilePanelState fState;
    std::unique_ptr<Screen> fScreen =
        std::make_unique<Screen>(WindowSpec{BRect(50, 60, 849, 659), "Window"});
};

}  // namespace

TEST_F(FilePanel, FillsItsPlaceAsAPartOfTheWindow) {
    Show();
    EXPECT_FALSE(Dialog().isWindow());
    EXPECT_TRUE(Dialog().isVisible());
    EXPECT_EQ(Dialog().size(), QSize(800, 600));
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_FALSE(Button(QDialogButtonBox::Open).isEnabled());
    EXPECT_FALSE(RowOf(".hidden").isValid());
}

TEST_F(FilePanel, GivesTheFileThatIsOpened) {
    Show();
    Click("b.png");
    EXPECT_EQ(Name().text().toStdString(), "b.png");
    Button(QDialogButtonBox::Open).click();
    EXPECT_THAT(Names(WaitTold("refs")), testing::ElementsAre("b.png"));
    EXPECT_TRUE(Dialog().isVisible());
    Click("a.png", {}, true);
    EXPECT_THAT(Names(WaitTold("refs", 2)), testing::ElementsAre("a.png"));
}

TEST_F(FilePanel, GivesFilesFoldersAndLinksTogether) {
    Show();
    Click("a.png");
    Click("sub", Qt::ControlModifier);
    Click("link.png", Qt::ControlModifier);
    Button(QDialogButtonBox::Open).click();
    EXPECT_THAT(Names(WaitTold("refs")), testing::UnorderedElementsAre("a.png", "sub", "link.png"));
}

TEST_F(FilePanel, LinksThatLeadNowhereAreLeftOnlyToThoseWhoAskForLinks) {
    Show();
    Click("broken");
    EXPECT_EQ(Name().text().toStdString(), "broken");
    // No size, as a folder.
    const auto& details = *Dialog().findChild<QTreeView*>("treeView");
    const auto sizeWidth = [&](const char* name) {
        const QModelIndex size = RowOf(name).siblingAtColumn(1);
        return details.itemDelegateForIndex(size)->sizeHint(QStyleOptionViewItem(), size).width();
    };
    EXPECT_EQ(sizeWidth("broken"), sizeWidth("sub"));
    EXPECT_GT(sizeWidth("a.png"), sizeWidth("sub"));
    Button(QDialogButtonBox::Open).click();
    EXPECT_THAT(Names(WaitTold("refs")), testing::ElementsAre("broken"));
    fState.flavors = B_FILE_NODE | B_DIRECTORY_NODE;
    fScreen->Window().SetControl(1, fState, 2);
    EXPECT_TRUE(PumpUntil([&] { return !RowOf("broken").isValid(); }));
    EXPECT_TRUE(RowOf("link.png").isValid());
}

TEST_F(FilePanel, AFolderIsChosenBySelectingItAndEnteredByADoubleClick) {
    Show();
    Click("a.png");
    Click("sub");  // and not the file before
    EXPECT_EQ(Name().text().toStdString(), "sub");
    Button(QDialogButtonBox::Open).click();
    EXPECT_THAT(Names(WaitTold("refs")), testing::ElementsAre("sub"));
    Click("sub", {}, true);
    EXPECT_EQ(fs::path(WaitTold("folder").GetString("folder", "")), fFolder / "sub");
    EXPECT_EQ(Told("refs").size(), 1U);
    WaitListed(fFolder / "sub");
    Click("inner.png");
    Button(QDialogButtonBox::Open).click();
    EXPECT_THAT(Names(WaitTold("refs", 2)), testing::ElementsAre("sub/inner.png"));
}

TEST_F(FilePanel, WhereFoldersCannotBeChosenOpenEntersThem) {
    Show(B_FILE_NODE);
    Click("a.png");
    Click("sub");
    Button(QDialogButtonBox::Open).click();
    WaitListed(fFolder / "sub");
    EXPECT_TRUE(Told("refs").empty());
    EXPECT_EQ(Told("folder").size(), 1U);
    EXPECT_EQ(Name().text().toStdString(), "");
}

TEST_F(FilePanel, OnlyFoldersCanBeAskedFor) {
    Show(B_DIRECTORY_NODE);
    Click("sub");
    Button(QDialogButtonBox::Open).click();
    EXPECT_THAT(Names(WaitTold("refs")), testing::ElementsAre("sub"));
    Type("a.png");
    ASSERT_NE(Complaint(), nullptr);
    Complaint()->close();
    EXPECT_EQ(Told("refs").size(), 1U);
}

TEST_F(FilePanel, OnlyOneCanBeAskedFor) {
    Show(B_ANY_NODE, false);
    Click("a.png");
    Click("b.png", Qt::ControlModifier);
    Button(QDialogButtonBox::Open).click();
    EXPECT_EQ(Names(WaitTold("refs")).size(), 1U);
    Type("\"a.png\" \"b.png\"");
    EXPECT_THAT(Names(WaitTold("refs", 2)), testing::ElementsAre("a.png"));
}

TEST_F(FilePanel, NamesMayHoldAnyCharacter) {
    Show();
    for (const char* name : {"it\"s.png", "\xe7\x8c\xab.png"}) {
        const size_t before = Told("refs").size();
        Click(name);
        EXPECT_TRUE(Button(QDialogButtonBox::Open).isEnabled());
        Button(QDialogButtonBox::Open).click();
        EXPECT_THAT(Names(WaitTold("refs", before + 1)), testing::ElementsAre(name));
    }
}

TEST_F(FilePanel, TypedNamesAreOpened) {
    Show();
    Type("a.png");
    EXPECT_THAT(Names(WaitTold("refs")), testing::ElementsAre("a.png"));
    Type((fFolder / "sub" / "inner.png").c_str());
    EXPECT_THAT(Names(WaitTold("refs", 2)), testing::ElementsAre("sub/inner.png"));
    Type(".hidden");
    EXPECT_THAT(Names(WaitTold("refs", 3)), testing::ElementsAre(".hidden"));
    Type("sub");
    EXPECT_THAT(Names(WaitTold("refs", 4)), testing::ElementsAre("sub"));
    Type("broken");
    EXPECT_THAT(Names(WaitTold("refs", 5)), testing::ElementsAre("broken"));
    Type("sub/");
    WaitListed(fFolder / "sub");
    Type("..");
    WaitListed(fFolder);
    EXPECT_EQ(Told("refs").size(), 5U);
}

TEST_F(FilePanel, AMissingNameIsComplainedOfAndNothingSent) {
    Show(B_FILE_NODE);
    for (const char* name : {"missing.png", "broken", "sub/missing"}) {
        Type(name);
        ASSERT_NE(Complaint(), nullptr) << name;
        EXPECT_TRUE(Complaint()->text().contains(u"not found")) << name;
        EXPECT_TRUE(Complaint()->isVisible());
        Complaint()->close();
        EXPECT_TRUE(PumpUntil([&] { return Complaint() == nullptr; }));
    }
    EXPECT_TRUE(Told("refs").empty());
    EXPECT_TRUE(Dialog().isVisible());
}

TEST_F(FilePanel, EscapeAndCancelGiveUp) {
    Show();
    PressKey(fScreen->Widget(), {Qt::Key_Escape, "\x1b"});
    EXPECT_TRUE(WaitTold("cancel").GetBool("cancel", false));
    Button(QDialogButtonBox::Cancel).click();
    (void)WaitTold("cancel", 2);
    EXPECT_TRUE(Dialog().isVisible());
    EXPECT_TRUE(fScreen->Messages().All(B_KEY_DOWN).empty());
}

TEST_F(FilePanel, KeysGoRoundInsideAndShortcutsWork) {
    Show();
    std::vector<QWidget*> seen;
    do {
        seen.push_back(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        Pump();
        ASSERT_TRUE(Dialog().isAncestorOf(QApplication::focusWidget()));
    } while (QApplication::focusWidget() != &Name() && seen.size() < 50);
    EXPECT_GE(seen.size(), 3U);
    EXPECT_LT(seen.size(), 50U);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), seen.back());
    EXPECT_TRUE(fScreen->Messages().All(B_KEY_DOWN).empty());
    // The window's own shortcuts come through.
    Name().setFocus();
    PressKey(fScreen->Widget(), {Qt::Key_W, "\x17", Qt::ControlModifier});
    EXPECT_EQ(fScreen->Expect(B_KEY_DOWN).GetInt32("raw_char", 0), 'w');
    PressKey(fScreen->Widget(), {Qt::Key_A, "\x01", Qt::ControlModifier});
    // And the dialog's, which are no keys of the window's.
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(Name().hasFocus());
    Click("sub", {}, true);
    WaitListed(fFolder / "sub");
    QTest::keyClick(&View(), Qt::Key_Backspace);
    WaitListed(fFolder);
    EXPECT_EQ(fScreen->Messages().All(B_KEY_DOWN).size(), 1U);
}

TEST_F(FilePanel, FollowsTheKitsToAFolderAndTellsTheUsers) {
    Show();
    fState.folder = fFolder / "sub";
    fScreen->Window().SetControl(1, fState, 2);
    Pump();
    WaitListed(fFolder);  // the same serial: where the user is counts
    fState.folderSerial++;
    fScreen->Window().SetControl(1, fState, 3);
    WaitListed(fFolder / "sub");
    EXPECT_TRUE(Told("folder").empty());
    Dialog().findChild<QWidget*>("toParentButton")->setFocus();
    QTest::keyClick(Dialog().findChild<QWidget*>("toParentButton"), Qt::Key_Space);
    EXPECT_EQ(fs::path(WaitTold("folder").GetString("folder", "")), fFolder);
}

TEST_F(FilePanel, StartsAboveAFolderThatIsGone) {
    const fs::path folder = fFolder;
    fState.folderSerial = 5;
    fFolder /= "gone/away";
    fState.folder = fFolder;
    fState.flavors = B_ANY_NODE;
    fScreen->Window().SetControl(1, fState, 1);
    ControlPlace place;
    place.frame = BRect(0, 0, 799, 599);
    fScreen->Window().PlaceControl(1, place);
    fScreen->Show();
    fFolder = folder;
    WaitListed(fFolder);
}

TEST_F(FilePanel, ItsSuggestionsGoWithIt) {
    Show();
    QTest::keyClicks(&Name(), "su");
    QWidget* suggestions = Name().completer()->popup();
    ASSERT_TRUE(PumpUntil([&] { return suggestions->isVisible(); }));
    fScreen->Window().Hide();
    EXPECT_TRUE(PumpUntil([&] { return !suggestions->isVisible(); }));
    suggestions->show();  // late, as after a folder was read
    EXPECT_TRUE(PumpUntil([&] { return !suggestions->isVisible(); }));
}

TEST_F(FilePanel, AFolderThatGoesOrCannotBeReadDoesNoHarm) {
    Show();
    Click("sub", {}, true);
    WaitListed(fFolder / "sub");
    fs::remove_all(fFolder / "sub");
    Pump();
    fs::create_directory(fFolder / "locked");
    fs::permissions(fFolder / "locked", fs::perms::none);
    fState.folder = fFolder / "locked";
    fState.folderSerial++;
    fScreen->Window().SetControl(1, fState, 2);
    Pump();
    fState.folder = fFolder;
    fState.folderSerial++;
    fScreen->Window().SetControl(1, fState, 3);
    WaitListed(fFolder);
    Click("a.png");
    Button(QDialogButtonBox::Open).click();
    EXPECT_THAT(Names(WaitTold("refs")), testing::ElementsAre("a.png"));
    fs::permissions(fFolder / "locked", fs::perms::owner_all);
}

TEST_F(FilePanel, IsClearedWhenItComesBack) {
    Show();
    Click("a.png");
    fScreen->Window().Hide();
    Pump();
    fScreen->Window().Show();
    fScreen->Window().Activate();
    ASSERT_TRUE(PumpUntil([&] { return Dialog().isVisible(); }));
    EXPECT_EQ(Name().text().toStdString(), "");
    for (const QModelIndex& row : List().selectionModel()->selectedRows())
        EXPECT_NE(row.parent(), List().rootIndex());
    EXPECT_EQ(fScreen->Widget().focusWidget(), &Name());
    WaitListed(fFolder);
}

TEST_F(FilePanel, ItsMenuShowsHiddenFilesAndIsNotInTheWayOfTheEnd) {
    Show();
    Q_EMIT View().customContextMenuRequested(QPoint(5, 5));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    menu->actions().front()->trigger();
    menu->close();
    EXPECT_TRUE(PumpUntil([&] { return RowOf(".hidden").isValid(); }));
    Q_EMIT View().customContextMenuRequested(QPoint(5, 5));
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    fScreen.reset();
    EXPECT_TRUE(PumpUntil([] { return QApplication::activePopupWidget() == nullptr; }));
}

TEST_F(FilePanel, ChangesNoFiles) {
    Show();
    Click("a.png");
    QTest::keyClick(&View(), Qt::Key_Delete);
    QTest::keyClick(&View(), Qt::Key_F2);
    QTest::keyClick(&View(), Qt::Key_Delete);
    Pump();
    EXPECT_TRUE(fs::exists(fFolder / "a.png"));
    EXPECT_FALSE(Dialog().findChild<QWidget*>("newFolderButton")->isVisible());
}

TEST_F(FilePanel, ItsButtonsAreLabelledByTheDesktopOrTheKits) {
    Show();
    const QString open = Button(QDialogButtonBox::Open).text();
    const QString cancel = Button(QDialogButtonBox::Cancel).text();
    fState.openLabel = "Take & go";
    fState.cancelLabel = "Leave";
    fScreen->Window().SetControl(1, fState, 2);
    Pump();
    const auto expectOwn = [&] {
        EXPECT_EQ(Button(QDialogButtonBox::Open).text().toStdString(), "Take && go");
        EXPECT_EQ(Button(QDialogButtonBox::Cancel).text().toStdString(), "Leave");
    };
    expectOwn();
    QTranslator other;
    QCoreApplication::installTranslator(&other);
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&Dialog(), &languageChange);
    Pump();
    expectOwn();
    QCoreApplication::removeTranslator(&other);
    fState.openLabel.clear();
    fState.cancelLabel.clear();
    fScreen->Window().SetControl(1, fState, 3);
    Pump();
    EXPECT_EQ(Button(QDialogButtonBox::Open).text(), open);
    EXPECT_EQ(Button(QDialogButtonBox::Cancel).text(), cancel);
}
