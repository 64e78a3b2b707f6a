#pragma once

#include <interface/Bitmap.h>
#include <interface/Font.h>
#include <interface/TextView.h>
#include <interface/View.h>
#include <memory>
#include <string>

/// The comment of an image: the text of the file beside it, and a band that shows it, to be laid
/// over the image.
///
/// Made by any thread; used by the window's alone. How it looks, and where the text is looked for,
/// is read from the preferences at the moment of the call.
class TComment {
public:
    TComment();
    ~TComment();

    TComment(const TComment&) = delete;
    TComment& operator=(const TComment&) = delete;

    /// Takes the text of the image's comment file, if there is one and comments are enabled, and
    /// lays it out. 0 when there was a file, even an unreadable one, or comments are off; else -1.
    status_t Load(const std::string& imageFileName);
    /// Takes away the text and the band.
    void Clear();

    /// Breaks the text into lines for a band not wider than this (right minus left) and renders
    /// the band, unless it is as it would be. The width stays for later layouts; it is never less than a pixel of text needs.
    void Resize(float width);
    /// Renders the band again, as it is, in the colours of now.
    void Draw();
    /// Takes over the font of the preferences and lays out again. A family that is not installed is
    /// replaced by a plain one.
    void SetFont();
    /// Shows the message in place of the text, until the next Load().
    void SetProgressMessage(const std::string& message);

    /// The band, null when there is no text. Belongs to this.
    BBitmap* Image() const { return fBand.get(); }
    const std::string& Text() const { return fText; }

    /// The comment file of that extension, in its spelling or in upper case: 0 and its path, or -1
    /// and the last path that was looked for.
    static status_t GetTextFileName(
        const std::string& imageFileName, const std::string& ext, std::string* textFileName);

private:
    void LayOutAgain();
    float LineHeight() const;
    bool MakeBand(float width, float height);
    void DropBand();

    float fWidth = 0;
    int32 fLines = 0;  // of the band
    float fLaidOutWidth = 0;
    float fLaidOutPadding = 0;
    std::string fText;
    std::unique_ptr<BBitmap> fBand;
    BFont fFont;
    std::unique_ptr<BTextView> fTextView;  // never shown: breaks the text into lines
    BView* fBandView = nullptr;            // draws into the band and belongs to it
};
