#pragma once

#include <atomic>
#include <mutex>
#include <type_traits>
#include <utility>

/// One field of a record that several threads read while one writes. Reading gives a whole value,
/// the old one or the new; there is no order between fields.
///
/// Small plain values are atomic, others are guarded by a lock held only for the copy.
template <typename T, bool kPlain = std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(long)>
class TPrefField {
public:
    TPrefField(T value) : fValue(std::move(value)) {}
    TPrefField(const TPrefField& other) : fValue(other.Get()) {}
    TPrefField& operator=(const TPrefField& other) {
        Set(other.Get());
        return *this;
    }
    TPrefField& operator=(T value) {
        Set(std::move(value));
        return *this;
    }

    T Get() const {
        const std::lock_guard lock(fLock);
        return fValue;
    }
    void Set(T value) {
        const std::lock_guard lock(fLock);
        std::swap(fValue, value);  // the old value is freed after the lock
    }
    operator T() const { return Get(); }

private:
    mutable std::mutex fLock;
    T fValue;
};

template <typename T>
class TPrefField<T, true> {
public:
    TPrefField(T value) : fValue(value) {}
    TPrefField(const TPrefField& other) : fValue(other.Get()) {}
    TPrefField& operator=(const TPrefField& other) {
        Set(other.Get());
        return *this;
    }
    TPrefField& operator=(T value) {
        Set(value);
        return *this;
    }

    T Get() const { return fValue.load(std::memory_order_relaxed); }
    void Set(T value) { fValue.store(value, std::memory_order_relaxed); }
    operator T() const { return Get(); }

private:
    std::atomic<T> fValue;
};
