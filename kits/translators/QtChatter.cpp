#include "kits/translators/QtChatter.h"

#include <QtGlobal>
#include <atomic>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <mutex>
#include <qlogging.h>
#include <string>

namespace BPrivate::AddOn {

static thread_local int sQuiet = 0;
// Set once, before the handler that calls it.
static std::atomic<QtMessageHandler> sBefore = nullptr;

static bool IsAskedFor() {
    return qEnvironmentVariableIsSet("QT_LOGGING_RULES") ||
        qEnvironmentVariableIsSet("QT_LOGGING_CONF");
}

static void Hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    // Not before the end of the process.
    if (sQuiet == 0 || type == QtFatalMsg)
        sBefore.load()(type, context, text);
}

QuietCodecs::QuietCodecs() {
    static std::once_flag once;
    std::call_once(once, [] {
        if (IsAskedFor())
            return;
        // The old one is known only when the new one is in place, and may be needed at once.
        sBefore = qInstallMessageHandler(nullptr);
        qInstallMessageHandler(Hear);
    });
    sQuiet++;
}

QuietCodecs::~QuietCodecs() {
    sQuiet--;
}

// The path of a library of the process, "" if there is none whose name begins so.
static std::string LoadedLibrary(const char* begin) {
    struct Search {
        const char* begin;
        std::string found;
    } search{begin, {}};
    dl_iterate_phdr(
        [](dl_phdr_info* library, size_t, void* data) {
            auto& sought = *static_cast<Search*>(data);
            const char* const slash = std::strrchr(library->dlpi_name, '/');
            const char* const name = slash != nullptr ? slash + 1 : library->dlpi_name;
            if (std::strncmp(name, sought.begin, std::strlen(sought.begin)) != 0)
                return 0;
            sought.found = library->dlpi_name;
            return 1;
        },
        &search);
    return search.found;
}

// Only Qt's plug-in is linked to the library, so that it is there only when it is needed.
static void QuietTiff() {
    const std::string path = LoadedLibrary("libtiff.so");
    void* const library = path.empty() ? nullptr : dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr)
        return;
    using Handler = void (*)(const char*, const char*, va_list);
    using SetHandler = Handler (*)(Handler);
    for (const char* name : {"TIFFSetWarningHandler", "TIFFSetErrorHandler"}) {
        const auto set = reinterpret_cast<SetHandler>(dlsym(library, name));
        if (set != nullptr)
            set(nullptr);
    }
}

void QuietLibraryOf(const QByteArray& format) {
    static std::once_flag once;
    if (format.startsWith("tif") && !IsAskedFor())
        std::call_once(once, QuietTiff);
}

}  // namespace BPrivate::AddOn
