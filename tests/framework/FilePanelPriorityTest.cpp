#include "framework/FilePanelPriority.h"

#include "tests/framework/TestWindows.h"

#include <app/Application.h>
#include <kernel/OS.h>
#include <storage/FilePanel.h>

namespace {

int32 priority_of(BFilePanel& panel) {
    const thread_id thread = with_lock(panel.Window(), [&] { return panel.Window()->Thread(); });
    thread_info info;
    return get_thread_info(thread, &info) == B_OK ? info.priority : -1;
}

}  // namespace

TEST(FilePanelPriority, IsThatOfItsWindowsThread) {
    BFilePanel panel;
    set_file_panel_priority(&panel, 5);
    EXPECT_EQ(priority_of(panel), 5);
    panel.Show();
    set_file_panel_priority(&panel, 15);
    EXPECT_EQ(priority_of(panel), 15);
}

TEST(FilePanelPriority, OfNoPanelOrOneThatHasEndedIsNothing) {
    set_file_panel_priority(nullptr, 5);
    BFilePanel panel;
    BWindow* window = panel.Window();
    ASSERT_TRUE(window->Lock());
    window->Quit();
    set_file_panel_priority(&panel, 5);
    EXPECT_EQ(panel.Window(), nullptr);
}
