#pragma once

#include <array>
#include <interface/Bitmap.h>
#include <memory>
#include <string>
#include <vector>

#include "framework/BasicView.h"
#include "viewer/ContextMenu.h"
#include "viewer/ForegroundLoad.h"
#include "viewer/Geometry.h"
#include "viewer/Image.h"
#include "viewer/ImageList.h"
#include "viewer/LoadThread.h"
#include "viewer/MessageBand.h"
#include "viewer/ScrollBar.h"
#include "viewer/ScrollTiming.h"
#include "viewer/StatusView.h"

class BMessageRunner;

/// The view that shows one image of a folder at a time, with the images on either side of it
/// decoded ahead.
///
/// Everything here runs on the window's thread under its lock. What is decoded is decoded by
/// loaders. They share only the list of names with the view, which nobody changes, and report by
/// "imld"; deleting the view leaves those that still run to themselves.
class TLorivaneView : public TBasicView, public TImageList, private TAdditionHost {
public:
    explicit TLorivaneView(BRect frame);
    ~TLorivaneView() override;

    void AttachedToWindow() override;
    void AllAttached() override;
    void MessageReceived(BMessage* message) override;
    void LanguageChanged() override;

    /// Null when nothing is shown. Belongs to the view; valid while the window stays locked.
    TImage* CurrentImage() const override { return fCurrentImage.get(); }
    /// Forgets the current image. Does not draw.
    void Clear();

    // Drawing.
    void Draw(BRect updateRect) override;
    void FrameResized(float width, float height) override;
    void ResizeOffscreen();
    /// The window is on a screen that may have another resolution.
    void ScreenChanged();
    void PrefColChanged();
    void RedrawImage() override;

    // The picture's context menu.
    void MouseDown(BPoint where) override;
    bool OpenContextMenuBy(const BMessage& key);

    // Navigation.

    /// Opens the first of the message's "refs".
    void RefsReceived(BMessage* message);
    /// Lists the entry's folder, or the folder it is, and shows the entry or the first image.
    /// `then` is called when it is there or has failed.
    void SetFolder(const entry_ref& ref, const TForegroundLoad::Continuation& then = nullptr);
    /// Has the entry decoded by a loader of its own, and shows it. One that cannot be shown leaves
    /// the previous one; an index beyond the list clears. `then` is called in any case, here when
    /// the outcome is known at once.
    /// @return 0, or -1 when nothing was begun
    status_t SetCurrentImage(uint32 index, const TForegroundLoad::Continuation& then);
    /// Whether an image is being found and decoded that is to be shown.
    bool IsLoadingInForeground() const { return fForeground.IsPending(); }
    /// What is said about an image that cannot be shown; null when nothing is.
    const TLoadProblem* ShownProblem() const { return fMessage.Problem(); }
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
    void ImageFound(BMessage* message);
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
    /// The window's frame when it neither covers the screen nor is held by the desktop.
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
    void DrawBand(BView* target);
    void LayOutComment();
    void LoadComment();
    void ReloadComment();
    void RenewCommentFont();
    void ShowNothing();

    // What is said in place of an image.
    void ShowProblem(const TLoadProblem& problem);
    void TakeMessageAway();
    void RenewMessage();
    BBitmap* Band() const;
    BRect BandFrame() const;
    float BandWidth() const;
    void InvalidateBand(BRect before);

    bool ShouldSkip();
    void StepImage(int32 delta);
    void JumpToImage(uint32 index, int32 preloadDelta);
    bool StepToNeighbour(int32 delta);
    void SearchAndShow(uint32 from, int32 step, const TForegroundLoad::Continuation& then);
    void ShowFirstFrom(uint32 index, const TForegroundLoad::Continuation& then);
    void BeginImage(uint32 index);
    void ForegroundLoaded();
    void EndForeground(const TForegroundLoad::Continuation& then, const TLoadOutcome& outcome);
    void AbandonForeground();
    bool HoldWhileLoading(const BMessage& message);
    void RenumberImages();
    void DropOutdatedNeighbours();
    void SetCurrentImageFromCache(int32 slot);
    std::unique_ptr<TImage> ReplaceCurrentImage(std::unique_ptr<TImage> image, int32 oldSlot);
    void LinkNeighbours(int32 delta, const std::string& from);
    TLoadThread* FindLoader(int32 delta) const;
    LoaderPtr TakeLoader(thread_id thread);
    void ShowAwaitedImage(std::unique_ptr<TImage> image);
    void ShowAwaitedProblem(TLoadProblem problem);
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

    std::unique_ptr<TImage> fCurrentImage;
    std::array<std::unique_ptr<TImage>, 2> fCache;  // by slot
    bigtime_t fDisplayStamp = 0;  // end of the last load that the user had to wait for
    TForegroundLoad fForeground;
    TMessageBand fMessage;

    std::vector<LoaderPtr> fLoadThreads;        // started, not reported yet
    thread_id fAwaitedThread = 0;               // its image is to be shown; 0 for none
    std::array<std::string, 2> fNothingBeside;  // by slot: the path whose neighbour is not there
    std::unique_ptr<BMessageRunner> fRetryRunner;

    TContextMenu fContextMenu{this};

    TScrollTiming fScrollTiming;
    bool fScrolled = false;  // since the current image was shown

    bool fFullScreen = false;
    BRect fNormalFrame;      // of the window, from before full screen
    BRect fFullScreenFrame;  // of the window, as it was made to cover the screen
};
