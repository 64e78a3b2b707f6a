#pragma once

// The version comes from the build (LORIVANE_VERSION, set from the project's own number), so
// that it is written down in one place.

#ifndef LORIVANE_VERSION
#error "LORIVANE_VERSION must be given by the build"
#endif

constexpr char kAppVersionNumber[] = LORIVANE_VERSION;

/// What the user and the settings files see, for example "Ver0.1.0".
constexpr char gAppVer[] = "Ver" LORIVANE_VERSION;

// Keys of the locale service, so that a language may write them in its own way.
constexpr char kAppName[] = "Lorivane";
constexpr char kAppAuthor[] = "ZELKAN";
/// A line with the maker's name for "%AppAuthor%".
constexpr char kAppCopyright[] = "Copyright (C) %AppAuthor%";

constexpr char kAppSignature[] = "application/x-vnd.ZELKAN-Lorivane";
