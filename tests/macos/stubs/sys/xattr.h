// Extended attributes of macOS. The functions take more arguments than those of Linux.
#pragma once

#include <sys/types.h>

extern "C" {
ssize_t fgetxattr(int fd, const char* name, void* value, size_t size, unsigned position,
                  int options);
int fsetxattr(int fd, const char* name, const void* value, size_t size, unsigned position,
              int options);
ssize_t flistxattr(int fd, char* names, size_t size, int options);
}
