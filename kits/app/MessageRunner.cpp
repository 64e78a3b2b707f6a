#include <app/MessageRunner.h>

#include "kits/app/RunnerService.h"

using BPrivate::RunnerService;

namespace {

int64 StartRunner(const BMessenger& target, const BMessage* message, const BMessenger& replyTo,
    bigtime_t interval, int32 count) {
    if (message == nullptr || !target.IsValid())
        return B_BAD_VALUE;
    return RunnerService::Get().Add(target, *message, replyTo, interval, count);
}

}  // namespace

BMessageRunner::BMessageRunner(
    BMessenger target, const BMessage* message, bigtime_t interval, int32 count)
    : BMessageRunner(target, message, interval, count, BMessenger()) {}

BMessageRunner::BMessageRunner(
    BMessenger target, const BMessage* message, bigtime_t interval, int32 count, BMessenger replyTo)
    : fId(StartRunner(target, message, replyTo, interval, count)),
      fStatus(fId < 0 ? status_t(fId) : B_OK) {}

BMessageRunner::~BMessageRunner() {
    if (fStatus == B_OK)
        RunnerService::Get().Remove(fId);
}

status_t BMessageRunner::SetInterval(bigtime_t interval) {
    return RunnerService::Get().SetInterval(fId, interval);
}

status_t BMessageRunner::SetCount(int32 count) {
    return RunnerService::Get().SetCount(fId, count);
}

status_t BMessageRunner::GetInfo(bigtime_t* interval, int32* count) const {
    bigtime_t foundInterval = 0;
    int32 foundCount = 0;
    const status_t status = RunnerService::Get().GetInfo(fId, foundInterval, foundCount);
    if (status != B_OK)
        return status;
    if (interval != nullptr)
        *interval = foundInterval;
    if (count != nullptr)
        *count = foundCount;
    return B_OK;
}

status_t BMessageRunner::StartSending(
    BMessenger target, const BMessage* message, bigtime_t interval, int32 count) {
    return StartSending(target, message, interval, count, BMessenger());
}

status_t BMessageRunner::StartSending(BMessenger target, const BMessage* message,
    bigtime_t interval, int32 count, BMessenger replyTo) {
    const int64 id = StartRunner(target, message, replyTo, interval, count);
    return id < 0 ? status_t(id) : B_OK;
}
