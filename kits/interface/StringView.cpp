#include <interface/StringView.h>

#include <app/Message.h>

#include "kits/interface/ControlPeer.h"

using namespace BPrivate;

namespace {

alignment ArchivedAlignment(const BMessage& archive) {
    const int32 number = archive.GetInt32("_align", B_ALIGN_LEFT);
    return number >= B_ALIGN_LEFT && number <= B_ALIGN_CENTER ? static_cast<alignment>(number)
                                                              : B_ALIGN_LEFT;
}

}  // namespace

class BStringView::Peer : public ControlPeer {
public:
    explicit Peer(BStringView& view) : fView(view) {}

    ControlState State() const override {
        StringViewState state;
        state.text = fView.fText;
        state.align = fView.fAlignment;
        state.font = Font();
        state.color = fView.HighColor();
        state.systemColor = state.color == rgb_color{0, 0, 0, 255};
        return state;
    }
    void UserChanged(const BMessage&) override {}

private:
    FontSpec Font() const {
        BFont font;
        fView.GetFont(&font);
        FontSpec spec;
        font_family family = {};
        font_style style = {};
        if (!(font == *be_plain_font)) {
            font.GetFamilyAndStyle(&family, &style);
            spec.family = family;
        }
        spec.size = font.Size();
        spec.bold = (font.Face() & B_BOLD_FACE) != 0;
        spec.italic = (font.Face() & B_ITALIC_FACE) != 0;
        return spec;
    }

    BStringView& fView;
};

BStringView::BStringView(
    BRect frame, const char* name, const char* text, uint32 resizingMode, uint32 flags)
    : BView(frame, name, resizingMode, flags), fText(text == nullptr ? "" : text) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BStringView::BStringView(BMessage* archive)
    : BView(archive), fText(archive->GetString("_text", "")),
      fAlignment(ArchivedAlignment(*archive)) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BStringView::~BStringView() = default;

BArchivable* BStringView::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BStringView") ? new BStringView(archive) : nullptr;
}

status_t BStringView::Archive(BMessage* archive, bool deep) const {
    status_t status = BView::Archive(archive, deep);
    if (status == B_OK)
        status = archive->AddString("_text", fText.c_str());
    if (status == B_OK)
        status = archive->AddInt32("_align", fAlignment);
    return status;
}

void BStringView::SetText(const char* text) {
    const std::string newText = text == nullptr ? "" : text;
    if (newText == fText)
        return;
    fText = newText;
    _StateChanged();
}

void BStringView::SetAlignment(alignment align) {
    if (align == fAlignment)
        return;
    fAlignment = align;
    _StateChanged();
}

void BStringView::SetHighColor(rgb_color color) {
    BView::SetHighColor(color);
    _StateChanged();
}

void BStringView::SetFont(const BFont* font, uint32 mask) {
    BView::SetFont(font, mask);
    _StateChanged();
}

void BStringView::GetPreferredSize(float* width, float* height) {
    ControlPeer::Of(this)->GetPreferredSize(width, height);
}

void BStringView::_StateChanged() {
    ControlPeer::Of(this)->StateChanged();
}
