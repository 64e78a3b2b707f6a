#pragma once

// What a dialog makes of a layout that is missing or broken.

#include <app/Application.h>
#include <app/Message.h>
#include <gtest/gtest.h>
#include <storage/Resources.h>

#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "framework/Layout.h"

/// Gives the program other layouts in place of one of its own, and that one back at the end.
class TBrokenLayout {
public:
    /// @param makeDialog makes the dialog and ends it; its status is the dialog's InitCheck()
    TBrokenLayout(const char* name, std::function<status_t()> makeDialog)
        : fName(name), fMakeDialog(std::move(makeDialog)) {
        EXPECT_EQ(load_layout(name, &fLayout), B_OK);
    }
    ~TBrokenLayout() { *BApplication::AppResources() = fResources; }
    TBrokenLayout(const TBrokenLayout&) = delete;
    TBrokenLayout& operator=(const TBrokenLayout&) = delete;

    /// The program's own.
    const BMessage& Layout() const { return fLayout; }

    /// What the dialog says that finds these as its layout.
    status_t InitWith(const std::string& bytes) const { return InitWith(bytes, fName); }
    status_t InitWith(const BMessage& layout) const { return InitWith(Bytes(layout)); }

    void ExpectOnlyAWholeOneIsTaken() const {
        const std::string bytes = Bytes(fLayout);
        EXPECT_EQ(InitWith(bytes), B_OK);
        EXPECT_EQ(InitWith(bytes, "OtherRsrc"), B_NO_INIT);
        for (size_t place = 0; place < bytes.size(); place += kStep) {
            EXPECT_EQ(InitWith(bytes.substr(0, place)), B_NO_INIT) << place;
            std::string damaged = bytes;
            damaged[place] = static_cast<char>(damaged[place] ^ 0x55);
            EXPECT_EQ(InitWith(damaged), B_NO_INIT) << place;
        }
        BMessage other(fLayout);
        (void)other.ReplaceString("class", "BButton");
        EXPECT_EQ(InitWith(other), B_NO_INIT);
        (void)other.RemoveName("class");
        EXPECT_EQ(InitWith(other), B_NO_INIT);
    }

    void ExpectAllAreNeeded(const std::vector<std::string>& names) const {
        for (const std::string& name : names) {
            BMessage layout(fLayout);
            Rewrite(&layout, [&](BMessage* view) { return name != view->GetString("_name", ""); });
            EXPECT_EQ(InitWith(layout), B_NO_INIT) << name;
        }
    }

    void ExpectNoneMayBeOf(const char* otherClass, const std::vector<std::string>& names) const {
        for (const std::string& name : names) {
            BMessage layout(fLayout);
            Rewrite(&layout, [&](BMessage* view) {
                if (name == view->GetString("_name", ""))
                    (void)view->ReplaceString("class", otherClass);
                return true;
            });
            EXPECT_EQ(InitWith(layout), B_NO_INIT) << name;
        }
    }

    /// Every view in it has the same one.
    void ExpectAbsurdFramesAreMadeGood() const {
        const float none = std::numeric_limits<float>::quiet_NaN();
        for (const BRect frame : {BRect(), BRect(0, 0, 1e30F, 1e30F), BRect(none, none, none, none),
                 BRect(-5000, -5000, -6000, -6000), BRect(1e9F, 1e9F, 1e9F, 1e9F)}) {
            BMessage layout(fLayout);
            (void)layout.ReplaceRect("_frame", frame);
            Rewrite(&layout, [&](BMessage* view) {
                (void)view->ReplaceRect("_frame", frame);
                return true;
            });
            EXPECT_EQ(InitWith(layout), B_OK) << frame.left << ' ' << frame.right;
        }
    }

    /// The names of all views in it.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        BMessage layout(fLayout);
        Rewrite(&layout, [&](BMessage* view) {
            names.emplace_back(view->GetString("_name", ""));
            return true;
        });
        return names;
    }

    /// Calls `change` for the archive of every view in it, the innermost first; puts back what it
    /// leaves, and takes out what it answers false for.
    static void Rewrite(BMessage* archive, const std::function<bool(BMessage*)>& change) {
        for (const char* field : {"_views", "_view_list"}) {
            BMessage child;
            std::vector<BMessage> kept;
            for (int32 i = 0; archive->FindMessage(field, i, &child) == B_OK; i++) {
                Rewrite(&child, change);
                if (change(&child))
                    kept.push_back(child);
            }
            (void)archive->RemoveName(field);
            for (const BMessage& view : kept)
                (void)archive->AddMessage(field, &view);
        }
    }

private:
    static constexpr size_t kStep = 97;

    static std::string Bytes(const BMessage& layout) {
        std::string bytes(static_cast<size_t>(layout.FlattenedSize()), '\0');
        EXPECT_EQ(layout.Flatten(bytes.data(), static_cast<ssize_t>(bytes.size())), B_OK);
        return bytes;
    }
    status_t InitWith(const std::string& bytes, const char* name) const {
        const BPrivate::EmbeddedResource resource{'ARCV', 1, name, bytes.data(), bytes.size()};
        *BApplication::AppResources() = BResources({&resource, 1});
        return fMakeDialog();
    }

    const char* const fName;
    const std::function<status_t()> fMakeDialog;
    const BResources fResources = *BApplication::AppResources();
    BMessage fLayout;
};
