#include <interface/TabView.h>

#include <algorithm>
#include <app/Message.h>
#include <cmath>
#include <string_view>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/ControlPeer.h"

using namespace BPrivate;

namespace {

constexpr const char* kContainerName = "view container";

}  // namespace

class BTabView::Peer : public ControlPeer {
public:
    explicit Peer(BTabView& view) : fTabView(view) {}

    ControlState State() const override {
        TabViewState state;
        state.selected = fTabView.fSelection;
        for (const auto& tab : fTabView.fTabs) {
            if (!tab->IsEnabled())
                state.disabled.push_back(static_cast<int32>(state.tabs.size()));
            const char* label = tab->Label();
            state.tabs.emplace_back(label != nullptr ? label : "");
        }
        return state;
    }

    void UserChanged(const BMessage& event) override {
        const int32 index = event.GetInt32("value", -1);
        const BTab* tab = fTabView.TabAt(index);
        fTabView.fShownByUser = index;
        if (tab != nullptr && tab->IsEnabled() && index != fTabView.fSelection)
            fTabView.Select(index);
        fTabView.fShownByUser = -1;
        if (fTabView.fSelection != index)
            StateChanged();
    }

private:
    BTabView& fTabView;
};

BTabView::BTabView(
    BRect frame, const char* name, button_width width, uint32 resizingMode, uint32 flags)
    : BView(frame, name, resizingMode, flags), fTabWidth(width) {
    _Install();
    _MeasureStrip();
}

BTabView::BTabView(BMessage* archive) : BView(archive) {
    int32 width = archive->GetInt16("_but_width", B_WIDTH_AS_USUAL);
    width = archive->GetInt32("_but_width", width);
    if (width == B_WIDTH_FROM_WIDEST || width == B_WIDTH_FROM_LABEL)
        fTabWidth = static_cast<button_width>(width);
    // A whole archived tree has brought its container along.
    for (int32 i = CountChildren() - 1; i >= 0; i--) {
        BView* const child = ChildAt(i);
        const char* const childName = child->Name();
        if (childName != nullptr && std::string_view(childName) == kContainerName &&
            RemoveChild(child))
            delete child;
    }
    _Install();

    constexpr float kHighest = 1000;
    const float height = archive->GetFloat("_high", 0.0F);
    if (height > 0 && height < kHighest) {
        fTabHeight = std::ceil(height);
        _PlaceContainer();
    } else {
        _MeasureStrip();
    }

    const bool hasTabs = archive->HasMessage("_l_items");
    for (int32 i = 0; archive->HasMessage(hasTabs ? "_l_items" : "_view_list", i); i++) {
        auto tab = ArchivedObject<BTab>(*archive, "_l_items", i);
        auto view = ArchivedObject<BView>(*archive, "_view_list", i);
        if (tab || view)
            AddTab(view.release(), tab.release());
    }
    _Show(archive->GetInt32("_sel", 0));
}

BTabView::~BTabView() {
    fTabs.clear();
}

void BTabView::_Install() {
    fContainer = new BView(Bounds(), kContainerName, B_FOLLOW_ALL, 0);
    fContainer->SetViewColor(B_TRANSPARENT_COLOR);
    AddChild(fContainer);
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BArchivable* BTabView::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BTabView") ? new BTabView(archive) : nullptr;
}

status_t BTabView::Archive(BMessage* archive, bool deep) const {
    // The container is made anew, and what it shows is archived with its tab.
    FirstFailure add(BView::Archive(archive, false));
    add(archive->AddInt16("_but_width", static_cast<int16>(fTabWidth)));
    add(archive->AddFloat("_high", fTabHeight));
    add(archive->AddInt32("_sel", fSelection));
    if (!deep)
        return add.Status();
    for (const auto& tab : fTabs) {
        add(AddArchiveOf(*tab, archive, "_l_items"));
        BMessage viewArchive;
        if (tab->View() != nullptr)
            add(tab->View()->Archive(&viewArchive, true));
        add(archive->AddMessage("_view_list", &viewArchive));
    }
    for (int32 i = 0; i < CountChildren(); i++) {
        if (ChildAt(i) != fContainer)
            add(AddArchiveOf(*ChildAt(i), archive, "_views"));
    }
    return add.Status();
}

void BTabView::AddTab(BView* target, BTab* tab) {
    std::unique_ptr<BTab> added(tab != nullptr ? tab : new BTab);
    added->fOwner = this;
    added->fContainerBounds = fContainer->Bounds();
    if (target != nullptr)
        added->SetView(target);
    fTabs.push_back(std::move(added));
    if (CountTabs() == 1)
        _Show(0);
    _StateChanged();
}

BTab* BTabView::RemoveTab(int32 index) {
    if (TabAt(index) == nullptr)
        return nullptr;
    const auto place = fTabs.begin() + index;
    std::unique_ptr<BTab> tab = std::move(*place);
    fTabs.erase(place);
    tab->Deselect();
    tab->fOwner = nullptr;
    if (index < fSelection) {
        fSelection--;
    } else if (index == fSelection) {
        fSelection = -1;
        if (!fTabs.empty())
            Select(std::min(index, CountTabs() - 1));
    }
    _StateChanged();
    return tab.release();
}

BTab* BTabView::TabAt(int32 index) const {
    return index >= 0 && index < CountTabs() ? fTabs[static_cast<std::size_t>(index)].get()
                                             : nullptr;
}

BView* BTabView::ViewForTab(int32 index) const {
    const BTab* tab = TabAt(index);
    return tab != nullptr ? tab->View() : nullptr;
}

BTab* BTabView::TabForView(const BView* view) const {
    const auto found =
        std::ranges::find_if(fTabs, [view](const auto& tab) { return tab->View() == view; });
    return view != nullptr && found != fTabs.end() ? found->get() : nullptr;
}

void BTabView::Select(int32 index) {
    _Show(index);
}

void BTabView::_Show(int32 index) {
    BTab* tab = TabAt(index);
    if (tab == nullptr || index == fSelection)
        return;
    if (BTab* before = TabAt(fSelection); before != nullptr)
        before->Deselect();
    fSelection = index;
    tab->Select(fContainer);
    // To hand down what the user did would undo what they have done since.
    if (index != fShownByUser)
        _StateChanged();
}

void BTabView::AttachedToWindow() {
    BView::AttachedToWindow();
    _MeasureStrip();  // the theme may be another than when it was made
}

void BTabView::GetPreferredSize(float* width, float* height) {
    const BPoint strip = TheDisplay().PreferredSize(ControlPeer::Of(this)->State());
    BPoint page;
    for (const auto& tab : fTabs) {
        if (tab->View() == nullptr)
            continue;
        page.x = std::max(page.x, tab->View()->Frame().right);
        page.y = std::max(page.y, tab->View()->Frame().bottom);
    }
    if (width != nullptr)
        *width = std::max(strip.x, page.x + 2 * kTabPaneFrame);
    if (height != nullptr)
        *height = fTabHeight + page.y + 2 * kTabPaneFrame;
}

void BTabView::_MeasureStrip() {
    fTabHeight = TheDisplay().PreferredSize(ControlPeer::Of(this)->State()).y + 1;
    _PlaceContainer();
}

void BTabView::_PlaceContainer() {
    const BRect bounds = Bounds().OffsetToCopy(B_ORIGIN);
    const BRect inside(kTabPaneFrame, fTabHeight + kTabPaneFrame, bounds.right - kTabPaneFrame,
        bounds.bottom - kTabPaneFrame);
    fContainer->MoveTo(inside.LeftTop());
    fContainer->ResizeTo(inside.Width(), inside.Height());
}

void BTabView::_StateChanged() {
    ControlPeer::Of(this)->StateChanged();
}
