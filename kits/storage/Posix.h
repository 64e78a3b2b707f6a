#pragma once

// What the storage kit needs of the operating system, in the kit's own terms.

#include <string>
#include <support/SupportDefs.h>
#include <utility>

namespace BPrivate {

/// The status for a value of `errno`.
[[nodiscard]] status_t StatusFromErrno(int error);

/// Owns a file descriptor.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) : fDescriptor(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : fDescriptor(other.Detach()) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    explicit operator bool() const { return fDescriptor >= 0; }
    int Get() const { return fDescriptor; }
    int Detach() { return std::exchange(fDescriptor, -1); }

private:
    int fDescriptor = -1;
};

/// A path as the system's ...at() calls take it. They refuse more than PATH_MAX bytes, so a longer
/// path is walked to a folder near its end first.
class AtPath {
public:
    /// The path must outlive the object.
    explicit AtPath(const std::string& path);

    status_t Status() const { return fStatus; }
    int Folder() const;
    const char* Rest() const { return fRest; }

private:
    Descriptor fFolder;
    const char* fRest;
    status_t fStatus = B_OK;
};

/// Makes `path` absolute with the working folder.
[[nodiscard]] status_t MakeAbsolute(std::string* path);
/// Replaces an existing folder's absolute path by the one without links, "." and "..".
[[nodiscard]] status_t ResolveFolder(std::string* path);
/// Reads what a link says. B_BAD_VALUE if the entry is no link.
[[nodiscard]] status_t ReadLink(const std::string& path, std::string* target);

/// `folder`, a '/' where needed, and `name`.
std::string Join(const std::string& folder, const char* name);

/// Copies every extended attribute that can be copied. Only those of the user's own namespace that
/// cannot are an error.
[[nodiscard]] status_t CopyExtendedAttributes(int from, int to);

}  // namespace BPrivate
