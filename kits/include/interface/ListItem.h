#pragma once

#include <string>
#include <support/Archivable.h>

class BListView;

/// A row of a list view, which shows it as the desktop does: by its text.
///
/// Belongs to the thread of its list's window once it is in a list. One that is deleted leaves its
/// list by itself.
class BListItem : public BArchivable {
public:
    explicit BListItem(uint32 outlineLevel = 0, bool expanded = true);
    /// From an archive: "_sel" and "_disable" bool.
    explicit BListItem(BMessage* archive);
    ~BListItem() override;

    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// What the row shows, in UTF-8. After it has changed, RowChanged() shows it.
    virtual std::string RowText() const = 0;

    bool IsSelected() const { return fSelected; }
    /// Only marks the item. BListView::Select() selects it.
    void Select() { fSelected = true; }
    void Deselect() { fSelected = false; }

    /// A disabled row cannot be selected by the user.
    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const { return fEnabled; }

protected:
    /// Shows the row again, if it is in a list.
    void RowChanged();

private:
    friend class BListView;

    BListView* fList = nullptr;
    bool fSelected = false;
    bool fEnabled = true;
    bool fOwnedByList = false;
};

/// A row with a text of one line.
class BStringItem : public BListItem {
public:
    explicit BStringItem(const char* text, uint32 outlineLevel = 0, bool expanded = true);
    /// From an archive: BListItem's fields and "_label" string.
    explicit BStringItem(BMessage* archive);
    ~BStringItem() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Null counts as "". A list shows it at once.
    virtual void SetText(const char* text);
    const char* Text() const { return fText.c_str(); }

    std::string RowText() const override { return fText; }

private:
    std::string fText;
};
