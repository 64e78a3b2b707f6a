#pragma once

#include "framework/Archivable.h"

#include <interface/Rect.h>
#include <string>

/// What the application remembers of its last run. Read before the main window is made and
/// written after it has quit, so it needs no lock.
class TExitStates : public TArchivable {
public:
    std::string fVersion;                              ///< of the application that wrote the file
    BRect fWindowFrame{50.0F, 50.0F, 350.0F, 300.0F};  ///< main window, screen coordinates

    /// Writes the running application's version, not the one that was read.
    status_t Archive(BMessage* archive) const override;
    status_t Unarchive(const BMessage& archive) override;

    /// @return 0, or -1 when not all of the record was read.
    status_t LoadFromFile();
    /// @return 0, or -1 when nothing was written.
    status_t SaveToFile() const;
};

/// The states of this run.
extern TExitStates gExitStates;
