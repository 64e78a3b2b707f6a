#pragma once

#include <interface/InterfaceDefs.h>
#include <interface/View.h>
#include <memory>
#include <string>
#include <vector>

class BTabView;

/// One tab: a label, and the view that is shown while it is selected.
///
/// Owns its view, in its tab view or out of it; while the tab is selected the view belongs to the
/// tab view's ContainerView(). Belongs to its window's thread.
class BTab : public BArchivable {
public:
    /// `view` may be null. Takes ownership of it.
    explicit BTab(BView* view = nullptr);
    /// From an archive: "_disable" bool, "_label" string (missing: the view's name).
    explicit BTab(BMessage* archive);
    ~BTab() override;

    static BArchivable* Instantiate(BMessage* archive);
    /// Without the view, which a tab view archives itself.
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// The label given, or else the view's name; null for neither.
    const char* Label() const;
    /// Null makes it the view's name again. A tab view shows it at once.
    virtual void SetLabel(const char* label);

    bool IsSelected() const { return fSelected; }
    /// Shows the view in `owner`, a tab view's container.
    virtual void Select(BView* owner);
    /// Takes the view out of where it is shown.
    virtual void Deselect();

    /// A disabled tab cannot be chosen by the user.
    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const { return fEnabled; }

    /// Takes ownership, and deletes the view before. Shown at once where the tab is selected.
    virtual void SetView(BView* view);
    BView* View() const { return fView; }

private:
    friend class BTabView;

    void _Changed();

    BTabView* fOwner = nullptr;
    BView* fView = nullptr;
    std::unique_ptr<BView> fKept;  // fView, while no container has it
    BRect fContainerBounds;        // that the view was last in: it follows later ones
    std::string fLabel;
    bool fHasLabel = false;
    bool fEnabled = true;
    bool fSelected = false;
};

/// A strip of tabs over a frame, in which the view of the selected tab is shown.
///
/// Only that view is in the tree of views; those of the other tabs are attached to nothing, so
/// FindView() finds what is in them only when it is called on themselves (`ViewForTab(i)`). They
/// can be changed like any other view, and show it when they are selected. A view keeps the frame
/// it was given, in the coordinates of ContainerView(), and follows a change of that one's size by
/// its resizing mode, also if it was not shown meanwhile.
///
/// The frame of the pane is as the theme draws it. A view without a colour of its own choosing
/// should take the panel's (`ui_color(B_PANEL_BACKGROUND_COLOR)`).
///
/// Owns its tabs and their views. Belongs to its window's thread. The size of the strip is asked
/// of the display, which is waited for.
class BTabView : public BView {
public:
    BTabView(BRect frame, const char* name, button_width width = B_WIDTH_AS_USUAL,
        uint32 resizingMode = B_FOLLOW_ALL,
        uint32 flags = B_FULL_UPDATE_ON_RESIZE | B_WILL_DRAW | B_NAVIGABLE_JUMP | B_FRAME_EVENTS |
            B_NAVIGABLE);
    /// From an archive: BView's fields and "_but_width" int16 or int32, "_high" float (height of
    /// the strip), "_sel" int32, and for every tab, at the same index, the tab in "_l_items" and
    /// its view in "_view_list" (messages; an empty one for a tab without a view). Tabs may also
    /// be missing altogether; every view of "_view_list" has one then, labelled with its name.
    explicit BTabView(BMessage* archive);
    ~BTabView() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Adds a tab at the end. Takes ownership of both; without a tab one is made. `target`
    /// becomes the tab's view; null leaves the view the tab has. The first tab is selected.
    virtual void AddTab(BView* target, BTab* tab = nullptr);
    /// The tab, with its view, belongs to the caller again; null for no such index. The selection
    /// passes to the one after it, or before when it was the last.
    virtual BTab* RemoveTab(int32 index);
    int32 CountTabs() const { return static_cast<int32>(fTabs.size()); }
    /// Null for no such index.
    virtual BTab* TabAt(int32 index) const;
    BView* ViewForTab(int32 index) const;
    /// The tab whose view that is; null for none.
    BTab* TabForView(const BView* view) const;

    /// Hook: the tab is to be selected, by the user or the program. The base shows its view. An
    /// index that does not exist changes nothing.
    virtual void Select(int32 index);
    /// -1 without tabs.
    int32 Selection() const { return fSelection; }

    /// The tab that the keys would move away from: the selected one, -1 while the strip does not
    /// have them.
    int32 FocusTab() const { return IsFocus() ? fSelection : -1; }

    /// The view that the selected tab's view is put in: all inside of the theme's frame.
    BView* ContainerView() const { return fContainer; }
    /// Height of the strip above the frame.
    float TabHeight() const { return fTabHeight; }
    virtual void SetTabWidth(button_width width) { fTabWidth = width; }
    button_width TabWidth() const { return fTabWidth; }

    void AttachedToWindow() override;
    /// The largest size of the tabs' views with the strip and the frame around it.
    void GetPreferredSize(float* width, float* height) override;

private:
    friend class BTab;
    class Peer;

    void _Install();
    void _MeasureStrip();
    void _PlaceContainer();
    void _Show(int32 index);
    void _StateChanged();

    std::vector<std::unique_ptr<BTab>> fTabs;
    BView* fContainer = nullptr;  // a child
    int32 fSelection = -1;
    int32 fShownByUser = -1;  // the tab that the strip shows already, while its page is fetched
    float fTabHeight = 0;
    button_width fTabWidth = B_WIDTH_AS_USUAL;
};
