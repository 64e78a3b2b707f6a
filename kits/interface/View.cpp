#include <interface/View.h>

#include <app/Message.h>
#include <interface/ScrollBar.h>
#include <interface/Window.h>
#include <string_view>

#include "kits/interface/ControlPeer.h"
#include "kits/interface/ViewReading.h"
#include "kits/interface/ViewRoot.h"
#include "kits/interface/WindowData.h"

using BPrivate::ViewRoot;

BView::BView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
    : BHandler(name), fFrame(frame), fResizingMode(resizingMode), fFlags(flags) {}

BView::~BView() {
    for (BScrollBar* bar : {fHorizontalBar, fVerticalBar}) {
        if (bar != nullptr)
            bar->SetTarget(static_cast<BView*>(nullptr));
    }
    if (fParent != nullptr)
        RemoveSelf();
    // The children go while this is still a view they can ask.
    while (!fChildren.empty()) {
        BView* child = fChildren.back().get();
        RemoveChild(child);
        delete child;
    }
    for (BScrollBar* bar : {fHorizontalBar, fVerticalBar}) {
        if (bar != nullptr)
            bar->_TargetGone();
    }
}

void BView::AddChild(BView* child, BView* before) {
    if (child == nullptr || child == this || child->fParent != nullptr || child->fIsTop ||
        _IsIn(*child))
        return;
    auto place = fChildren.end();
    if (before != nullptr) {
        place = std::find_if(fChildren.begin(), fChildren.end(),
            [before](const auto& own) { return own.get() == before; });
        if (place == fChildren.end())
            return;
    }
    fChildren.insert(place, std::unique_ptr<BView>(child));
    child->fParent = this;
    if (fRoot == nullptr)
        return;
    child->_Attach(fRoot);
    child->Invalidate();
    if (fRoot->Window() != nullptr) {
        child->_AttachHooks();
        child->_AllAttachedHooks();
    }
}

bool BView::RemoveChild(BView* child) {
    // One that asks from within its own detaching is on its way out already.
    if (child == nullptr || child->fParent != this || child->fHooks == Hooks::kDetached)
        return false;
    if (ViewRoot* root = child->fRoot; root != nullptr) {
        child->Invalidate();
        if (BWindow* window = root->Window(); window != nullptr) {
            child->_DetachHooks();
            child->_AllDetachedHooks();
            window->fData->ViewLeaves(*child);
        }
        child->_Detach();
    }
    // Its place may be another than before the hooks.
    const auto place = std::find_if(fChildren.begin(), fChildren.end(),
        [child](const auto& own) { return own.get() == child; });
    if (place != fChildren.end()) {
        (void)place->release();
        fChildren.erase(place);
    }
    child->fParent = nullptr;
    return true;
}

bool BView::RemoveSelf() {
    return fParent != nullptr && fParent->RemoveChild(this);
}

void BView::_Attach(ViewRoot* root) {
    fRoot = root;
    if (BWindow* window = root->Window(); window != nullptr) {
        window->AddHandler(this);
        SetNextHandler(fParent->fIsTop ? static_cast<BHandler*>(window) : fParent);
        if (fPeer != nullptr)
            fPeer->_Attach();
        else if (fReading != nullptr)
            fReading->Update();
    }
    for (const auto& child : fChildren)
        child->_Attach(root);
}

void BView::_AttachHooks() {
    if (fHooks != Hooks::kNone)
        return;
    fHooks = Hooks::kAttached;
    AttachedToWindow();
    for (std::size_t i = 0; i < fChildren.size(); i++)
        fChildren[i]->_AttachHooks();
}

void BView::_AllAttachedHooks() {
    if (fHooks != Hooks::kAttached)
        return;
    for (std::size_t i = 0; i < fChildren.size(); i++)
        fChildren[i]->_AllAttachedHooks();
    fHooks = Hooks::kAllAttached;
    AllAttached();
}

void BView::_DetachHooks() {
    if (fHooks == Hooks::kNone || fHooks == Hooks::kDetached)
        return;
    fHooks = Hooks::kDetached;
    DetachedFromWindow();
    for (std::size_t i = 0; i < fChildren.size(); i++)
        fChildren[i]->_DetachHooks();
}

void BView::_AllDetachedHooks() {
    if (fHooks != Hooks::kDetached)
        return;
    fHooks = Hooks::kNone;
    for (std::size_t i = 0; i < fChildren.size(); i++)
        fChildren[i]->_AllDetachedHooks();
    AllDetached();
}

void BView::_Detach() {
    for (const auto& child : fChildren)
        child->_Detach();
    if (fPeer != nullptr)
        fPeer->_Detach();
    else if (fReading != nullptr)
        fReading->Forget();
    if (BWindow* window = Window(); window != nullptr)
        window->RemoveHandler(this);
    fRoot = nullptr;
    fHooks = Hooks::kNone;
    // Messages on their way were addressed to the window's handler and may be dropped.
    fMovePending = false;
    fResizePending = false;
}

void BView::_Activate(bool active) {
    WindowActivated(active);
    for (std::size_t i = 0; i < fChildren.size(); i++)
        fChildren[i]->_Activate(active);
}

bool BView::_IsIn(const BView& ancestor) const {
    for (const BView* view = this; view != nullptr; view = view->fParent) {
        if (view == &ancestor)
            return true;
    }
    return false;
}

BView* BView::Parent() const {
    return fParent != nullptr && !fParent->fIsTop ? fParent : nullptr;
}

int32 BView::CountChildren() const {
    return static_cast<int32>(fChildren.size());
}

BView* BView::ChildAt(int32 index) const {
    return index >= 0 && index < CountChildren() ? fChildren[static_cast<std::size_t>(index)].get()
                                                 : nullptr;
}

BView* BView::NextSibling() const {
    if (fParent == nullptr)
        return nullptr;
    const auto& siblings = fParent->fChildren;
    for (std::size_t i = 0; i + 1 < siblings.size(); i++) {
        if (siblings[i].get() == this)
            return siblings[i + 1].get();
    }
    return nullptr;
}

BView* BView::PreviousSibling() const {
    if (fParent == nullptr)
        return nullptr;
    const auto& siblings = fParent->fChildren;
    for (std::size_t i = 1; i < siblings.size(); i++) {
        if (siblings[i].get() == this)
            return siblings[i - 1].get();
    }
    return nullptr;
}

BView* BView::FindView(const char* name) const {
    if (name == nullptr)
        return nullptr;
    if (Name() != nullptr && std::string_view(Name()) == name)
        return const_cast<BView*>(this);
    for (const auto& child : fChildren) {
        if (BView* found = child->FindView(name); found != nullptr)
            return found;
    }
    return nullptr;
}

BWindow* BView::Window() const {
    return fRoot != nullptr ? fRoot->Window() : nullptr;
}

void BView::Draw(BRect) {}

void BView::DrawAfterChildren(BRect) {}

void BView::WindowActivated(bool) {}

void BView::FrameMoved(BPoint) {}

void BView::FrameResized(float, float) {}
