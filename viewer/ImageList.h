#pragma once

#include <memory>
#include <storage/Entry.h>
#include <string>
#include <support/SupportDefs.h>
#include <translation/TranslatorRoster.h>
#include <vector>

/// The sorted paths of all entries of one folder, images or not, and the index of the one that is
/// current. Whether an entry is an image is found out by its content, when a search reaches it.
///
/// Copying shares the names: they are never changed once listed, so copies may be used by
/// different threads. Each copy itself belongs to one thread.
class TImageList {
public:
    using NameList = std::vector<std::string>;

    static constexpr uint32 kNoIndex = 0xFFFFFFFF;

    TImageList();
    explicit TImageList(std::shared_ptr<const NameList> names);
    virtual ~TImageList();

    /// Identifies the file's content; its name plays no part. `info` describes the format when
    /// the result is true.
    bool IsImage(const std::string& path, BTranslatorRoster* roster, translator_info* info) const;
    /// The same, with the reason: `B_OK`, what opening or reading the file gave, or
    /// B_NO_TRANSLATOR.
    static status_t IdentifyImage(
        const std::string& path, BTranslatorRoster* roster, translator_info* info);

    // Searches. 0 with the index of the image found and its format, or -1: there is no wrap-around,
    // and `index` is meaningless then.

    /// The first image after the current index; from the start when there is none.
    status_t GetNextImageIndex(
        uint32* index, BTranslatorRoster* roster, translator_info* info) const;
    /// The last image before the current index.
    status_t GetPrevImageIndex(
        uint32* index, BTranslatorRoster* roster, translator_info* info) const;
    /// The first image at current index + delta, + 2 delta and so on.
    status_t GetImageIndex(
        uint32* index, BTranslatorRoster* roster, translator_info* info, int32 delta) const;

protected:
    uint32 Count() const { return static_cast<uint32>(fNames->size()); }
    const NameList& Names() const { return *fNames; }
    std::shared_ptr<const NameList> SharedNames() const { return fNames; }

    /// The path at an index; empty beyond the end.
    std::string PathAt(uint32 index) const;
    /// The path at the current index; empty when there is none.
    std::string CurrentPath() const { return PathAt(fCurrentIndex); }
    /// Where a path is, or kNoIndex.
    uint32 IndexOf(const std::string& path) const;

    /// Lists a folder, links by their own path. What cannot be read leaves the list empty, and is
    /// an error. The current index stays, and so do the names themselves when they are what they
    /// were.
    status_t ListFolder(const BEntry& folder);

    uint32 fCurrentIndex = kNoIndex;

private:
    std::shared_ptr<const NameList> fNames;
};
