// Copying a file's metadata on macOS.
#pragma once

#include <stdint.h>

struct _copyfile_state;
typedef struct _copyfile_state* copyfile_state_t;
typedef uint32_t copyfile_flags_t;

#define COPYFILE_ACL (1 << 0)
#define COPYFILE_STAT (1 << 1)
#define COPYFILE_XATTR (1 << 2)
#define COPYFILE_DATA (1 << 3)

extern "C" int fcopyfile(int from, int to, copyfile_state_t state, copyfile_flags_t flags);
