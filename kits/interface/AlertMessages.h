#pragma once

#include <support/SupportDefs.h>

namespace BPrivate {

/// To an alert from its buttons, with "which" int32.
constexpr uint32 kAlertButton = '_ALB';

}  // namespace BPrivate
