#pragma once

// The message codes the kits themselves send and understand.

#include <support/SupportDefs.h>

enum : uint32 {
    B_ABOUT_REQUESTED = '_ABR',
    B_WINDOW_ACTIVATED = '_ACT',
    B_APP_ACTIVATED = '_ACT',
    B_ARGV_RECEIVED = '_ARG',
    B_QUIT_REQUESTED = '_QRQ',
    B_CLOSE_REQUESTED = '_QRQ',
    B_CANCEL = '_CNC',
    B_KEY_DOWN = '_KYD',
    B_KEY_UP = '_KYU',
    B_UNMAPPED_KEY_DOWN = '_UKD',
    B_UNMAPPED_KEY_UP = '_UKU',
    B_MODIFIERS_CHANGED = '_MCH',
    B_MINIMIZE = '_WMN',
    B_MOUSE_DOWN = '_MDN',
    B_MOUSE_MOVED = '_MMV',
    B_MOUSE_ENTER_EXIT = '_MEX',
    B_MOUSE_UP = '_MUP',
    B_MOUSE_WHEEL_CHANGED = '_MWC',
    B_PULSE = '_PUL',
    B_READY_TO_RUN = '_RTR',
    B_REFS_RECEIVED = '_RRC',
    B_SCREEN_CHANGED = '_SCH',
    B_VALUE_CHANGED = '_VCH',
    B_VIEW_MOVED = '_VMV',
    B_VIEW_RESIZED = '_VRS',
    B_WINDOW_MOVED = '_WMV',
    B_WINDOW_RESIZED = '_WRS',
    B_WORKSPACES_CHANGED = '_WCG',
    B_WORKSPACE_ACTIVATED = '_WAC',
    B_ZOOM = '_WZM',

    /// A window's views have areas to draw.
    _UPDATE_ = '_UPD',
    _MESSAGE_DROPPED_ = '_MDP',
};

enum : uint32 {
    B_SET_PROPERTY = 'PSET',
    B_GET_PROPERTY = 'PGET',

    B_REPLY = 'RPLY',
    /// The reply a sender gets when the message it waits on is deleted unanswered.
    B_NO_REPLY = 'NONE',
    /// The reply of a handler that does not know a message whose sender waits.
    B_MESSAGE_NOT_UNDERSTOOD = 'MNOT',

    B_SIMPLE_DATA = 'DATA',
    B_MIME_DATA = 'MIME',
    B_ARCHIVED_OBJECT = 'ARCV',
    B_SAVE_REQUESTED = 'SAVE',
    B_NODE_MONITOR = 'NDMN',

    B_CUT = 'CCUT',
    B_COPY = 'COPY',
    B_PASTE = 'PSTE',
    B_SELECT_ALL = 'SALL',

    B_CONTROL_INVOKED = 'CIVK',
    B_CONTROL_MODIFIED = 'CMOD',
};
