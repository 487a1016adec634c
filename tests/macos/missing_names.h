// Included first into every source: names of Linux that macOS lacks. Their use is an error.
#pragma once

#include <dirent.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#undef MSG_NOSIGNAL // A source may ask whether it is defined.
#undef MSG_CMSG_CLOEXEC
#undef SOCK_CLOEXEC
#undef SOCK_NONBLOCK
#undef SO_PASSCRED
#undef SO_PEERCRED
#pragma GCC poison MSG_CMSG_CLOEXEC SOCK_CLOEXEC SOCK_NONBLOCK SO_PASSCRED SO_PEERCRED
#pragma GCC poison accept4 dup3 eaccess fallocate pipe2 ppoll renameat2 secure_getenv statx
