#pragma once

#include <QRect>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "kits/desktop/FrontImage.h"

namespace BPrivate {

class WindowWidget;

/// What a looper has changed of its window and the main thread has not carried out yet. A picture
/// and the changes that belong to it come out together.
///
/// Threads. Take() is for the main thread; the others are for the looper, from any thread but one
/// at a time.
class WindowChanges {
public:
    using Change = std::function<void(WindowWidget&)>;

    explicit WindowChanges(std::shared_ptr<FrontImage> image) : fImage(std::move(image)) {}

    /// From now on changes are kept until the next Present() or Release().
    void Hold();

    // Each answers whether the main thread is to be told: it is to call Take() then.

    [[nodiscard]] bool Add(Change change);
    /// With the picture, all that was kept. Changes are kept after it as before.
    [[nodiscard]] bool Present(const PixelBuffer& buffer, QRect area);
    /// All that was kept, and the end of keeping.
    [[nodiscard]] bool Release();

    /// Hands over the changes, in their order, and the picture to the front image.
    /// @param changed the part of the picture that has changed, in units
    std::vector<Change> Take(QRect& changed);

private:
    bool MakeReady();

    const std::shared_ptr<FrontImage> fImage;
    std::mutex fLock;
    bool fHolds = false;
    bool fTold = false;  // the main thread was, and has not come yet
    std::vector<Change> fKept;
    std::vector<Change> fReady;
};

}  // namespace BPrivate
