#pragma once

#include <interface/Alert.h>
#include <interface/View.h>
#include <string>

namespace BPrivate {

/// What an alert says, beside the picture of its type. Shown by the desktop's own control.
///
/// Belongs to its window's thread.
class AlertTextView : public BView {
public:
    AlertTextView(const char* text, alert_type type);

    const std::string& Text() const { return fText; }
    /// Waits for the display.
    void GetPreferredSize(float* width, float* height) override;

private:
    class Peer;

    const std::string fText;
    const alert_type fType;
};

}  // namespace BPrivate
