// What the fuzzer changes of a flattened message. Changing its bytes alone, it would never get past
// the checksums, of which every message in a message has its own; so here it is what the message
// holds, at any depth.

#include <algorithm>
#include <app/Message.h>
#include <cstring>
#include <random>
#include <string>
#include <vector>

extern "C" size_t LLVMFuzzerMutate(uint8* data, size_t size, size_t maxSize);

namespace {

using Random = std::minstd_rand;

constexpr size_t kMostGrowth = 64;

/// The place of an item in a message.
struct Item {
    std::string field;
    type_code type = 0;
    int32 index = 0;
    bool fixedSize = false;
};

int32 Below(Random& random, int32 end) {
    return int32(random() % uint32(std::max(end, 1)));
}

bool Choose(const BMessage& message, Random& random, Item& item) {
    char* name = nullptr;
    int32 count = 0;
    const int32 field = Below(random, message.CountNames(B_ANY_TYPE));
    if (message.GetInfo(B_ANY_TYPE, field, &name, &item.type, &count) != B_OK)
        return false;
    item.field = name;
    item.index = Below(random, count);
    return message.GetInfo(name, &item.type, &item.fixedSize) == B_OK;
}

std::string BytesOf(const BMessage& message, const Item& item) {
    const void* data = nullptr;
    ssize_t size = 0;
    if (message.FindData(item.field.c_str(), item.type, item.index, &data, &size) != B_OK)
        return {};
    return {static_cast<const char*>(data), size_t(size)};
}

/// Other bytes that the type allows; what it does not is refused by the message.
std::string Mutated(std::string bytes, const Item& item) {
    const size_t size = bytes.size();
    bytes.resize(size + (item.fixedSize ? 0 : kMostGrowth));
    bytes.resize(LLVMFuzzerMutate(reinterpret_cast<uint8*>(bytes.data()), size, bytes.size()));
    if (item.fixedSize)
        bytes.resize(size);
    if (item.type == B_STRING_TYPE) {
        std::replace(bytes.begin(), bytes.end(), '\0', ' ');
        bytes += '\0';
    }
    return bytes;
}

void Put(BMessage& message, const Item& item, const std::string& bytes) {
    (void)message.ReplaceData(
        item.field.c_str(), item.type, item.index, bytes.data(), ssize_t(bytes.size()));
}

/// Another field of an archive; where there is none of the name it begins with this item.
const char* OtherField(Random& random) {
    constexpr const char* kFields[] = {"_views", "_items", "_submenu", "_msg", "_mod_msg", "class",
        "_name", "_label", "_text", "_frame", "_flags", "_resize_mode", "_fsize", "_fface", "_val",
        "_divide", "_min", "_max", "_incrementvalue", "_hashcount", "_hashloc", "_bthickness",
        "_minlbl", "_style", "_trig", "_shortcut", "_mods", "_layout", "_align", "_default"};
    return kFields[random() % std::size(kFields)];
}

const char* OtherClass(Random& random) {
    constexpr const char* kClasses[] = {"BView", "BBox", "BButton", "BCheckBox", "BRadioButton",
        "BSlider", "BStringView", "BTextControl", "BMenuField", "BMenu", "BPopUpMenu", "BMenuItem",
        "BSeparatorItem", "BTabView", "BListView", "BScrollView", "BColorControl"};
    return kClasses[random() % std::size(kClasses)];
}

void Mutate(BMessage& message, Random& random) {
    Item item;
    if (!Choose(message, random, item))
        return;
    const std::string bytes = BytesOf(message, item);
    if (item.type == B_MESSAGE_TYPE && random() % 8 != 0) {
        BMessage inner;
        if (message.FindMessage(item.field.c_str(), item.index, &inner) != B_OK)
            return;
        Mutate(inner, random);
        (void)message.ReplaceMessage(item.field.c_str(), item.index, &inner);
        return;
    }
    switch (random() % 8) {
    case 0: (void)message.RemoveData(item.field.c_str(), item.index); break;
    case 1:
        (void)message.AddData(item.field.c_str(), item.type, bytes.data(), ssize_t(bytes.size()));
        break;
    case 2:
        (void)message.AddData(OtherField(random), item.type, bytes.data(), ssize_t(bytes.size()));
        break;
    case 3: (void)message.ReplaceString("class", OtherClass(random)); break;
    default:
        if (item.type != B_MESSAGE_TYPE)
            Put(message, item, Mutated(bytes, item));
    }
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8* data, size_t size, size_t maxSize, unsigned seed) {
    Random random(seed);
    BMessage message;
    if (message.Unflatten(reinterpret_cast<const char*>(data), ssize_t(size)) != B_OK)
        return LLVMFuzzerMutate(data, size, maxSize);
    for (uint32 i = 0; i <= random() % 4; ++i)
        Mutate(message, random);
    std::vector<char> flat(size_t(std::max<ssize_t>(message.FlattenedSize(), 0)));
    if (flat.size() > maxSize || message.Flatten(flat.data(), ssize_t(flat.size())) != B_OK)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::memcpy(data, flat.data(), flat.size());
    return flat.size();
}
