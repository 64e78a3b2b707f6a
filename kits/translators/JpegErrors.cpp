#include "kits/translators/JpegErrors.h"
#include "kits/translators/Problem.h"

#include <jerror.h>

namespace BPrivate::AddOn {

static JpegErrors& Errors(j_common_ptr jpeg) {
    return *reinterpret_cast<JpegErrors*>(jpeg->err);
}

static bool IsAboutMemory(int code) {
    return code == JERR_OUT_OF_MEMORY || code == JERR_NO_BACKING_STORE ||
        code == JERR_BAD_POOL_ID || code == JERR_BAD_ALLOC_CHUNK || code == JERR_WIDTH_OVERFLOW;
}

// With these the rest of the picture is made up: libjpeg goes on with gray or shifted blocks. The
// others are about odd but complete files (versions, colour transforms, padding between markers).
static bool MeansDamage(int code) {
    switch (code) {
    case JWRN_ARITH_BAD_CODE:
    case JWRN_BOGUS_PROGRESSION:
    case JWRN_HIT_MARKER:
    case JWRN_HUFF_BAD_CODE:
    case JWRN_JPEG_EOF:
    case JWRN_MUST_RESYNC:
    case JWRN_NOT_SEQUENTIAL: return true;
    default: return false;
    }
}

[[noreturn]] static void Stop(j_common_ptr jpeg) {
    char text[JMSG_LENGTH_MAX];
    jpeg->err->format_message(jpeg, text);
    StopJpeg(jpeg, IsAboutMemory(jpeg->err->msg_code) ? B_NO_MEMORY : B_BAD_DATA, text);
}

static void Warn(j_common_ptr jpeg, int level) {
    if (level >= 0)
        return;
    jpeg->err->num_warnings++;
    if (MeansDamage(jpeg->err->msg_code))
        Stop(jpeg);
}

JpegErrors::JpegErrors() : problem(nullptr) {
    jpeg_std_error(&manager);
    manager.error_exit = Stop;
    manager.emit_message = Warn;
    manager.output_message = [](j_common_ptr) {};
}

void SetJpegIncomplete(j_common_ptr jpeg, bool incomplete) {
    Errors(jpeg).problem->incomplete = incomplete;
}

void StopJpeg(j_common_ptr jpeg, status_t status, const char* text) {
    JpegErrors& errors = Errors(jpeg);
    Fail(errors.problem, status, "%s", text);
    std::longjmp(errors.jump, 1);
}

}  // namespace BPrivate::AddOn
