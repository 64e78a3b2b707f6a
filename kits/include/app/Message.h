#pragma once

#include <app/Messenger.h>
#include <interface/GraphicsDefs.h>
#include <interface/Point.h>
#include <interface/Rect.h>
#include <string>
#include <support/SupportDefs.h>
#include <support/TypeConstants.h>
#include <vector>

class BDataIO;
class BString;
struct entry_ref;

namespace BPrivate {
class MessageAccess;
struct MessageField;
}  // namespace BPrivate

/// A command code and any number of named, typed fields.
///
/// A field is an array: adding to a name again appends, and every item of a name has one type.
/// Fields keep the order they were first added in. Names are at most 255 bytes. A message belongs
/// to one thread at a time; sending copies it.
///
/// Results: B_BAD_VALUE for a null name or data that its type cannot hold, B_NAME_NOT_FOUND,
/// B_BAD_TYPE when the field has another type, B_BAD_INDEX. A Find that fails leaves the caller's
/// variable alone. Pointers handed out point into the message: they hold until it is changed or
/// deleted.
class BMessage {
public:
    uint32 what = 0;

    BMessage();
    explicit BMessage(uint32 command);
    BMessage(const BMessage& other);
    BMessage(BMessage&& other) noexcept;
    /// Deleting a received message whose sender waits answers it with B_NO_REPLY.
    virtual ~BMessage();
    BMessage& operator=(const BMessage& other);
    BMessage& operator=(BMessage&& other) noexcept;

    /// The `n`th field whose type is `type` (B_ANY_TYPE: any). The name points into the message.
    status_t GetInfo(
        type_code type, int32 n, char** name, type_code* foundType, int32* count = nullptr) const;
    status_t GetInfo(const char* name, type_code* type, int32* count = nullptr) const;
    status_t GetInfo(const char* name, type_code* type, bool* fixedSize) const;
    /// How many fields there are of that type (B_ANY_TYPE: of all).
    int32 CountNames(type_code type) const;
    bool IsEmpty() const;
    /// Whether the message is one of the kits' own (codes like '_QRQ', and replies).
    bool IsSystem() const;
    /// Whether it was sent as an answer.
    bool IsReply() const;
    /// Writes the message to standard output, a field a line.
    void PrintToStream() const;

    /// B_NAME_IN_USE when the new name exists.
    status_t Rename(const char* name, const char* newName);
    status_t RemoveData(const char* name, int32 index = 0);
    status_t RemoveName(const char* name);
    /// Removes every field. `what` stays.
    status_t MakeEmpty();

    bool WasDelivered() const;
    /// Whether the message came from another process, itself or by being passed on.
    bool IsSourceRemote() const;
    /// Whether the sender is blocked until it is answered.
    bool IsSourceWaiting() const;
    BMessenger ReturnAddress() const;
    bool WasDropped() const;
    /// Where it was dropped, in screen coordinates; `offset` is always (0, 0).
    BPoint DropPoint(BPoint* offset = nullptr) const;
    /// Answers the sender. B_BAD_REPLY when the message was not delivered, B_DUPLICATE_REPLY when
    /// a waiting sender has its answer already.
    status_t SendReply(uint32 command, BHandler* replyTo = nullptr);
    status_t SendReply(
        BMessage* reply, BHandler* replyTo = nullptr, bigtime_t timeout = B_INFINITE_TIMEOUT);

    // The flattened form is described in docs/message-format.md. Pointers and messengers are
    // only found again by the process that flattened them; anyone else reads the message
    // without those fields.

    /// In bytes.
    ssize_t FlattenedSize() const;
    status_t Flatten(char* buffer, ssize_t size) const;
    /// `size`, when given, is set to the number of bytes written.
    status_t Flatten(BDataIO* stream, ssize_t* size = nullptr) const;
    /// Replaces the whole message, or fails with B_BAD_DATA (not a flattened message),
    /// B_NOT_SUPPORTED (of a later version) or the stream's error and leaves it as it was.
    /// `size` may be larger than the message; what follows it is not looked at.
    status_t Unflatten(const char* buffer, ssize_t size);
    /// Leaves the stream behind the message.
    status_t Unflatten(BDataIO* stream);

    status_t AddBool(const char* name, bool value);
    status_t AddInt8(const char* name, int8 value);
    status_t AddUInt8(const char* name, uint8 value);
    status_t AddInt16(const char* name, int16 value);
    status_t AddUInt16(const char* name, uint16 value);
    status_t AddInt32(const char* name, int32 value);
    status_t AddUInt32(const char* name, uint32 value);
    status_t AddInt64(const char* name, int64 value);
    status_t AddUInt64(const char* name, uint64 value);
    status_t AddFloat(const char* name, float value);
    status_t AddDouble(const char* name, double value);
    status_t AddString(const char* name, const char* value);
    status_t AddString(const char* name, const BString& value);
    status_t AddPoint(const char* name, BPoint value);
    status_t AddRect(const char* name, BRect value);
    status_t AddColor(const char* name, rgb_color value);
    /// The message does not own what the pointer points to.
    status_t AddPointer(const char* name, const void* value);
    status_t AddMessenger(const char* name, const BMessenger& value);
    status_t AddRef(const char* name, const entry_ref* value);
    /// Copies the message. B_BAD_VALUE when messages would be nested more than 16 deep.
    status_t AddMessage(const char* name, const BMessage* value);
    /// Copies the bytes. Items of a fixed-size field all have the size of its first.
    /// `expectedCount` is a hint and may be anything.
    status_t AddData(const char* name, type_code type, const void* data, ssize_t size,
        bool fixedSize = true, int32 expectedCount = 1);

    status_t FindBool(const char* name, bool* value) const;
    status_t FindBool(const char* name, int32 index, bool* value) const;
    status_t FindInt8(const char* name, int8* value) const;
    status_t FindInt8(const char* name, int32 index, int8* value) const;
    status_t FindUInt8(const char* name, uint8* value) const;
    status_t FindUInt8(const char* name, int32 index, uint8* value) const;
    status_t FindInt16(const char* name, int16* value) const;
    status_t FindInt16(const char* name, int32 index, int16* value) const;
    status_t FindUInt16(const char* name, uint16* value) const;
    status_t FindUInt16(const char* name, int32 index, uint16* value) const;
    status_t FindInt32(const char* name, int32* value) const;
    status_t FindInt32(const char* name, int32 index, int32* value) const;
    status_t FindUInt32(const char* name, uint32* value) const;
    status_t FindUInt32(const char* name, int32 index, uint32* value) const;
    status_t FindInt64(const char* name, int64* value) const;
    status_t FindInt64(const char* name, int32 index, int64* value) const;
    status_t FindUInt64(const char* name, uint64* value) const;
    status_t FindUInt64(const char* name, int32 index, uint64* value) const;
    status_t FindFloat(const char* name, float* value) const;
    status_t FindFloat(const char* name, int32 index, float* value) const;
    status_t FindDouble(const char* name, double* value) const;
    status_t FindDouble(const char* name, int32 index, double* value) const;
    status_t FindString(const char* name, const char** value) const;
    status_t FindString(const char* name, int32 index, const char** value) const;
    status_t FindString(const char* name, BString* value) const;
    status_t FindString(const char* name, int32 index, BString* value) const;
    status_t FindPoint(const char* name, BPoint* value) const;
    status_t FindPoint(const char* name, int32 index, BPoint* value) const;
    status_t FindRect(const char* name, BRect* value) const;
    status_t FindRect(const char* name, int32 index, BRect* value) const;
    status_t FindColor(const char* name, rgb_color* value) const;
    status_t FindColor(const char* name, int32 index, rgb_color* value) const;
    status_t FindPointer(const char* name, void** value) const;
    status_t FindPointer(const char* name, int32 index, void** value) const;
    status_t FindMessenger(const char* name, BMessenger* value) const;
    status_t FindMessenger(const char* name, int32 index, BMessenger* value) const;
    status_t FindRef(const char* name, entry_ref* value) const;
    status_t FindRef(const char* name, int32 index, entry_ref* value) const;
    status_t FindMessage(const char* name, BMessage* value) const;
    status_t FindMessage(const char* name, int32 index, BMessage* value) const;
    /// B_ANY_TYPE takes a field of any type.
    status_t FindData(const char* name, type_code type, const void** data, ssize_t* size) const;
    status_t FindData(
        const char* name, type_code type, int32 index, const void** data, ssize_t* size) const;

    status_t ReplaceBool(const char* name, bool value);
    status_t ReplaceBool(const char* name, int32 index, bool value);
    status_t ReplaceInt8(const char* name, int8 value);
    status_t ReplaceInt8(const char* name, int32 index, int8 value);
    status_t ReplaceUInt8(const char* name, uint8 value);
    status_t ReplaceUInt8(const char* name, int32 index, uint8 value);
    status_t ReplaceInt16(const char* name, int16 value);
    status_t ReplaceInt16(const char* name, int32 index, int16 value);
    status_t ReplaceUInt16(const char* name, uint16 value);
    status_t ReplaceUInt16(const char* name, int32 index, uint16 value);
    status_t ReplaceInt32(const char* name, int32 value);
    status_t ReplaceInt32(const char* name, int32 index, int32 value);
    status_t ReplaceUInt32(const char* name, uint32 value);
    status_t ReplaceUInt32(const char* name, int32 index, uint32 value);
    status_t ReplaceInt64(const char* name, int64 value);
    status_t ReplaceInt64(const char* name, int32 index, int64 value);
    status_t ReplaceUInt64(const char* name, uint64 value);
    status_t ReplaceUInt64(const char* name, int32 index, uint64 value);
    status_t ReplaceFloat(const char* name, float value);
    status_t ReplaceFloat(const char* name, int32 index, float value);
    status_t ReplaceDouble(const char* name, double value);
    status_t ReplaceDouble(const char* name, int32 index, double value);
    status_t ReplaceString(const char* name, const char* value);
    status_t ReplaceString(const char* name, int32 index, const char* value);
    status_t ReplaceString(const char* name, const BString& value);
    status_t ReplaceString(const char* name, int32 index, const BString& value);
    status_t ReplacePoint(const char* name, BPoint value);
    status_t ReplacePoint(const char* name, int32 index, BPoint value);
    status_t ReplaceRect(const char* name, BRect value);
    status_t ReplaceRect(const char* name, int32 index, BRect value);
    status_t ReplaceColor(const char* name, rgb_color value);
    status_t ReplaceColor(const char* name, int32 index, rgb_color value);
    status_t ReplacePointer(const char* name, const void* value);
    status_t ReplacePointer(const char* name, int32 index, const void* value);
    status_t ReplaceMessenger(const char* name, const BMessenger& value);
    status_t ReplaceMessenger(const char* name, int32 index, const BMessenger& value);
    status_t ReplaceRef(const char* name, const entry_ref* value);
    status_t ReplaceRef(const char* name, int32 index, const entry_ref* value);
    status_t ReplaceMessage(const char* name, const BMessage* value);
    status_t ReplaceMessage(const char* name, int32 index, const BMessage* value);
    status_t ReplaceData(const char* name, type_code type, const void* data, ssize_t size);
    status_t ReplaceData(
        const char* name, type_code type, int32 index, const void* data, ssize_t size);

    bool HasBool(const char* name, int32 index = 0) const;
    bool HasInt8(const char* name, int32 index = 0) const;
    bool HasUInt8(const char* name, int32 index = 0) const;
    bool HasInt16(const char* name, int32 index = 0) const;
    bool HasUInt16(const char* name, int32 index = 0) const;
    bool HasInt32(const char* name, int32 index = 0) const;
    bool HasUInt32(const char* name, int32 index = 0) const;
    bool HasInt64(const char* name, int32 index = 0) const;
    bool HasUInt64(const char* name, int32 index = 0) const;
    bool HasFloat(const char* name, int32 index = 0) const;
    bool HasDouble(const char* name, int32 index = 0) const;
    bool HasString(const char* name, int32 index = 0) const;
    bool HasPoint(const char* name, int32 index = 0) const;
    bool HasRect(const char* name, int32 index = 0) const;
    bool HasColor(const char* name, int32 index = 0) const;
    bool HasPointer(const char* name, int32 index = 0) const;
    bool HasMessenger(const char* name, int32 index = 0) const;
    bool HasRef(const char* name, int32 index = 0) const;
    bool HasMessage(const char* name, int32 index = 0) const;
    bool HasData(const char* name, type_code type, int32 index = 0) const;

    // The value, or `fallback` where the field, the index or the type is not there.
    bool GetBool(const char* name, bool fallback = false) const;
    bool GetBool(const char* name, int32 index, bool fallback) const;
    int8 GetInt8(const char* name, int8 fallback) const;
    int8 GetInt8(const char* name, int32 index, int8 fallback) const;
    uint8 GetUInt8(const char* name, uint8 fallback) const;
    uint8 GetUInt8(const char* name, int32 index, uint8 fallback) const;
    int16 GetInt16(const char* name, int16 fallback) const;
    int16 GetInt16(const char* name, int32 index, int16 fallback) const;
    uint16 GetUInt16(const char* name, uint16 fallback) const;
    uint16 GetUInt16(const char* name, int32 index, uint16 fallback) const;
    int32 GetInt32(const char* name, int32 fallback) const;
    int32 GetInt32(const char* name, int32 index, int32 fallback) const;
    uint32 GetUInt32(const char* name, uint32 fallback) const;
    uint32 GetUInt32(const char* name, int32 index, uint32 fallback) const;
    int64 GetInt64(const char* name, int64 fallback) const;
    int64 GetInt64(const char* name, int32 index, int64 fallback) const;
    uint64 GetUInt64(const char* name, uint64 fallback) const;
    uint64 GetUInt64(const char* name, int32 index, uint64 fallback) const;
    float GetFloat(const char* name, float fallback) const;
    float GetFloat(const char* name, int32 index, float fallback) const;
    double GetDouble(const char* name, double fallback) const;
    double GetDouble(const char* name, int32 index, double fallback) const;
    const char* GetString(const char* name, const char* fallback = nullptr) const;
    const char* GetString(const char* name, int32 index, const char* fallback) const;
    BPoint GetPoint(const char* name, BPoint fallback) const;
    BPoint GetPoint(const char* name, int32 index, BPoint fallback) const;
    BRect GetRect(const char* name, BRect fallback) const;
    BRect GetRect(const char* name, int32 index, BRect fallback) const;
    rgb_color GetColor(const char* name, rgb_color fallback) const;
    rgb_color GetColor(const char* name, int32 index, rgb_color fallback) const;
    const void* GetPointer(const char* name, const void* fallback = nullptr) const;
    const void* GetPointer(const char* name, int32 index, const void* fallback) const;

private:
    friend class BPrivate::MessageAccess;

    // How the message came here. A copy knows where it came from but owes the sender nothing.
    struct Delivery {
        BMessenger target;
        BMessenger replyTo;
        bool delivered = false;
        bool remote = false;
        bool sourceWaiting = false;
        bool replied = false;
        bool isReply = false;
    };

    static bool IsFieldName(const char* name);
    BPrivate::MessageField* FindField(const char* name);
    const BPrivate::MessageField* FindField(const char* name) const;
    const std::string* FindItem(
        const char* name, type_code type, int32 index, status_t* result) const;
    status_t AddItem(const char* name, type_code type, std::string item, bool fixedSize);
    status_t ReplaceItem(const char* name, type_code type, int32 index, std::string item);

    std::vector<BPrivate::MessageField> fFields;
    Delivery fDelivery;
};
