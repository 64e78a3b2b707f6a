#include "framework/FilePanelPriority.h"

#include <interface/Window.h>
#include <kernel/OS.h>
#include <storage/FilePanel.h>

void set_file_panel_priority(BFilePanel* panel, long priority) {
    BWindow* window = panel != nullptr ? panel->Window() : nullptr;
    if (window == nullptr || !window->Lock())
        return;
    (void)set_thread_priority(window->Thread(), static_cast<int32>(priority));
    window->Unlock();
}
