#pragma once

#include "kits/translation/AddOn.h"
#include <cstdarg>
#include <cstdio>

namespace BPrivate::AddOn {

/// Describes a failure, as printf does, and returns its status.
[[gnu::format(printf, 3, 4)]] inline status_t Fail(
    Problem* problem, status_t status, const char* format, ...) {
    problem->status = status;
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(problem->text, sizeof(problem->text), format, arguments);
    va_end(arguments);
    return status;
}

/// The file ends before the picture does.
inline status_t FailIncomplete(Problem* problem) {
    problem->incomplete = true;
    return Fail(problem, B_BAD_DATA, "the file ends before the picture does");
}

}  // namespace BPrivate::AddOn
