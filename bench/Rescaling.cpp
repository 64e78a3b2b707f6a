// Bringing an image of 12 megapixels to another size and drawing all of it, as a change of the display
// option does in a window that shows all, against a plain loop that copies the nearest pixels.

#include <app/AppDefs.h>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <interface/Bitmap.h>
#include <interface/View.h>
#include <storage/File.h>
#include <translation/TranslationDefs.h>
#include <translation/TranslatorRoster.h>

#include "bench/Photo.h"
#include "bench/Report.h"
#include "kits/interface/BitmapAccess.h"
#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "viewer/Image.h"

namespace {

constexpr int kRuns = 25;
constexpr double kLimit = 2.0;

[[noreturn]] void GiveUp(const char* reason) {
    std::fprintf(stderr, "%s\n", reason);
    std::_Exit(1);
}

/// As plainly as it can be said without dividing for every pixel. The memory is there already.
void CopyNearest(const BBitmap& from, std::vector<uint32_t>& to, int32 width, int32 height) {
    const int32 fromWidth = from.Bounds().IntegerWidth() + 1;
    const int32 fromHeight = from.Bounds().IntegerHeight() + 1;
    // Who asks the bitmap for its bits ends the sharing of its pixels, and so what is measured.
    const uint8* bits = BPrivate::BitmapAccess::Pixels(from).bits;
    std::vector<int32> columns(static_cast<size_t>(width));
    for (int32 x = 0; x < width; ++x)
        columns[static_cast<size_t>(x)] = (2 * x + 1) * fromWidth / (2 * width);
    for (int32 y = 0; y < height; ++y) {
        const int32 fromY = (2 * y + 1) * fromHeight / (2 * height);
        const auto* row = reinterpret_cast<const uint32_t*>(
            bits + static_cast<std::ptrdiff_t>(fromY) * from.BytesPerRow());
        uint32_t* target = to.data() + static_cast<std::ptrdiff_t>(y) * width;
        for (int32 x = 0; x < width; ++x)
            target[x] = row[columns[static_cast<size_t>(x)]];
    }
}

/// Whether both hold the same picture.
bool IsSame(const BBitmap& bitmap, const std::vector<uint32_t>& pixels, int32 width, int32 height) {
    for (int32 y = 0; y < height; ++y) {
        const auto* row = static_cast<const uint8*>(bitmap.Bits()) +
            static_cast<std::ptrdiff_t>(y) * bitmap.BytesPerRow();
        if (std::memcmp(row, pixels.data() + static_cast<std::ptrdiff_t>(y) * width,
                static_cast<size_t>(width) * 4) != 0)
            return false;
    }
    return true;
}

bool Measure(TImage& image, const char* what, int32 width, int32 height) {
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
    std::vector<double> byHand, byImage;
    const BRect frame(0, 0, static_cast<float>(width - 1), static_cast<float>(height - 1));
    BBitmap shown(frame, B_RGBA32, true);
    auto* view = new BView(frame, "shown", B_FOLLOW_NONE, 0);
    shown.AddChild(view);
    // Who has asked for the bits sees them drawn, as a window's are.
    if (shown.Bits() == nullptr)
        GiveUp("no memory");
    for (int run = 0; run < kRuns; ++run) {
        auto start = bench::Clock::now();
        CopyNearest(*image.OrgImage(), pixels, width, height);
        byHand.push_back(bench::MillisecondsSince(start));

        // To another option and back; the way there costs nothing at the natural size.
        gPrefs.fDisplayOption = kDontFitAnything;
        image.Resize(static_cast<float>(width - 1), static_cast<float>(height - 1));
        gPrefs.fDisplayOption = kFitImageToWindow;
        start = bench::Clock::now();
        image.Resize(static_cast<float>(width - 1), static_cast<float>(height - 1));
        view->DrawBitmap(image.Image(), B_ORIGIN);
        byImage.push_back(bench::MillisecondsSince(start));
    }
    if (!IsSame(shown, pixels, width, height))
        GiveUp("the two pictures differ");
    const double hand = bench::Median(byHand);
    const double own = bench::Median(byImage);
    std::printf("12 megapixels to %d x %d: %.2f ms, by hand %.2f ms (median of %d)\n", width,
        height, own, hand, kRuns);
    return bench::Judge(what, own / hand, kLimit, "x");
}

}  // namespace

int main() {
    bench::PrintMachine();
    std::string pattern =
        (std::filesystem::temp_directory_path() / "lorivane-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        GiveUp("no temporary folder");
    const std::string photo = (std::filesystem::path(pattern) / "photo.jpg").string();
    if (!bench::WritePhoto(photo, 1))
        GiveUp("the photograph could not be written");

    BTranslatorRoster roster;
    roster.AddTranslators(nullptr);
    BFile file(photo.c_str(), B_READ_ONLY);
    translator_info info;
    if (roster.Identify(&file, nullptr, &info, 0, nullptr, B_TRANSLATOR_BITMAP) != B_OK)
        GiveUp("the photograph is not recognised");
    TImage image(photo, &roster, info);
    std::filesystem::remove_all(pattern);
    if (image.InitCheck() != B_OK)
        GiveUp("the photograph is not decoded");

    bool good = Measure(image, "fitting to a window, against a nearest-pixel loop", 1600, 1000);
    good &= Measure(image, "enlarging, against a nearest-pixel loop", 5000, 3750);
    return good ? 0 : 1;
}
