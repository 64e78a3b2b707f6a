#pragma once

#include <app/Message.h>
#include <vector>

/// Components as other applications of the family may send them: one with every control, one with
/// menus, one with a check box.
std::vector<BMessage> components_of_others();
