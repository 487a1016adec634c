// What macOS declares there in addition.
#pragma once

#include_next <unistd.h>

extern "C" int getpeereid(int socket, uid_t* user, gid_t* group);
