#pragma once

class BFilePanel;

/// Sets the priority (1 to 120) of the thread of the panel's window. Nothing happens when there is
/// no panel, or its window is gone.
void set_file_panel_priority(BFilePanel* panel, long priority);
