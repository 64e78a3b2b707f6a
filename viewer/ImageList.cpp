#include "viewer/ImageList.h"

#include <algorithm>
#include <storage/Directory.h>
#include <storage/File.h>
#include <storage/Path.h>

#include "viewer/NameSort.h"

TImageList::TImageList() : TImageList(std::make_shared<const NameList>()) {}

TImageList::TImageList(std::shared_ptr<const NameList> names) : fNames(std::move(names)) {}

TImageList::~TImageList() = default;

bool TImageList::IsImage(
    const std::string& path, BTranslatorRoster* roster, translator_info* info) const {
    return IdentifyImage(path, roster, info) == B_OK;
}

status_t TImageList::IdentifyImage(
    const std::string& path, BTranslatorRoster* roster, translator_info* info) {
    BFile file(path.c_str(), B_READ_ONLY);
    status_t status = file.InitCheck();
    if (status == B_OK)
        status = roster->Identify(&file, nullptr, info, 0, nullptr, 0);
    if (status == B_OK && info->group != B_TRANSLATOR_BITMAP)
        status = B_NO_TRANSLATOR;
    return status;
}

status_t TImageList::GetNextImageIndex(
    uint32* index, BTranslatorRoster* roster, translator_info* info) const {
    return GetImageIndex(index, roster, info, 1);
}

status_t TImageList::GetPrevImageIndex(
    uint32* index, BTranslatorRoster* roster, translator_info* info) const {
    return GetImageIndex(index, roster, info, -1);
}

status_t TImageList::GetImageIndex(
    uint32* index, BTranslatorRoster* roster, translator_info* info, int32 delta) const {
    if (delta == 0)
        return B_ERROR;
    // Stepping back from 0 wraps to an index beyond the end, which ends the search.
    uint32 step = static_cast<uint32>(delta);
    for (*index = fCurrentIndex + step; *index < Count(); *index += step) {
        if (IsImage(Names()[*index], roster, info))
            return B_OK;
    }
    return B_ERROR;
}

std::string TImageList::PathAt(uint32 index) const {
    return index < Count() ? Names()[index] : std::string();
}

uint32 TImageList::IndexOf(const std::string& path) const {
    auto found = std::lower_bound(Names().begin(), Names().end(), path);
    if (found == Names().end() || *found != path)
        return kNoIndex;
    return static_cast<uint32>(found - Names().begin());
}

status_t TImageList::ListFolder(const BEntry& folder) {
    NameList names;
    BPath path;
    BDirectory directory(&folder);
    status_t status = folder.GetPath(&path);
    if (status == B_OK)
        status = directory.InitCheck();
    if (status == B_OK) {
        std::string prefix = path.Path();
        if (!prefix.ends_with('/'))
            prefix += '/';
        BEntry entry;
        while (directory.GetNextEntry(&entry) == B_OK) {
            std::string_view leaf = entry.Name();
            std::string& name = names.emplace_back();
            name.reserve(prefix.size() + leaf.size());
            name.append(prefix).append(leaf);
        }
        sort_names(names, prefix.size());
    }
    if (names != *fNames)
        fNames = std::make_shared<const NameList>(std::move(names));
    return status;
}
