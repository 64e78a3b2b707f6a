#include "kits/app/MessageFormat.h"

#include "kits/app/Checksum.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <random>

// Items are written as they are in memory.
static_assert(std::endian::native == std::endian::little);

namespace BPrivate {

namespace {

constexpr char kMagic[4] = {'L', 'M', 's', 'g'};
constexpr uint16 kVersion = 1;

struct Header {
    char magic[4];
    uint16 version;
    uint16 depth;
    uint32 size;
    uint32 checksum;
    uint32 what;
    uint32 fieldCount;
    uint64 process;
};
static_assert(sizeof(Header) == 32 && offsetof(Header, checksum) == kLeadSize);

struct FieldHeader {
    uint32 type;
    uint32 itemCount;
    uint32 itemSize;  // 0: each item is preceded by its own
    uint32 nameSize;
};
static_assert(sizeof(FieldHeader) == 16);

// What tells this process's pointers from those of any other, now or in an old file.
uint64 ProcessIdentity() {
    static const uint64 identity = [] {
        std::random_device random;
        return (uint64(random()) << 32 | random()) | 1;  // 0 is for messages without pointers
    }();
    return identity;
}

uint32 ChecksumOf(std::string_view message) {
    Checksum sum;
    sum.Add(message.substr(0, kLeadSize));
    sum.Add(message.substr(kLeadSize + sizeof(Header::checksum)));
    return sum.Value();
}

template <typename T>
void Append(std::string& bytes, const T& value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
}

int DepthOf(const std::vector<MessageField>& fields) {
    int depth = 0;
    for (const MessageField& field : fields) {
        if (field.type != B_MESSAGE_TYPE)
            continue;
        for (const std::string& item : field.items) {
            Header nested;
            std::memcpy(&nested, item.data(), sizeof(nested));
            depth = std::max(depth, nested.depth + 1);
        }
    }
    return depth;
}

/// Takes values off the front of bytes it never reads past.
class Reader {
public:
    explicit Reader(std::string_view bytes) : fRest(bytes) {}

    template <typename T>
    bool Take(T& value) {
        std::string_view bytes;
        if (!Take(sizeof(value), bytes))
            return false;
        std::memcpy(&value, bytes.data(), sizeof(value));
        return true;
    }

    bool Take(size_t size, std::string_view& bytes) {
        if (size > fRest.size())
            return false;
        bytes = fRest.substr(0, size);
        fRest.remove_prefix(size);
        return true;
    }

    size_t Left() const { return fRest.size(); }

private:
    std::string_view fRest;
};

struct FieldView {
    FieldHeader header;
    std::string_view name;
    Reader items;
};

bool TakeItem(Reader& reader, const FieldHeader& header, std::string_view& item) {
    uint32 size = header.itemSize;
    return (size != 0 || reader.Take(size)) && reader.Take(size, item);
}

// Reads one field and checks everything about it but that its name is the only one.
bool TakeField(Reader& reader, int maxDepth, size_t& itemsLeft, FieldView& field) {
    FieldHeader& header = field.header;
    if (!reader.Take(header) || header.nameSize > kMaxFieldName ||
        !reader.Take(header.nameSize, field.name) ||
        field.name.find('\0') != std::string_view::npos)
        return false;
    if (header.itemCount == 0 || header.itemCount > itemsLeft)
        return false;
    itemsLeft -= header.itemCount;
    if (IsVariableSizeType(header.type) && header.itemSize != 0)
        return false;

    field.items = reader;
    for (uint32 i = 0; i < header.itemCount; ++i) {
        std::string_view item;
        if (!TakeItem(reader, header, item) || !IsValidItem(header.type, item, maxDepth))
            return false;
    }
    return true;
}

bool HasDoubles(std::vector<std::string_view>& names) {
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) != names.end();
}

// Everything a message must be, before anything of it is used. Fields are handed to `take`.
template <typename F>
status_t ReadMessage(std::string_view bytes, int maxDepth, Header& header, F take) {
    size_t size = 0;
    const status_t lead = FlattenedSizeFromLead(bytes, size);
    if (lead != B_OK)
        return lead;
    if (size > bytes.size())
        return B_BAD_DATA;
    bytes = bytes.substr(0, size);

    Reader reader(bytes);
    if (!reader.Take(header) || header.checksum != ChecksumOf(bytes) || header.depth > maxDepth ||
        header.fieldCount > kMaxFields)
        return B_BAD_DATA;

    size_t itemsLeft = kMaxItems;
    int depth = 0;
    std::vector<std::string_view> names;
    for (uint32 i = 0; i < header.fieldCount; ++i) {
        FieldView field{{}, {}, Reader({})};
        if (!TakeField(reader, header.depth - 1, itemsLeft, field))
            return B_BAD_DATA;
        names.push_back(field.name);
        if (field.header.type == B_MESSAGE_TYPE) {
            Reader items = field.items;
            for (uint32 k = 0; k < field.header.itemCount; ++k) {
                std::string_view item;
                Header nested;
                if (!TakeItem(items, field.header, item))
                    return B_BAD_DATA;
                std::memcpy(&nested, item.data(), sizeof(nested));
                depth = std::max(depth, nested.depth + 1);
            }
        }
        take(field);
    }
    if (reader.Left() != 0 || depth != header.depth || HasDoubles(names))
        return B_BAD_DATA;
    return B_OK;
}

}  // namespace

status_t FlattenedSizeFromLead(std::string_view lead, size_t& size) {
    if (lead.size() < kLeadSize || std::memcmp(lead.data(), kMagic, sizeof(kMagic)) != 0)
        return B_BAD_DATA;
    Header header;
    std::memcpy(static_cast<void*>(&header), lead.data(), kLeadSize);
    if (header.version > kVersion)
        return B_NOT_SUPPORTED;
    if (header.version == 0 || header.size < sizeof(Header) || header.size > kMaxFlattenedSize)
        return B_BAD_DATA;
    size = header.size;
    return B_OK;
}

size_t FlattenedSize(const std::vector<MessageField>& fields) {
    size_t size = sizeof(Header);
    for (const MessageField& field : fields) {
        size += sizeof(FieldHeader) + field.name.size();
        for (const std::string& item : field.items)
            size += item.size() + (field.fixedSize ? 0 : sizeof(uint32));
    }
    return size;
}

status_t Flatten(uint32 what, const std::vector<MessageField>& fields, std::string& bytes) {
    const size_t size = FlattenedSize(fields);
    const int depth = DepthOf(fields);
    size_t itemCount = 0;
    bool processBound = false;
    for (const MessageField& field : fields) {
        itemCount += field.items.size();
        processBound = processBound || IsProcessBound(field.type);
    }
    if (size > kMaxFlattenedSize || depth > kMaxDepth || fields.size() > kMaxFields ||
        itemCount > kMaxItems)
        return B_BAD_VALUE;

    Header header{{}, kVersion, uint16(depth), uint32(size), 0, what, uint32(fields.size()),
        processBound ? ProcessIdentity() : 0};
    std::memcpy(header.magic, kMagic, sizeof(kMagic));

    bytes.clear();
    bytes.reserve(size);
    Append(bytes, header);
    for (const MessageField& field : fields) {
        const uint32 itemSize = field.fixedSize ? uint32(field.items.front().size()) : 0;
        Append(bytes,
            FieldHeader{
                field.type, uint32(field.items.size()), itemSize, uint32(field.name.size())});
        bytes += field.name;
        for (const std::string& item : field.items) {
            if (!field.fixedSize)
                Append(bytes, uint32(item.size()));
            bytes += item;
        }
    }
    header.checksum = ChecksumOf(bytes);
    std::memcpy(&bytes[kLeadSize], &header.checksum, sizeof(header.checksum));
    return B_OK;
}

status_t Unflatten(std::string_view bytes, uint32& what, std::vector<MessageField>& fields) {
    Header header;
    std::vector<FieldView> views;
    const status_t status = ReadMessage(
        bytes, kMaxDepth, header, [&views](const FieldView& view) { views.push_back(view); });
    if (status != B_OK)
        return status;

    std::vector<MessageField> read;
    read.reserve(views.size());
    for (FieldView& view : views) {
        if (IsProcessBound(view.header.type) && header.process != ProcessIdentity())
            continue;
        MessageField& field = read.emplace_back();
        field.name = view.name;
        field.type = view.header.type;
        field.fixedSize = view.header.itemSize != 0;
        field.items.reserve(view.header.itemCount);
        for (uint32 i = 0; i < view.header.itemCount; ++i) {
            std::string_view item;
            if (!TakeItem(view.items, view.header, item))
                return B_BAD_DATA;
            field.items.emplace_back(item);
        }
    }
    what = header.what;
    fields = std::move(read);
    return B_OK;
}

status_t CheckFlattened(std::string_view bytes, int maxDepth) {
    if (maxDepth < 0)
        return B_BAD_DATA;
    Header header;
    const status_t status = ReadMessage(bytes, maxDepth, header, [](const FieldView&) {});
    return status == B_OK && header.size != bytes.size() ? B_BAD_DATA : status;
}

}  // namespace BPrivate
