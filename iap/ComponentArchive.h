#pragma once

class BMessage;

/// Whether an archive is that of a component of the common preferences window, and safe to make a
/// view of.
///
/// Archives come from other programs, and an archive decides which classes are made and what their
/// controls send. So only containers, controls and menus of the kits' own are let through, in small
/// numbers and sizes, whose messages are kMsgSharedControlChanged of this one item. The archive
/// itself is broadcast when it is taken back; it has to be a kMsgSharedItemChanged of that item.
///
/// @param name the item's, which is that of the archived view too
bool is_component_archive(const BMessage& archive, const char* name);
