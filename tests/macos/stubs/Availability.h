// The versions of macOS that the toolkit compares.
#pragma once

#define __MAC_10_6 1060
#define __MAC_OS_X_VERSION_MIN_REQUIRED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__
#define __MAC_OS_X_VERSION_MAX_ALLOWED __MAC_OS_X_VERSION_MIN_REQUIRED
