#include "framework/Layout.h"

#include <app/Application.h>
#include <app/Message.h>
#include <storage/Resources.h>
#include <support/Archivable.h>
#include <utility>

status_t load_layout(const char* name, BMessage* archive) {
    constexpr type_code kArchiveType = 'ARCV';
    size_t size = 0;
    const void* data = BApplication::AppResources()->LoadResource(kArchiveType, name, &size);
    if (data == nullptr)
        return B_NAME_NOT_FOUND;
    BMessage found;
    if (found.Unflatten(static_cast<const char*>(data), static_cast<ssize_t>(size)) != B_OK ||
        !validate_instantiation(&found, "BView"))
        return B_BAD_DATA;
    *archive = std::move(found);
    return B_OK;
}
