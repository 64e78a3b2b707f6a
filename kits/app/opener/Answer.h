#pragma once

namespace BPrivate {

/// What the opener tells about a document, as one byte on its descriptor kAnswerDescriptor. It
/// tells nothing only if it dies.
enum class OpenerAnswer : char {
    kOpened = 'o',         ///< the application for the document was started, or told of it
    kNoDocument = 'd',     ///< there is no such file
    kNoApplication = 'a',  ///< nothing opens files of this type
    kNotStarted = 'n',     ///< there is an application, but it could not be started
};

constexpr int kAnswerDescriptor = 3;

}  // namespace BPrivate
