#pragma once

#include "kits/translation/AddOn.h"
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace BPrivate::AddOn {

/// How libjpeg's errors, and those of its warnings that mean a damaged picture, end a call.
///
/// libjpeg reports them by a function that must not return. That function jumps to where
/// setjmp(jump) was called, so between there and libjpeg nothing may live that has a destructor.
struct JpegErrors {
    jpeg_error_mgr manager;  // First: libjpeg hands out its address as that of the whole.
    std::jmp_buf jump;
    Problem* problem;

    JpegErrors();
};

/// Ends the present call of libjpeg with a problem of our own.
[[noreturn]] void StopJpeg(j_common_ptr jpeg, status_t status, const char* text);

/// Notes whether the file ended too early, for the problem that is about to be told.
void SetJpegIncomplete(j_common_ptr jpeg, bool incomplete);

}  // namespace BPrivate::AddOn
