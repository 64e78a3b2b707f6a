#pragma once

#include <app/Message.h>
#include <functional>
#include <interface/CheckBox.h>
#include <interface/View.h>
#include <memory>
#include <string>
#include <utility>

#include "framework/MessageCodes.h"
#include "tests/iap/SharedFiles.h"

// Components as another application sends them.

/// What a control of that item's component sends.
inline BMessage* control_message(const std::string& item) {
    auto* message = new BMessage(kMsgSharedControlChanged);
    message->AddString("IAP:SrcApp", kOtherApp);
    message->AddString("IAP:SrcIAPItem", item.c_str());
    return message;
}

/// The archive of a view named after the item, as its application sends it. Deletes the view.
inline BMessage archive_of(const std::string& item, BView* view) {
    const std::unique_ptr<BView> owned(view);
    BMessage archive;
    (void)view->Archive(&archive, true);
    archive.what = kMsgSharedItemChanged;
    archive.AddString("IAP:SrcApp", kOtherApp);
    archive.AddString("IAP:SrcIAPItem", item.c_str());
    return archive;
}

/// A container with one check box. Its label's key is the item's name, its letter an "X".
inline BMessage check_box_archive(const std::string& item, bool on, float height = 16) {
    auto* view = new BView(BRect(0, 0, 250, height), item.c_str(), B_FOLLOW_NONE, B_WILL_DRAW);
    auto* box =
        new BCheckBox(BRect(0, 0, 250, 16), ("X" + item).c_str(), "", control_message(item));
    box->SetValue(on ? B_CONTROL_ON : B_CONTROL_OFF);
    view->AddChild(box);
    BMessage archive = archive_of(item, view);
    archive.AddBool(item.c_str(), on);
    return archive;
}

/// On at the moment and off by default.
inline void add_component(BMessage* request, const std::string& item, float height = 16) {
    for (const bool on : {true, true, false}) {
        const BMessage archive = check_box_archive(item, on, height);
        request->AddMessage(item.c_str(), &archive);
    }
}

inline BMessage request_of(const std::vector<std::string>& items) {
    BMessage request(kMsgAddSharedComponents);
    for (const std::string& item : items)
        add_component(&request, item);
    return request;
}

/// Changes the archive that lies in the field of another.
inline void change_part(
    BMessage& archive, const char* field, const std::function<void(BMessage&)>& change) {
    BMessage part;
    (void)archive.FindMessage(field, &part);
    change(part);
    (void)archive.ReplaceMessage(field, &part);
}
