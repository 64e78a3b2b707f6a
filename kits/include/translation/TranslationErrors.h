#pragma once

// The translation kit's own codes, B_NO_TRANSLATOR and B_ILLEGAL_DATA, are in the common list.
#include <support/Errors.h>
