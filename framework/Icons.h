#pragma once

#include <exception>
#include <support/SupportDefs.h>

class BBitmap;

/// The running application's type could not be read, or has no icons.
class TIconError : public std::exception {
public:
    explicit TIconError(status_t status) : fStatus(status) {}

    status_t Status() const { return fStatus; }
    const char* what() const noexcept override;

private:
    status_t fStatus;
};

/// Makes the running application's icons, 32 by 32 and 16 by 16 pixels in `B_RGBA32`. The caller
/// owns both. Any thread, as long as there is an application object.
/// @throw TIconError, with neither made
void get_icons(BBitmap** large, BBitmap** small);
