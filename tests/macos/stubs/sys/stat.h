// The flags of a file on macOS.
#pragma once

#include_next <sys/stat.h>

#define UF_IMMUTABLE 0x00000002U
#define SF_IMMUTABLE 0x00020000U
