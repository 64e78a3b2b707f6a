#include <app/Application.h>
#include <storage/Resources.h>

#include "kits/storage/EmbeddedResources.h"

BResources* BApplication::AppResources() {
    static BResources resources(BPrivate::embedded_resources());
    return &resources;
}
