#pragma once

#include <memory>

#include "comment/Comment.h"
#include "viewer/LoadProblem.h"

/// The band that says why there is no image, drawn as a comment is, whether there is an image under
/// it or none.
///
/// Belongs to the window's thread.
class TMessageBand {
public:
    TMessageBand();
    ~TMessageBand();

    TMessageBand(const TMessageBand&) = delete;
    TMessageBand& operator=(const TMessageBand&) = delete;

    /// Says it in the language and the font of now, in a band not wider than this.
    void Show(const TLoadProblem& problem, float width);
    void Clear();
    /// Says the same again, in what language, font and colours are now, and for another width.
    void Renew(float width);

    bool IsShown() const { return fText != nullptr; }
    /// Null when nothing is said.
    const TLoadProblem* Problem() const { return fText ? &fProblem : nullptr; }
    /// Null when nothing is said. Belongs to this.
    BBitmap* Image() const { return fText ? fText->Image() : nullptr; }

private:
    TLoadProblem fProblem;
    std::unique_ptr<TComment> fText;
};
