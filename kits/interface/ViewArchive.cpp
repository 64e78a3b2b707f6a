#include <app/Message.h>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ColorControl.h>
#include <interface/ListItem.h>
#include <interface/ListView.h>
#include <interface/Menu.h>
#include <interface/MenuBar.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/ScrollBar.h>
#include <interface/ScrollView.h>
#include <interface/Slider.h>
#include <interface/StringView.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>
#include <interface/View.h>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/ControlPeer.h"
#include "kits/interface/ViewReading.h"

using namespace BPrivate;

namespace {

constexpr struct {
    const char* name;
    instantiation_func function;
} kClasses[] = {
    {"BBox", BBox::Instantiate},
    {"BButton", BButton::Instantiate},
    {"BCheckBox", BCheckBox::Instantiate},
    {"BColorControl", BColorControl::Instantiate},
    {"BListView", BListView::Instantiate},
    {"BMenu", BMenu::Instantiate},
    {"BMenuBar", BMenuBar::Instantiate},
    {"BMenuField", BMenuField::Instantiate},
    {"BMenuItem", BMenuItem::Instantiate},
    {"BPopUpMenu", BPopUpMenu::Instantiate},
    {"BRadioButton", BRadioButton::Instantiate},
    {"BScrollBar", BScrollBar::Instantiate},
    {"BScrollView", BScrollView::Instantiate},
    {"BSeparatorItem", BSeparatorItem::Instantiate},
    {"BSlider", BSlider::Instantiate},
    {"BStringItem", BStringItem::Instantiate},
    {"BStringView", BStringView::Instantiate},
    {"BTab", BTab::Instantiate},
    {"BTabView", BTabView::Instantiate},
    {"BTextControl", BTextControl::Instantiate},
    {"BView", BView::Instantiate},
};

// An archive tells its class by name; the class has to be known before one is met.
const bool kRegistered = [] {
    for (const auto& [name, function] : kClasses)
        register_instantiation_func(name, function);
    return true;
}();

BRect FrameFrom(const BMessage* archive) {
    BRect frame;
    if (archive != nullptr)
        (void)archive->FindRect("_frame", &frame);
    return frame;
}

}  // namespace

BView::BView(BMessage* archive) : BHandler(archive), fFrame(FrameFrom(archive)) {
    (void)kRegistered;
    if (archive == nullptr)
        return;
    int32 number = 0;
    if (archive->FindInt32("_resize_mode", &number) == B_OK)
        fResizingMode = static_cast<uint32>(number);
    if (archive->FindInt32("_flags", &number) == B_OK)
        fFlags = static_cast<uint32>(number);
    (void)archive->FindColor("_color", 0, &fHighColor);
    (void)archive->FindColor("_color", 1, &fLowColor);
    (void)archive->FindColor("_color", 2, &fViewColor);
    const char* family = nullptr;
    if (archive->FindString("_fname", &family) == B_OK)
        (void)fFont.SetFamilyAndStyle(family, nullptr);
    float size = 0;
    if (archive->FindFloat("_fsize", &size) == B_OK)
        fFont.SetSize(size);
    if (archive->FindInt32("_fface", &number) == B_OK)
        fFont.SetFace(static_cast<uint16>(number));

    for (int32 i = 0; archive->HasMessage("_views", i); i++) {
        if (auto child = ArchivedObject<BView>(*archive, "_views", i); child != nullptr)
            AddChild(child.release());
    }
}

BArchivable* BView::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BView") ? new BView(archive) : nullptr;
}

status_t BView::Archive(BMessage* archive, bool deep) const {
    FirstFailure add(BHandler::Archive(archive, deep));
    add(archive->AddRect("_frame", fFrame));
    add(archive->AddInt32("_resize_mode", static_cast<int32>(fResizingMode)));
    add(archive->AddInt32("_flags", static_cast<int32>(fFlags)));
    add(archive->AddColor("_color", fHighColor));
    add(archive->AddColor("_color", fLowColor));
    add(archive->AddColor("_color", fViewColor));
    font_family family;
    fFont.GetFamilyAndStyle(&family, nullptr);
    if (family[0] != '\0')
        add(archive->AddString("_fname", family));
    add(archive->AddFloat("_fsize", fFont.Size()));
    add(archive->AddInt32("_fface", fFont.Face()));
    if (!deep)
        return add.Status();
    for (const auto& child : fChildren)
        add(AddArchiveOf(*child, archive, "_views"));
    return add.Status();
}
