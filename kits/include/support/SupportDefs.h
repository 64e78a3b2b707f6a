#pragma once

// The integer and status types every kit uses.

#include <cstddef>
#include <cstdint>
#include <sys/types.h>  // ssize_t, off_t

using int8 = std::int8_t;
using uint8 = std::uint8_t;
using int16 = std::int16_t;
using uint16 = std::uint16_t;
using int32 = std::int32_t;
using uint32 = std::uint32_t;
using int64 = std::int64_t;
using uint64 = std::uint64_t;

/// A result: `B_OK` (0) or a negative code of `support/Errors.h`.
using status_t = int32;

/// A time or a duration in microseconds.
using bigtime_t = int64;

/// Four characters as one number, the first in the most significant byte.
using type_code = uint32;

/// A port or semaphore name, a thread name: at most this many bytes with the terminating NUL.
constexpr int32 B_OS_NAME_LENGTH = 32;

#include <atomic>

#include <support/Errors.h>

/// The smaller and the greater of two values of the same type.
template <class Value>
[[nodiscard]] constexpr Value min_c(Value a, Value b) {
    return b < a ? b : a;
}

template <class Value>
[[nodiscard]] constexpr Value max_c(Value a, Value b) {
    return a < b ? b : a;
}

/// Sequentially consistent operations on a plain `int32`. All of them return the value before.
inline int32 atomic_add(int32* value, int32 addend) {
    return std::atomic_ref<int32>(*value).fetch_add(addend);
}

inline int32 atomic_and(int32* value, int32 mask) {
    return std::atomic_ref<int32>(*value).fetch_and(mask);
}

inline int32 atomic_or(int32* value, int32 mask) {
    return std::atomic_ref<int32>(*value).fetch_or(mask);
}

/// Reads a plain `int32` that other threads change with the functions above.
inline int32 atomic_get(int32* value) {
    return std::atomic_ref<int32>(*value).load();
}
