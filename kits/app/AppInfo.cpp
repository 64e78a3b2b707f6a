// What the application can tell of itself.

#include <app/Application.h>
#include <app/Roster.h>
#include <cstring>
#include <storage/Entry.h>
#include <storage/Path.h>
#include <storage/Resources.h>
#include <unistd.h>

namespace {

constexpr type_code kFlagsType = 'APPF';
constexpr char kFlagsName[] = "BEOS:APP_FLAGS";

}  // namespace

status_t BApplication::GetAppInfo(app_info* info) const {
    if (info == nullptr)
        return B_BAD_VALUE;
    if (fInitStatus != B_OK)
        return fInitStatus;

    app_info found;
    found.thread = Thread();
    found.team = getpid();
    size_t size = 0;
    const void* flags = AppResources()->LoadResource(kFlagsType, kFlagsName, &size);
    if (flags != nullptr && size == sizeof(found.flags))
        std::memcpy(&found.flags, flags, sizeof(found.flags));
    (void)fSignature.copy(found.signature, sizeof(found.signature) - 1);
    // Fails for a program that was removed while it runs; it has no place then.
    BEntry program("/proc/self/exe", true);
    if (program.InitCheck() == B_OK)
        (void)program.GetRef(&found.ref);
    *info = found;
    return B_OK;
}
