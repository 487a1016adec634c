// What a Mac lacks.
#include <sys/epoll.h> // expected-error@*:* {{macOS has no <sys/epoll.h>}}
#include <sys/socket.h>
#include <sys/stat.h>

// expected-error@+1 {{poisoned identifier}}
int flags = SOCK_CLOEXEC;

long nanoseconds(const struct stat& status) {
    // expected-error@+1 {{no member named 'st_mtim'}}
    return status.st_mtim.tv_nsec;
}
