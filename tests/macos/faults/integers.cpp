// What compiles on Linux and not on a Mac: its integers have other types.
#include <algorithm>
#include <cstdint>
#include <string>
#include <sys/stat.h>

void narrowMode(unsigned bits) {
    mode_t mode = bits; // expected-error {{loses integer precision}}
    static_cast<void>(mode);
}

std::uint64_t longer(const std::string& text, std::uint64_t size) {
    // expected-error@+2 {{no matching function for call to 'max'}}
    // expected-note@*:* 1+ {{candidate}}
    return std::max(text.size(), size);
}
