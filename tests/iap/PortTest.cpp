// The common preferences window as other applications reach it: by its port.

#include <app/MessageQueue.h>
#include <gmock/gmock.h>

#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"
#include "iap/IAPPortManager.h"
#include "tests/iap/WindowFixture.h"

namespace {

using recording::WaitFor;
using testing::ElementsAre;
using testing::IsEmpty;

port_id the_port() {
    return find_port("ZELKANIAPPort");
}

void write_bytes(port_id port, const std::string& bytes, int32 code = 0) {
    EXPECT_EQ(write_port_etc(
                  port, code, bytes.data(), bytes.size(), B_RELATIVE_TIMEOUT, 20 * 1000 * 1000),
        B_OK);
}

std::string bytes_of(const BMessage& message) {
    std::string bytes(static_cast<size_t>(message.FlattenedSize()), '\0');
    EXPECT_EQ(message.Flatten(bytes.data(), static_cast<ssize_t>(bytes.size())), B_OK);
    return bytes;
}

/// The next message of a port that a test reads itself.
BMessage next_of(port_id port) {
    const ssize_t size = port_buffer_size_etc(port, B_RELATIVE_TIMEOUT, 20 * 1000 * 1000);
    EXPECT_GT(size, 0);
    std::string bytes(size > 0 ? static_cast<size_t>(size) : 0, '\0');
    int32 code = -1;
    EXPECT_EQ(read_port(port, &code, bytes.data(), bytes.size()), size);
    EXPECT_EQ(code, 0);
    BMessage message;
    EXPECT_EQ(message.Unflatten(bytes.data(), size), B_OK);
    return message;
}

class IAPPortTest : public TIAPFixture {
protected:
    /// Opens it by the store, as an application does.
    void OpenByStore() {
        EXPECT_EQ(fStore.ShowWindow(BRect(100, 120, 700, 620)), B_OK);
        AdoptWindow();
    }
    void AdoptWindow() {
        fScreen = recording::TheRecordingDisplay().WaitForWindow("ZELKAN Common Preferences");
        ASSERT_NE(fScreen, nullptr);
        for (int32 i = 0; i < fApp.CountWindows(); i++) {
            if (auto* window = dynamic_cast<TIAPWindow*>(fApp.WindowAt(i)); window != nullptr)
                fWindow = window;
        }
        ASSERT_NE(fWindow, nullptr);
        fView = fWindow->View();
    }
    bool HasComponents(const std::vector<std::string>& names) {
        return WaitFor([&] { return ComponentNames() == names; });
    }
    /// Until all that was written before has been read, and dealt with.
    void AwaitPort(const std::string& mark) {
        write_bytes(fWindow->Port(), bytes_of(request_of({mark})));
        EXPECT_TRUE(WaitFor([&] {
            return with_lock(fWindow, [&] { return fWindow->FindView(mark.c_str()); }) != nullptr;
        }));
        Settle();
    }
};

// #pragma mark - The thread and its port

TEST_F(IAPPortTest, LivesAsLongAsTheWindow) {
    EXPECT_LT(the_port(), B_OK);
    fWindow = new TIAPWindow(BRect(100, 120, 700, 620));
    fView = fWindow->View();
    EXPECT_EQ(fWindow->Port(), -400);
    EXPECT_LT(the_port(), B_OK);
    fWindow->Show();
    ASSERT_TRUE(WaitFor([&] { return fWindow->Port() != -400; }));
    EXPECT_GT(fWindow->Port(), 0);
    EXPECT_EQ(the_port(), fWindow->Port());

    const thread_id thread = find_thread("IAPPortManager");
    thread_info info;
    ASSERT_EQ(get_thread_info(thread, &info), B_OK);
    EXPECT_EQ(info.priority, 10);

    Do(kMsgCancel);
    EXPECT_EQ(the_port(), fWindow->Port());
    Quit();
    EXPECT_LT(the_port(), B_OK);
    EXPECT_NE(get_thread_info(thread, &info), B_OK);
}

TEST_F(IAPPortTest, AWindowThatEndsAtOnceTakesItsThreadAlong) {
    for (int i = 0; i < 20; i++) {
        fWindow = new TIAPWindow(BRect(100, 120, 700, 620));
        fWindow->Show();
        Quit();
        EXPECT_LT(the_port(), B_OK);
    }
}

TEST_F(IAPPortTest, FailsWhenThePortIsAnothers) {
    const port_id other = create_port(1, "ZELKANIAPPort");
    ASSERT_GT(other, 0);
    Open();
    EXPECT_TRUE(WaitFor([&] { return fWindow->Port() == -500; }));
    TIAPPortManager manager{BMessenger(fView)};
    ASSERT_EQ(manager.Resume(), B_OK);
    int32 status = 0;
    EXPECT_EQ(manager.Wait(&status), B_OK);
    EXPECT_EQ(status, -1);
    EXPECT_EQ(manager.Port(), -500);
    Quit();
    EXPECT_EQ(delete_port(other), B_OK);
}

TEST_F(IAPPortTest, TakesTheRequestsOfTheProtocol) {
    Open();
    ASSERT_TRUE(WaitFor([&] { return fWindow->Port() > 0; }));
    // Whatever the code says.
    write_bytes(fWindow->Port(), bytes_of(request_of({"First"})), 17);
    EXPECT_TRUE(HasComponents({"First"}));
    Do(kMsgOK);
    EXPECT_FALSE(fScreen->IsShown());
    write_bytes(fWindow->Port(), bytes_of(BMessage(kMsgActivateSharedWindow)));
    EXPECT_TRUE(WaitFor([&] { return fScreen->IsShown(); }));
    write_bytes(fWindow->Port(), bytes_of(BMessage('_QRQ')));
    EXPECT_TRUE(WaitFor([&] { return !fScreen->IsShown(); }));
    EXPECT_TRUE(fScreen->IsOpen());
}

TEST_F(IAPPortTest, BytesThatAreNoMessageCountAsTheLastOneOnceMore) {
    Open();
    ASSERT_TRUE(WaitFor([&] { return fWindow->Port() > 0; }));
    for (const std::string& bytes :
        {bytes_of(BMessage(kMsgActivateSharedWindow)), std::string("no message"), std::string()}) {
        Do(kMsgOK);
        EXPECT_FALSE(fScreen->IsShown());
        write_bytes(fWindow->Port(), bytes);
        ASSERT_TRUE(WaitFor([&] { return fScreen->IsShown(); }));
    }
}

TEST_F(IAPPortTest, TakesNothingElse) {
    Open();
    ASSERT_TRUE(WaitFor([&] { return fWindow->Port() > 0; }));
    AwaitPort("First");
    Click("First(X)", 0);
    (void)Broadcasts();
    BMessage change(kMsgSharedControlChanged);
    change.AddString("IAP:SrcIAPItem", "First");
    for (const uint32 command : {kMsgOK, kMsgCancel, kMsgDefaults, kMsgLanguageChanged,
             kMsgSharedItemChanged, kMsgShowPrefs})
        write_bytes(fWindow->Port(), bytes_of(BMessage(command)));
    write_bytes(fWindow->Port(), bytes_of(change));
    AwaitPort("Second");
    EXPECT_THAT(Broadcasts(), IsEmpty());
    EXPECT_TRUE(fScreen->IsShown());
}

TEST_F(IAPPortTest, SurvivesGarbage) {
    Open();
    ASSERT_TRUE(WaitFor([&] { return fWindow->Port() > 0; }));
    const std::string good = bytes_of(request_of({"First"}));
    write_bytes(fWindow->Port(), "");
    write_bytes(fWindow->Port(), "no message");
    write_bytes(fWindow->Port(), good.substr(0, good.size() - 1));
    for (size_t at = 0; at < good.size(); at += 97) {
        std::string bad = good;
        bad[at] = static_cast<char>(bad[at] ^ 0x40);
        write_bytes(fWindow->Port(), bad);
    }
    EXPECT_THAT(ComponentNames(), IsEmpty());
    AwaitPort("Last");
    EXPECT_THAT(ComponentNames(), ElementsAre("Last"));
}

TEST_F(IAPPortTest, DropsWhatIsTooLarge) {
    Open();
    ASSERT_TRUE(WaitFor([&] { return fWindow->Port() > 0; }));
    BMessage large = request_of({"Large"});
    const std::string bytes(2 * 1024 * 1024, 'x');
    large.AddData("bytes", B_RAW_TYPE, bytes.data(), static_cast<ssize_t>(bytes.size()));
    write_bytes(fWindow->Port(), bytes_of(large));
    AwaitPort("Small");
    EXPECT_THAT(ComponentNames(), ElementsAre("Small"));
}

TEST_F(IAPPortTest, DropsWhatTheWindowDoesNotTake) {
    Open();
    ASSERT_TRUE(WaitFor([&] { return fWindow->Port() > 0; }));
    const std::string request = bytes_of(request_of({"First"}));
    with_lock(fWindow, [&] {
        // The window stands still; whoever writes goes on all the same.
        for (int i = 0; i < 5000; i++)
            write_bytes(fWindow->Port(), request);
        EXPECT_TRUE(WaitFor([&] { return port_count(fWindow->Port()) == 0; }));
        EXPECT_LE(fWindow->MessageQueue()->CountMessages(), 32);
    });
    Settle();
    AwaitPort("Last");
    EXPECT_THAT(ComponentNames(), ElementsAre("First", "Last"));
}

TEST_F(IAPPortTest, AnEmptyMessageOnlyWakesTheThread) {
    Open();
    TIAPPortManager manager{BMessenger(fView)};
    EXPECT_EQ(manager.Port(), -400);
    EXPECT_NE(manager.PreventBlocking(), B_OK);
    Quit();
    ASSERT_EQ(manager.Resume(), B_OK);
    ASSERT_TRUE(WaitFor([&] { return manager.Port() > 0; }));
    EXPECT_EQ(manager.PreventBlocking(), B_OK);
    EXPECT_TRUE(WaitFor([&] { return port_count(manager.Port()) == 0; }));
    EXPECT_FALSE(manager.IsTerminated());
    (void)manager.Terminate();
    EXPECT_EQ(manager.PreventBlocking(), B_OK);
    int32 status = -1;
    EXPECT_EQ(manager.Wait(&status), B_OK);
    EXPECT_EQ(status, 0);
}

TEST_F(IAPPortTest, TheThreadEndsWithItsPort) {
    OpenByStore();
    EXPECT_TRUE(HasComponents({"AccKeyFormat2", "FlatToolBar"}));
    const thread_id thread = find_thread("IAPPortManager");
    EXPECT_EQ(delete_port(fWindow->Port()), B_OK);
    int32 status = -1;
    (void)wait_for_thread(thread, &status);
    EXPECT_EQ(status, 0);
    // The next request finds no port, and the window that is there.
    Do(kMsgCancel);
    EXPECT_FALSE(fScreen->IsShown());
    EXPECT_EQ(fStore.ShowWindow(BRect(0, 0, 99, 99)), B_OK);
    EXPECT_TRUE(WaitFor([&] { return fScreen->IsShown(); }));
    EXPECT_EQ(fApp.CountWindows(), 1);
}

// #pragma mark - The store

TEST_F(IAPPortTest, AStoreOpensTheWindowWithItsComponents) {
    OpenByStore();
    EXPECT_TRUE(HasComponents({"AccKeyFormat2", "FlatToolBar"}));
    EXPECT_EQ(fScreen->Frame().LeftTop(), BPoint(100, 120));
    EXPECT_GT(fWindow->Port(), 0);

    // Once more only brings it to the front.
    const int32 before = fScreen->CountActivations();
    EXPECT_EQ(fStore.ShowWindow(BRect(0, 0, 99, 99)), B_OK);
    EXPECT_TRUE(WaitFor([&] { return fScreen->CountActivations() > before; }));
    EXPECT_EQ(fApp.CountWindows(), 1);
    Settle();
    EXPECT_THAT(ComponentNames(), ElementsAre("AccKeyFormat2", "FlatToolBar"));

    Click("Cancel");
    EXPECT_EQ(fStore.ShowWindow(BRect(0, 0, 99, 99)), B_OK);
    EXPECT_TRUE(WaitFor([&] { return fScreen->IsShown(); }));
    EXPECT_EQ(fApp.CountWindows(), 1);
}

TEST_F(IAPPortTest, AnotherStoreContributesToTheSameWindow) {
    OpenByStore();
    EXPECT_TRUE(HasComponents({"AccKeyFormat2", "FlatToolBar"}));
    TInterAppPrefs other;
    (void)other.SetAppSignatureRef(kOtherApp);
    (void)other.AddItem(new TIAPItemAccKeyFormat);
    EXPECT_EQ(other.ShowWindow(BRect(0, 0, 99, 99)), B_OK);
    AwaitPort("Mark");
    EXPECT_EQ(fApp.CountWindows(), 1);
    EXPECT_THAT(ComponentNames(), ElementsAre("AccKeyFormat2", "FlatToolBar", "Mark"));
}

TEST_F(IAPPortTest, AnyStoreMayBeForcedToCloseTheWindow) {
    TInterAppPrefs other;
    EXPECT_EQ(fStore.CloseWindow(false), B_OK);
    EXPECT_EQ(other.CloseWindow(true), B_OK);

    OpenByStore();
    EXPECT_TRUE(HasComponents({"AccKeyFormat2", "FlatToolBar"}));
    EXPECT_EQ(other.CloseWindow(false), -1);
    AwaitPort("Mark");
    EXPECT_TRUE(fScreen->IsShown());
    EXPECT_EQ(other.CloseWindow(true), B_OK);
    EXPECT_TRUE(WaitFor([&] { return !fScreen->IsShown(); }));
    (void)fStore.ShowWindow(BRect());
    EXPECT_TRUE(WaitFor([&] { return fScreen->IsShown(); }));
    EXPECT_EQ(fStore.CloseWindow(false), B_OK);
    EXPECT_TRUE(WaitFor([&] { return !fScreen->IsShown(); }));
}

TEST_F(IAPPortTest, AskingForAWindowElsewhereSendsTwoRequests) {
    const port_id other = create_port(100, "ZELKANIAPPort");
    ASSERT_GT(other, 0);
    EXPECT_EQ(fStore.ShowWindow(BRect(0, 0, 99, 99)), B_OK);
    EXPECT_EQ(fApp.CountWindows(), 0);
    const BMessage first = next_of(other);
    EXPECT_EQ(first.what, static_cast<uint32>('iawr'));
    EXPECT_TRUE(first.IsEmpty());
    const BMessage second = next_of(other);
    EXPECT_EQ(second.what, static_cast<uint32>('iacr'));
    EXPECT_TRUE(second.HasMessage("AccKeyFormat2", 2));
    EXPECT_TRUE(second.HasMessage("FlatToolBar", 2));
    EXPECT_EQ(port_count(other), 0);

    EXPECT_EQ(fStore.CloseWindow(false), -1);
    EXPECT_EQ(port_count(other), 0);
    EXPECT_EQ(fStore.CloseWindow(true), B_OK);
    EXPECT_EQ(next_of(other).what, static_cast<uint32>('_QRQ'));
    EXPECT_EQ(delete_port(other), B_OK);
}

TEST_F(IAPPortTest, AWindowThatGoesWhileItIsAskedForIsOpenedHere) {
    const port_id other = create_port(1, "ZELKANIAPPort");
    write_bytes(other, "full");
    const auto show = [](void* store) -> int32 {
        return static_cast<TInterAppPrefs*>(store)->ShowWindow(BRect(100, 120, 700, 620));
    };
    const thread_id thread = spawn_thread(show, "asks", B_NORMAL_PRIORITY, &fStore);
    (void)resume_thread(thread);
    EXPECT_TRUE(WaitFor([&] {
        thread_info info;
        return get_thread_info(thread, &info) == B_OK && info.state == B_THREAD_WAITING;
    }));
    EXPECT_EQ(delete_port(other), B_OK);
    int32 status = -1;
    (void)wait_for_thread(thread, &status);
    EXPECT_EQ(status, B_OK);
    AdoptWindow();
    EXPECT_GT(fWindow->Port(), 0);
    EXPECT_TRUE(HasComponents({"AccKeyFormat2", "FlatToolBar"}));
}

TEST_F(IAPPortTest, TheSlowerOfTwoGivesItsWindowUp) {
    // Another application has made its port since this one looked for it.
    const port_id other = create_port(100, "ZELKANIAPPort");
    ASSERT_GT(other, 0);
    EXPECT_EQ(fStore.CreateAndShowWindow(BRect(0, 0, 99, 99)), other);
    EXPECT_TRUE(WaitFor([&] { return fApp.CountWindows() == 0; }));
    EXPECT_EQ(next_of(other).what, static_cast<uint32>('iawr'));
    // It is not this store's window.
    EXPECT_EQ(fStore.CloseWindow(false), -1);
    EXPECT_EQ(delete_port(other), B_OK);
    // A later request finds nobody, and opens one.
    OpenByStore();
    EXPECT_TRUE(HasComponents({"AccKeyFormat2", "FlatToolBar"}));
    EXPECT_EQ(fStore.CloseWindow(false), B_OK);
}

TEST_F(IAPPortTest, WithoutAPortTheWindowServesItsOwnApplication) {
    std::vector<port_id> ports;
    for (port_id port = create_port(1, "0"); port > 0;
         port = create_port(1, std::to_string(ports.size()).c_str()))
        ports.push_back(port);
    OpenByStore();
    EXPECT_EQ(fWindow->Port(), -500);
    EXPECT_TRUE(HasComponents({"AccKeyFormat2", "FlatToolBar"}));
    ChooseFormat("a - ");
    EXPECT_THAT(BroadcastValues(), ElementsAre("AccKeyFormat2 \1a - "));

    EXPECT_EQ(fStore.CloseWindow(false), B_OK);
    EXPECT_TRUE(WaitFor([&] { return !fScreen->IsShown(); }));
    EXPECT_EQ(fStore.ShowWindow(BRect(0, 0, 99, 99)), B_OK);
    EXPECT_TRUE(WaitFor([&] { return fScreen->IsShown(); }));
    EXPECT_EQ(fApp.CountWindows(), 1);
    for (const port_id port : ports)
        EXPECT_EQ(delete_port(port), B_OK);
}

TEST_F(IAPPortTest, WritesToAPortThatIsGoneAreLost) {
    const port_id port = create_port(1, "gone");
    EXPECT_EQ(delete_port(port), B_OK);
    BMessage message('test');
    EXPECT_EQ(fStore.SendMessage(port, &message), B_OK);
    EXPECT_EQ(fStore.SendMessage(-500, &message), B_OK);
    EXPECT_EQ(fStore.AddComponents(port), B_OK);
    EXPECT_EQ(fStore.ActivateWindow(-400), B_OK);
}

TEST_F(IAPPortTest, AFullPortDoesNotHoldTheApplicationForEver) {
    const port_id port = create_port(1, "ZELKANIAPPort");
    write_bytes(port, "full");
    EXPECT_EQ(fStore.ShowWindow(BRect(0, 0, 99, 99)), B_OK);
    EXPECT_EQ(port_count(port), 1);
    EXPECT_EQ(fApp.CountWindows(), 0);
    EXPECT_EQ(delete_port(port), B_OK);
}

}  // namespace
