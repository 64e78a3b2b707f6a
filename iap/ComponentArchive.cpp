#include "iap/ComponentArchive.h"

#include "framework/MessageCodes.h"

#include <app/Message.h>
#include <cmath>
#include <cstring>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/Rect.h>
#include <interface/Slider.h>
#include <interface/StringView.h>
#include <interface/TextControl.h>
#include <string_view>

namespace {

// Far more than a component of a sensible size has, and far less than hurts.
constexpr ssize_t kMaxArchiveSize = 256 * 1024;
constexpr size_t kMaxText = 255;
constexpr int kMaxDepth = 8;
constexpr int kMaxViews = 64;
constexpr int kMaxMenuItems = 1024;
constexpr float kMaxWidth = 1000;
constexpr float kMaxHeight = 500;
constexpr float kMaxNumber = 10000;
constexpr float kMaxFontSize = 72;
constexpr int32 kMaxHashMarks = 1000;

enum class Kind { kUnknown, kContainer, kControl, kMenuField, kMenu, kMenuItem };

// By their functions, so that they are there to be made also in a program that has none of them
// itself.
constexpr struct {
    std::string_view name;
    Kind kind;
    instantiation_func make;
} kClasses[] = {
    {"BView", Kind::kContainer, BView::Instantiate},
    {"BBox", Kind::kContainer, BBox::Instantiate},
    {"BButton", Kind::kControl, BButton::Instantiate},
    {"BCheckBox", Kind::kControl, BCheckBox::Instantiate},
    {"BRadioButton", Kind::kControl, BRadioButton::Instantiate},
    {"BSlider", Kind::kControl, BSlider::Instantiate},
    {"BStringView", Kind::kControl, BStringView::Instantiate},
    {"BTextControl", Kind::kControl, BTextControl::Instantiate},
    {"BMenuField", Kind::kMenuField, BMenuField::Instantiate},
    {"BMenu", Kind::kMenu, BMenu::Instantiate},
    {"BPopUpMenu", Kind::kMenu, BPopUpMenu::Instantiate},
    {"BMenuItem", Kind::kMenuItem, BMenuItem::Instantiate},
    {"BSeparatorItem", Kind::kMenuItem, BSeparatorItem::Instantiate},
};

Kind kind_of(const BMessage& archive) {
    // A second name would be that of a base class: the first is then one of the sender's own.
    const char* name = nullptr;
    if (archive.FindString("class", &name) != B_OK || archive.HasString("class", 1))
        return Kind::kUnknown;
    for (const auto& known : kClasses) {
        if (known.name == name && find_instantiation_func(name) == known.make)
            return known.kind;
    }
    return Kind::kUnknown;
}

bool lies_within(float number, float limit) {
    return std::isfinite(number) && std::abs(number) <= limit;
}

/// Calls `check` for each field of the type, with its name and how many items it has, until one is
/// not good.
template <typename Check>
bool all_fields(const BMessage& message, type_code type, Check check) {
    char* name = nullptr;
    type_code found = 0;
    int32 count = 0;
    for (int32 i = 0; message.GetInfo(type, i, &name, &found, &count) == B_OK; i++) {
        for (int32 item = 0; item < count; item++) {
            if (!check(name, item))
                return false;
        }
    }
    return true;
}

/// A number that archives have in two widths.
int32 number_of(const BMessage& archive, const char* name) {
    return archive.GetInt32(name, archive.GetInt16(name, 0));
}

bool has_sane_values(const BMessage& archive) {
    const bool texts = all_fields(archive, B_STRING_TYPE, [&](const char* name, int32 item) {
        const char* text = nullptr;
        return archive.FindString(name, item, &text) == B_OK && std::strlen(text) <= kMaxText;
    });
    const bool numbers = all_fields(archive, B_FLOAT_TYPE, [&](const char* name, int32 item) {
        float number = 0;
        return archive.FindFloat(name, item, &number) == B_OK && lies_within(number, kMaxNumber);
    });
    const float fontSize = archive.GetFloat("_fsize", 12.0F);
    const int32 hashMarks = number_of(archive, "_hashcount");
    return texts && numbers && fontSize > 0 && fontSize <= kMaxFontSize && hashMarks >= 0 &&
        hashMarks <= kMaxHashMarks;
}

/// Menus have an empty frame, since they are placed when they open.
bool has_sane_frame(const BMessage& archive, bool mayBeEmpty) {
    BRect frame;
    if (archive.FindRect("_frame", &frame) != B_OK)
        return false;
    for (const float edge : {frame.left, frame.top, frame.right, frame.bottom}) {
        if (!lies_within(edge, kMaxNumber))
            return false;
    }
    return (mayBeEmpty || frame.IsValid()) && frame.Width() <= kMaxWidth &&
        frame.Height() <= kMaxHeight;
}

bool is_about(const BMessage& message, uint32 what, const char* item) {
    const char* named = nullptr;
    return message.what == what && message.FindString(kFieldSharedItem, &named) == B_OK &&
        std::strcmp(named, item) == 0;
}

/// One pass over an archive and all that is in it.
class TArchiveCheck {
public:
    explicit TArchiveCheck(const char* item) : fItem(item) {}

    bool IsGoodView(const BMessage& archive, int depth) {
        const Kind kind = kind_of(archive);
        if (kind == Kind::kUnknown || kind == Kind::kMenu || kind == Kind::kMenuItem)
            return false;
        if (depth > kMaxDepth || ++fViews > kMaxViews || !IsGoodAsAny(archive) ||
            !has_sane_frame(archive, false))
            return false;
        if (kind == Kind::kContainer)
            return All(archive, "_views",
                [&](const BMessage& child) { return IsGoodView(child, depth + 1); });
        if (kind == Kind::kMenuField)
            return !archive.HasMessage("_views", 1) &&
                All(archive, "_views",
                    [&](const BMessage& menu) { return IsGoodMenu(menu, depth + 1); });
        return HasNone(archive, "_views");
    }

private:
    bool IsGoodMenu(const BMessage& archive, int depth) {
        return kind_of(archive) == Kind::kMenu && depth <= kMaxDepth && ++fViews <= kMaxViews &&
            IsGoodAsAny(archive) && has_sane_frame(archive, true) && HasNone(archive, "_views") &&
            All(archive, "_items",
                [&](const BMessage& item) { return IsGoodMenuItem(item, depth + 1); });
    }

    bool IsGoodMenuItem(const BMessage& archive, int depth) {
        return kind_of(archive) == Kind::kMenuItem && depth <= kMaxDepth &&
            ++fMenuItems <= kMaxMenuItems && IsGoodAsAny(archive) &&
            !archive.HasMessage("_submenu", 1) &&
            All(archive, "_submenu",
                [&](const BMessage& menu) { return IsGoodMenu(menu, depth + 1); });
    }

    bool IsGoodAsAny(const BMessage& archive) const {
        const auto isGood = [this](const BMessage& message) { return IsGoodMessage(message); };
        return has_sane_values(archive) && All(archive, "_msg", isGood) &&
            All(archive, "_mod_msg", isGood);
    }

    /// What a control sends. The component's archive is added to it; nothing of it may be taken
    /// for a part of that.
    bool IsGoodMessage(const BMessage& message) const {
        return is_about(message, kMsgSharedControlChanged, fItem) &&
            all_fields(message, B_ANY_TYPE, [](const char* name, int32) {
                return name[0] != '_' && std::strcmp(name, "class") != 0;
            });
    }

    static bool HasNone(const BMessage& archive, const char* field) {
        type_code type = 0;
        return archive.GetInfo(field, &type) != B_OK;
    }

    template <typename Check>
    static bool All(const BMessage& archive, const char* field, Check check) {
        type_code type = 0;
        int32 count = 0;
        if (archive.GetInfo(field, &type, &count) != B_OK)
            return true;
        BMessage part;
        for (int32 i = 0; i < count; i++) {
            if (archive.FindMessage(field, i, &part) != B_OK || !check(part))
                return false;
        }
        return true;
    }

    const char* const fItem;
    int fViews = 0;
    int fMenuItems = 0;
};

}  // namespace

bool is_component_archive(const BMessage& archive, const char* name) {
    const char* viewName = nullptr;
    return name[0] != '\0' && archive.FlattenedSize() <= kMaxArchiveSize &&
        is_about(archive, kMsgSharedItemChanged, name) &&
        archive.FindString("_name", &viewName) == B_OK && std::strcmp(viewName, name) == 0 &&
        kind_of(archive) == Kind::kContainer && TArchiveCheck(name).IsGoodView(archive, 1);
}
