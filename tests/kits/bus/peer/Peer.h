#pragma once

#include <kernel/OS.h>
#include <string>
#include <vector>

/// The bytes that go with a code.
inline std::string Pattern(int32 code, size_t size) {
    std::string bytes(size, '\0');
    for (size_t i = 0; i < size; ++i)
        bytes[i] = char(i * 31 + i / 4096 + size_t(code));
    return bytes;
}

/// Reads a message of a port: "CODE SIZE good", or its error.
inline std::string Read(port_id port, bigtime_t timeout = B_INFINITE_TIMEOUT) {
    const ssize_t size = port_buffer_size_etc(port, B_RELATIVE_TIMEOUT, timeout);
    if (size < 0)
        return std::to_string(size);
    int32 code = 0;
    std::string bytes(size_t(size), '\0');
    const ssize_t count = read_port(port, &code, bytes.data(), bytes.size());
    const bool isGood = count == size && bytes == Pattern(code, bytes.size());
    return std::to_string(code) + " " + std::to_string(count) + (isGood ? " good" : " bad");
}

/// The process as an application of that signature: peer/Application.cpp.
int RunApplication(const char* signature);
