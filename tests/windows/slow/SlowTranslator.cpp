// A translator for tests of what goes on while a picture is decoded. Its files begin with
// "SLOW WAIT": they are decoded for as long as they do. One that is overwritten with "SLOW SHOW"
// becomes a picture of 320 by 240 pixels of one colour, with anything else a damaged one.

#include "kits/translation/AddOn.h"

#include <cstring>
#include <unistd.h>

using namespace BPrivate::AddOn;

namespace {

constexpr size_t kLength = 9;
constexpr Size kSize{320, 240};
constexpr uint8 kColor[] = {30, 160, 80, 255};
constexpr useconds_t kPause = 2000;

bool BeginsWith(Source& source, const char* text) {
    char head[kLength + 1] = {};
    return source.ReadAt(0, head, kLength) >= 0 && strcmp(head, text) == 0;
}

class SlowDecoder final : public Decoder {
public:
    explicit SlowDecoder(Source& source) : fSource(source) {}

    Size PictureSize() const override { return kSize; }

    status_t Decode(uint8* bits, size_t bytesPerRow, Problem* problem) override {
        while (BeginsWith(fSource, "SLOW WAIT"))
            usleep(kPause);
        if (!BeginsWith(fSource, "SLOW SHOW"))
            return problem->status = B_BAD_DATA;
        for (size_t y = 0; y < kSize.height; y++) {
            for (size_t x = 0; x < kSize.width; x++)
                memcpy(bits + y * bytesPerRow + x * sizeof(kColor), kColor, sizeof(kColor));
        }
        return B_OK;
    }

private:
    Source& fSource;
};

class SlowTranslator final : public Translator {
public:
    const char* Name() const override { return "Slow pictures"; }
    const char* Info() const override { return "For tests"; }
    int32 Version() const override { return 100; }

    status_t Identify(Source& source, Format* format) override {
        if (!BeginsWith(source, "SLOW WAIT") && !BeginsWith(source, "SLOW SHOW"))
            return B_NO_TRANSLATOR;
        *format = {'SLOW', "Slow picture", "image/x-slow", 1, 1};
        return B_OK;
    }

    std::unique_ptr<Decoder> Open(Source& source, uint64, Problem*) override {
        return std::make_unique<SlowDecoder>(source);
    }
};

}  // namespace

extern "C" [[gnu::visibility("default")]] Translator* lorivane_translator(uint32 version) {
    static SlowTranslator translator;
    return version == kInterfaceVersion ? &translator : nullptr;
}
