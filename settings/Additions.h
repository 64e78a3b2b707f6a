#pragma once

#include "framework/Archivable.h"
#include "settings/PrefField.h"

/// What the user has chosen in the picture's context menu. A record of its own beside the
/// preferences: who never opens that menu has no such file. Any thread may read a field at any
/// time; the main window's writes them.
class TAdditions : public TArchivable {
public:
    TPrefField<bool> fSmoothScaling{false};  ///< images at another size are smoothed

    status_t Archive(BMessage* archive) const override;
    status_t Unarchive(const BMessage& archive) override;

    /// @return 0, or -1 when not all of the record was read.
    status_t LoadFromFile();
    /// For whoever has changed a field.
    /// @return 0, or -1 when nothing was written.
    status_t SaveToFile() const;
};

/// The choices in force.
extern TAdditions gAdditions;
