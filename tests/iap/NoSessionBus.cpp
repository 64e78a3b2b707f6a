// These tests have ports and an application of their own; whoever else is on the bus of the session
// they run in is not to see them.

#include <cstdlib>

namespace {

[[maybe_unused]] const bool kCut = setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1) == 0;

}  // namespace
