#pragma once

namespace BPrivate {

/// From now on assistive programs can read the texts of labels letter by letter. Main thread only.
void TellLabelsToScreenReaders();

}  // namespace BPrivate
