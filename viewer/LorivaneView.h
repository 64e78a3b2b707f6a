#pragma once

#include <array>
#include <interface/Bitmap.h>
#include <memory>
#include <string>
#include <vector>

#include "framework/BasicView.h"
#include "viewer/Geometry.h"
#include "viewer/Image.h"
#include "viewer/ImageList.h"
#include "viewer/LoadThread.h"
#include "viewer/ScrollBar.h"
#include "viewer/ScrollTiming.h"
#include "viewer/StatusView.h"

class BMessageRunner;

/// The view that shows one image of a folder at a time, with the images on either side of it
/// decoded ahead.
///
/// Everything here runs on the window's thread under its lock. Loaders share only the list of
/// names with it, which nobody changes, and report by "imld"; deleting the view waits for those
/// that still run.
class TLorivaneView : public TBasicView, public TImageList {
public:
    explicit TLorivaneView(BRect frame);
    ~TLorivaneView() override;

    void AttachedToWindow() override;
    void AllAttached() override;
    void MessageReceived(BMessage* message) override;
    void LanguageChanged() override;

    /// Null when nothing is shown. Belongs to the view; valid while the window stays locked.
    TImage* CurrentImage() const { return fCurrentImage.get(); }
    /// Forgets the current image. Does not draw.
    void Clear();

    // Drawing.
    void Draw(BRect updateRect) override;
    void FrameResized(float width, float height) override;
    void ResizeOffscreen();
    void PrefColChanged();

    // Navigation.

    /// Opens the first of the message's "refs".
    void RefsReceived(BMessage* message);
    /// Lists the entry's folder, or the folder it is, and shows the entry or the first image.
    void SetFolder(const entry_ref& ref);
    /// Decodes and shows the entry, identified as `info` (null: identified here). 0, or -1 when
    /// it is no image, which leaves the previous one shown; an index beyond the list clears.
    status_t SetCurrentImage(uint32 index, const translator_info* info);
    void SetNextImage();
    void SetPrevImage();
    void SetFirstImage();
    void SetLastImage();
    /// Lays out and draws the current image at once.
    void DisplayCurrentImage();
    void SendAddHistoryRqtd(const entry_ref& ref);
    void SendRemoveHistoryRqtd(const entry_ref& ref);

    // Loading ahead.

    /// Starts a loader for the next (+1) or previous (-1) image. 0 when one was started, -1 when
    /// none is needed or it has to wait until the keys are released.
    status_t LaunchLoadThread(int32 delta);
    /// One loader for the next image or else the previous one, when none is running.
    void LaunchLoadThread();
    status_t LaunchLoadThreadRqtd(BMessage* message);
    void ImageLoaded(BMessage* message);
    bool IsCacheHit(uint32 index, int32* slot) const;
    /// Whether a loader is decoding the image after the one at `index`.
    bool IsLoading(uint32 index, TLoadThread** thread) const;
    void ClearCaches();
    /// Lets the image the user waits for go before the newest loader.
    void SuspendLoadThreads();
    void ResumeLoadThreads();
    void PrefEnablePreloadChanged();

    // Scrolling.

    /// A step towards an edge; at the edge, the previous or next image.
    void ScrollUp();
    void ScrollDown();
    void ScrollLeft();
    void ScrollRight();
    /// The coordinates never scroll: notes that the user did, and draws by the bars' values.
    void ScrollTo(BPoint where) override;
    using BView::ScrollTo;
    void SetScrollBarRange(TImage* image);
    float ScrollBarVBigStep(TImage* image) const;
    float ScrollBarHBigStep(TImage* image) const;
    /// Shows the bars that an image of these bounds needs in a window of this area.
    void ShowScrollBars(BRect imageBounds, BRect area);
    void ShowScrollBarV();
    void ShowScrollBarH();
    void HideScrollBars();
    void HideScrollBar(BScrollBar* bar);
    bool IsScrollBarMin(BScrollBar* bar) const;
    bool IsScrollBarMax(BScrollBar* bar) const;
    void ResetScrollValues();
    void ResetScrollBarPosition();
    /// Drops the keys and wheel events that wait in the window's queue.
    void RemoveScrollMessages();
    void KeyDown(const char* bytes, int32 numBytes) override;
    void MouseWheelChanged(BMessage* message);

    // Fitting.
    float BarsWidth(bool withBars) const;
    float BarsHeight(bool withBars) const;
    /// Fits the window to the image as far as the display option asks for it.
    void ResizeWindow(TImage* image);
    /// Tells assistive programs which picture is shown, and what there is to know of it.
    void TellPicture();
    /// Names the file in the window's title; none when the path is empty.
    void SetWinTitle(const std::string& path);
    void PrefDisplayOptionChanged();
    void MItemDisplayOptionClicked(BMessage* message);

    // The comment over the image.

    /// Where the left top of a band of these bounds stands.
    BPoint CommentPoint(BRect commentBounds) const;
    /// Shows at once, in place of the comment, that there is something to wait for.
    void DrawProgressString();
    /// Turns the comments on or off. The notice comes back by way of the application.
    void MItemEnableCommentClicked();
    void PrefEnableCommentChanged();
    void PrefCommentEncodingChanged();
    void PrefCommentFileExtsChanged();
    void PrefCommentFontFamilyChanged();
    void PrefCommentFontSizeChanged();
    void PrefCommentPaddingChanged();
    void PrefCommentMarginChanged();
    void PrefCommentAlignChanged();

    // Full screen: the image area alone covers the screen that the window is on.

    void SetFullScreen(bool on);
    bool IsFullScreen() const { return fFullScreen; }
    /// Where the window goes when it leaves full screen; its frame while it is not in it.
    BRect NormalWindowFrame() const;
    void SetNormalWindowFrame(BRect frame) { fNormalFrame = frame; }
    /// Places the window so that the image area lies on the screen, the menu bar above and the
    /// status bar below it.
    void CoverScreen(BRect screen);
    void LeaveFullScreen() { SetFullScreen(false); }
    void MItemFullScreenClicked();

protected:
    /// The time of a key or a turn of the wheel.
    virtual bigtime_t ScrollTime() const;
    /// Whether any loader has not reported yet.
    bool IsLoading() const { return !fLoadThreads.empty(); }

private:
    // Where a neighbour is kept.
    static constexpr int32 kPrevSlot = 0;
    static constexpr int32 kNextSlot = 1;

    static int32 SlotOf(int32 delta) { return delta > 0 ? kNextSlot : kPrevSlot; }

    ShownBars Bars() const;
    Extent ImageArea() const;
    void DrawImage(BView* target);
    void DrawComment(BView* target);
    void LayOutComment();
    void LoadComment();
    void ReloadComment();
    void RenewCommentFont();
    void ShowNothing();

    bool ShouldSkip();
    void StepImage(int32 delta);
    void JumpToImage(uint32 index, int32 preloadDelta);
    bool StepToNeighbour(int32 delta);
    std::unique_ptr<TImage> DecodeImage(const std::string& path, const translator_info* info);
    status_t FindImageBeside(int32 delta, uint32* index, translator_info* info);
    void SetCurrentImageFromCache(int32 slot);
    std::unique_ptr<TImage> ReplaceCurrentImage(std::unique_ptr<TImage> image, int32 oldSlot);
    void LinkNeighbours(int32 delta, const std::string& from);
    TLoadThread* FindLoader(int32 delta) const;
    std::unique_ptr<TLoadThread> TakeLoader(thread_id thread);
    void ShowAwaitedImage(std::unique_ptr<TImage> image);
    void CacheImage(std::unique_ptr<TImage> image);
    void DeferLaunch(int32 delta);
    void SendHistoryRqtd(uint32 what, const entry_ref& ref);

    bool IsNewPress();
    void ScrollBack(BScrollBar* bar);
    void ScrollForward(BScrollBar* bar);
    float BigStep(BScrollBar* bar) const;

    void ScaleToView(TImage* image);
    void FitWindow(TImage* image);
    void NoticeEndOfFullScreen();

    // The bars, the corner and the status bar are children and belong to the view.
    TScrollBar* fScrollBarH;
    TScrollBar* fScrollBarV;
    BView* fCornerView;
    TStatusView* fStatusView;

    std::unique_ptr<BBitmap> fOffscreenBitmap;
    BView* fOffscreenView = nullptr;  // belongs to the bitmap

    BTranslatorRoster fRoster;
    std::unique_ptr<TImage> fCurrentImage;
    std::array<std::unique_ptr<TImage>, 2> fCache;  // by slot
    bigtime_t fDisplayStamp = 0;                    // end of the last attempt to load an image here

    std::vector<std::unique_ptr<TLoadThread>> fLoadThreads;  // started, not reported yet
    thread_id fAwaitedThread = 0;                            // its image is to be shown; 0 for none
    std::array<std::string, 2> fNothingBeside;  // by slot: the path whose neighbour is not there
    std::unique_ptr<BMessageRunner> fRetryRunner;

    TScrollTiming fScrollTiming;
    bool fScrolled = false;  // since the current image was shown

    bool fFullScreen = false;
    BRect fNormalFrame;      // of the window, from before full screen
    BRect fFullScreenFrame;  // of the window, as it was made to cover the screen
};
