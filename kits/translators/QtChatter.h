#pragma once

#include <QByteArray>

namespace BPrivate::AddOn {

/// While it lives, what Qt and its plug-ins print about a file on this thread is dropped: whoever
/// looks at pictures is told whether one can be shown, and not that a field of it is unusual.
/// QT_LOGGING_RULES or QT_LOGGING_CONF in the environment brings it back.
class QuietCodecs {
public:
    QuietCodecs();
    ~QuietCodecs();
    QuietCodecs(const QuietCodecs&) = delete;
    QuietCodecs& operator=(const QuietCodecs&) = delete;
};

/// To be called before a file of the format is read, when Qt's plug-in for it has been loaded. The
/// library below may print by itself.
void QuietLibraryOf(const QByteArray& format);

}  // namespace BPrivate::AddOn
