#pragma once

// The flattened form of messages, described in docs/message-format.md.

#include "kits/app/MessageField.h"

#include <string>
#include <string_view>
#include <vector>

namespace BPrivate {

// What a reader accepts, and so what a writer makes: no file and no sender costs more than this.

/// The largest flattened message, in bytes.
constexpr size_t kMaxFlattenedSize = 16 << 20;
constexpr size_t kMaxFields = 1 << 16;
/// Items of all fields of one message together, those of nested messages not counted.
constexpr size_t kMaxItems = 1 << 18;
/// How deep messages nest: one without messages in it has depth 0.
constexpr int kMaxDepth = 16;

/// The bytes at a message's start that tell its size.
constexpr size_t kLeadSize = 12;

/// The size of the whole message from its first kLeadSize bytes. B_BAD_DATA when they begin no
/// message, B_NOT_SUPPORTED for one of a later version.
[[nodiscard]] status_t FlattenedSizeFromLead(std::string_view lead, size_t& size);

size_t FlattenedSize(const std::vector<MessageField>& fields);

/// B_BAD_VALUE when the message is beyond the limits.
[[nodiscard]] status_t Flatten(
    uint32 what, const std::vector<MessageField>& fields, std::string& bytes);

/// The message that `bytes` begin with. Nothing is changed unless the result is B_OK.
[[nodiscard]] status_t Unflatten(
    std::string_view bytes, uint32& what, std::vector<MessageField>& fields);

/// Whether the bytes are exactly one message nested at most `maxDepth` deep.
[[nodiscard]] status_t CheckFlattened(std::string_view bytes, int maxDepth);

}  // namespace BPrivate
