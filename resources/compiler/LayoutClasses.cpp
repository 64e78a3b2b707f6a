#include "resources/compiler/LayoutClasses.h"

#include <app/Message.h>
#include <interface/GraphicsDefs.h>
#include <interface/InterfaceDefs.h>
#include <interface/View.h>

#include "resources/compiler/LayoutCompiler.h"
#include "resources/compiler/LayoutValues.h"

namespace {

using Value = const QJsonValue&;

/// A word for a number of the platform's.
struct Word {
    const char* word;
    int32 number;
};

int32 number_of(Value value, const std::vector<Word>& words) {
    const std::string text = string_from(value);
    std::string known;
    for (const auto& [word, number] : words) {
        if (text == word)
            return number;
        known += (known.empty() ? "" : ", ") + std::string(word);
    }
    throw LayoutError("must be one of " + known);
}

template <const char* kField>
void add_string(BMessage& archive, Value value) {
    expect_added(archive.AddString(kField, string_from(value).c_str()));
}

template <const char* kField>
void add_int32(BMessage& archive, Value value) {
    expect_added(archive.AddInt32(kField, int32_from(value)));
}

template <const char* kField>
void add_float(BMessage& archive, Value value) {
    expect_added(archive.AddFloat(kField, float_from(value)));
}

template <const char* kField>
void add_bool(BMessage& archive, Value value) {
    expect_added(archive.AddBool(kField, bool_from(value)));
}

/// A message of that code without fields.
template <const char* kField>
void add_message(BMessage& archive, Value value) {
    const BMessage message(code_from(value));
    expect_added(archive.AddMessage(kField, &message));
}

// Fields are template arguments, which have to have a name.
constexpr char kLabel[] = "_label";
constexpr char kValue[] = "_val";
constexpr char kMessage[] = "_msg";
constexpr char kDefault[] = "_default";
constexpr char kText[] = "_text";
constexpr char kDivider[] = "_divide";
constexpr char kModification[] = "_mod_msg";
constexpr char kMin[] = "_min";
constexpr char kMax[] = "_max";
constexpr char kMinLabel[] = "_minlbl";
constexpr char kMaxLabel[] = "_maxlbl";
constexpr char kIncrement[] = "_incrementvalue";
constexpr char kHashCount[] = "_hashcount";
constexpr char kCellSize[] = "_csize";
constexpr char kBuffered[] = "_usebm";
constexpr char kTabHeight[] = "_high";
constexpr char kSelection[] = "_sel";

void add_enabled(BMessage& archive, Value value) {
    if (!bool_from(value))
        expect_added(archive.AddBool("_disable", true));
}

void add_alignment(BMessage& archive, Value value) {
    const int32 number = number_of(
        value, {{"left", B_ALIGN_LEFT}, {"right", B_ALIGN_RIGHT}, {"center", B_ALIGN_CENTER}});
    expect_added(archive.AddInt32("_align", number));
}

void add_border(BMessage& archive, Value value) {
    const int32 number = number_of(
        value, {{"plain", B_PLAIN_BORDER}, {"fancy", B_FANCY_BORDER}, {"none", B_NO_BORDER}});
    expect_added(archive.AddInt32("_style", number));
}

// Numbers that the platform's archives hold, some of them as 16 bits.

void add_hash_marks(BMessage& archive, Value value) {
    const int32 number = number_of(value, {{"none", 0}, {"top", 1}, {"bottom", 2}, {"both", 3}});
    expect_added(archive.AddInt16("_hashloc", static_cast<int16>(number)));
}

void add_thumb(BMessage& archive, Value value) {
    const int32 number = number_of(value, {{"block", 0}, {"triangle", 1}});
    expect_added(archive.AddInt16("_sstyle", static_cast<int16>(number)));
}

void add_orientation(BMessage& archive, Value value) {
    const int32 number = number_of(value, {{"horizontal", B_HORIZONTAL}, {"vertical", B_VERTICAL}});
    expect_added(archive.AddInt32("_orient", number));
}

void add_cells(BMessage& archive, Value value) {
    const int32 number =
        number_of(value, {{"4x64", 4}, {"8x32", 8}, {"16x16", 16}, {"32x8", 32}, {"64x4", 64}});
    expect_added(archive.AddInt32("_layout", number));
}

void add_color_value(BMessage& archive, Value value) {
    const rgb_color color = color_from(value);
    const auto number =
        static_cast<uint32>((color.red << 24U) | (color.green << 16U) | (color.blue << 8U));
    expect_added(archive.AddInt32(kValue, static_cast<int32>(number)));
}

void add_tab_width(BMessage& archive, Value value) {
    const int32 number = number_of(value, {{"as usual", 0}, {"from widest", 1}, {"from label", 2}});
    expect_added(archive.AddInt16("_but_width", static_cast<int16>(number)));
}

constexpr uint32 kControlFlags = B_WILL_DRAW | B_NAVIGABLE;

const LayoutClass kView = {"BView", nullptr, B_WILL_DRAW, {}};

const LayoutClass kControl = {"BControl", &kView, kControlFlags,
    {{"label", add_string<kLabel>}, {"value", add_int32<kValue>}, {"enabled", add_enabled},
        {"message", add_message<kMessage>}}};

const LayoutClass kClasses[] = {
    {"BBox", &kView, B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE_JUMP,
        {{"label", add_string<kLabel>}, {"border", add_border}}},
    {"BButton", &kControl, kControlFlags, {{"default", add_bool<kDefault>}}},
    {"BCheckBox", &kControl, kControlFlags, {}},
    {"BColorControl", &kControl, kControlFlags,
        {{"cells", add_cells}, {"cell size", add_float<kCellSize>},
            {"buffered", add_bool<kBuffered>}, {"color", add_color_value}}},
    {"BRadioButton", &kControl, kControlFlags, {}},
    {"BSlider", &kControl, kControlFlags,
        {{"min", add_int32<kMin>}, {"max", add_int32<kMax>}, {"min label", add_string<kMinLabel>},
            {"max label", add_string<kMaxLabel>}, {"increment", add_int32<kIncrement>},
            {"hash mark count", add_int32<kHashCount>}, {"hash marks", add_hash_marks},
            {"thumb", add_thumb}, {"orientation", add_orientation},
            {"modification message", add_message<kModification>}}},
    {"BStringView", &kView, B_WILL_DRAW, {{"text", add_string<kText>}, {"align", add_alignment}}},
    {"BTabView", &kView,
        B_FULL_UPDATE_ON_RESIZE | B_WILL_DRAW | B_NAVIGABLE_JUMP | B_FRAME_EVENTS | B_NAVIGABLE,
        {{"tab width", add_tab_width}, {"tab height", add_float<kTabHeight>},
            {"selected", add_int32<kSelection>}}},
    {"BTextControl", &kControl, kControlFlags,
        {{"text", add_string<kText>}, {"divider", add_float<kDivider>},
            {"modification message", add_message<kModification>}}},
};

}  // namespace

const LayoutClass* find_layout_class(const std::string& name) {
    for (const LayoutClass* known : {&kView, &kControl}) {
        if (name == known->name)
            return known;
    }
    for (const LayoutClass& known : kClasses) {
        if (name == known.name)
            return &known;
    }
    return nullptr;
}

const LayoutKey* find_layout_key(const LayoutClass& ofClass, const std::string& name) {
    for (const LayoutClass* at = &ofClass; at != nullptr; at = at->base) {
        for (const LayoutKey& key : at->keys) {
            if (name == key.name)
                return &key;
        }
    }
    return nullptr;
}
