#include "tests/viewer/FakeRoster.h"

#include <app/Message.h>
#include <condition_variable>
#include <cstring>
#include <interface/Bitmap.h>
#include <kernel/OS.h>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <sstream>
#include <support/DataIO.h>
#include <translation/BitmapStream.h>
#include <translation/TranslatorRoster.h>
#include <vector>

namespace fake {

namespace {

struct State {
    std::mutex lock;
    std::condition_variable changed;
    std::set<std::string> held;
    std::multiset<std::string> waiting;
    std::map<std::string, int> decodings;
    std::map<int32, int> decodingsByThread;
    int identifications = 0;
    std::string formatName = kFormatName;
};

State& TheState() {
    static State state;
    return state;
}

struct Header {
    std::string name;
    int32 width = 0;
    int32 height = 0;
    rgb_color color;
    bool broken = false;
};

bool ReadHeader(BPositionIO* source, Header* header) {
    char text[512] = {};
    if (source->ReadAt(0, text, sizeof(text) - 1) <= 0)
        return false;
    std::istringstream line(text);
    std::string magic;
    int red = 0, green = 0, blue = 0, alpha = 0;
    line >> magic >> header->name >> header->width >> header->height >> red >> green >> blue >>
        alpha >> header->broken;
    header->color = {static_cast<uint8>(red), static_cast<uint8>(green), static_cast<uint8>(blue),
        static_cast<uint8>(alpha)};
    return line && magic == "TESTIMAGE";
}

}  // namespace

std::string ImageFile(
    const std::string& name, int32 width, int32 height, rgb_color color, bool broken) {
    std::ostringstream line;
    line << "TESTIMAGE " << name << ' ' << width << ' ' << height << ' ' << int{color.red} << ' '
         << int{color.green} << ' ' << int{color.blue} << ' ' << int{color.alpha} << ' ' << broken
         << '\n';
    return line.str();
}

void SetFormatName(const std::string& name) {
    std::lock_guard lock(TheState().lock);
    TheState().formatName = name;
}

void Hold(const std::string& name) {
    std::lock_guard lock(TheState().lock);
    TheState().held.insert(name);
}

void Release(const std::string& name) {
    std::lock_guard lock(TheState().lock);
    TheState().held.erase(name);
    TheState().changed.notify_all();
}

void ReleaseAll() {
    std::lock_guard lock(TheState().lock);
    TheState().held.clear();
    TheState().decodings.clear();
    TheState().decodingsByThread.clear();
    TheState().identifications = 0;
    TheState().changed.notify_all();
}

bool IsHeld(const std::string& name) {
    std::lock_guard lock(TheState().lock);
    return TheState().waiting.contains(name);
}

int CountDecodings(const std::string& name) {
    std::lock_guard lock(TheState().lock);
    return TheState().decodings[name];
}

int CountDecodingsBy(int32 thread) {
    std::lock_guard lock(TheState().lock);
    return TheState().decodingsByThread[thread];
}

int CountIdentifications() {
    std::lock_guard lock(TheState().lock);
    return TheState().identifications;
}

}  // namespace fake

// The class as the translation kit declares it; linked before the kit's own.

class BTranslatorRoster::Implementation {
public:
    bool hasTranslators = false;
};

BTranslatorRoster::BTranslatorRoster() : fImplementation(std::make_unique<Implementation>()) {}

BTranslatorRoster::~BTranslatorRoster() = default;

status_t BTranslatorRoster::AddTranslators(const char*) {
    fImplementation->hasTranslators = true;
    return B_OK;
}

status_t BTranslatorRoster::Identify(
    BPositionIO* source, BMessage*, translator_info* info, uint32, const char*, uint32) {
    *info = translator_info();
    fake::Header header;
    {
        std::lock_guard lock(fake::TheState().lock);
        ++fake::TheState().identifications;
    }
    if (!fImplementation->hasTranslators || !fake::ReadHeader(source, &header))
        return B_NO_TRANSLATOR;
    info->type = 'TEST';
    info->translator = 1;
    // A format that is known but shows no picture.
    info->group = header.name == "notes" ? 'TEXT' : B_TRANSLATOR_BITMAP;
    std::lock_guard lock(fake::TheState().lock);
    std::strncpy(info->name, fake::TheState().formatName.c_str(), sizeof(info->name) - 1);
    return B_OK;
}

status_t BTranslatorRoster::Translate(BPositionIO* source, const translator_info* info,
    BMessage* ioExtension, BPositionIO* destination, uint32, uint32, const char*) {
    fake::Header header;
    if (info == nullptr || info->translator != 1 || !fake::ReadHeader(source, &header))
        return B_NO_TRANSLATOR;
    {
        fake::State& state = fake::TheState();
        std::unique_lock lock(state.lock);
        ++state.decodings[header.name];
        ++state.decodingsByThread[find_thread(nullptr)];
        auto waiting = state.waiting.insert(header.name);
        state.changed.wait(lock, [&] { return !state.held.contains(header.name); });
        state.waiting.erase(waiting);
    }
    if (header.broken) {
        ioExtension->AddString(B_TRANSLATOR_EXT_PROBLEM, "the test says so");
        ioExtension->AddBool(B_TRANSLATOR_EXT_INCOMPLETE, header.name == "incomplete");
        return header.name == "huge" ? B_NO_MEMORY : B_BAD_DATA;
    }
    auto bitmap = std::make_unique<BBitmap>(
        BRect(0, 0, static_cast<float>(header.width - 1), static_cast<float>(header.height - 1)),
        B_RGBA32);
    if (bitmap->InitCheck() != B_OK)
        return bitmap->InitCheck();
    std::vector<uint8> pixels(static_cast<size_t>(bitmap->BitsLength()), 255);
    for (size_t i = 0; i < pixels.size(); i += 4) {
        pixels[i] = header.color.blue;
        pixels[i + 1] = header.color.green;
        pixels[i + 2] = header.color.red;
        pixels[i + 3] = header.color.alpha;
    }
    // Not through Bits(), which would keep the scaled image from sharing these pixels.
    bitmap->ImportBits(pixels.data(), bitmap->BitsLength(), bitmap->BytesPerRow(), 0, B_RGBA32);
    dynamic_cast<BBitmapStream&>(*destination).Adopt(std::move(bitmap));
    return B_OK;
}
