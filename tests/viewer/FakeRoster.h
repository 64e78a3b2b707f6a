#pragma once

// The translator roster of these tests. It knows one format, whose files are a line of text,
// and decoding can be held up, so that a test decides when a loader is ready.

#include <interface/GraphicsDefs.h>
#include <string>
#include <support/SupportDefs.h>

namespace fake {

constexpr char kFormatName[] = "Test image";

/// What a file holds that is decoded to a plain picture.
std::string ImageFile(
    const std::string& name, int32 width, int32 height, rgb_color color, bool broken = false);

/// The format's name, kFormatName at first.
void SetFormatName(const std::string& name);

/// Decoding of the image of that name waits, from now until it is released.
void Hold(const std::string& name);
void Release(const std::string& name);
/// Also forgets all counts.
void ReleaseAll();
/// Whether a decoder waits for its release now.
bool IsHeld(const std::string& name);

/// How many times decoding of that name was started: in all, and by the given thread.
int CountDecodings(const std::string& name);
int CountDecodingsBy(int32 thread);
/// How many files were identified.
int CountIdentifications();

}  // namespace fake
