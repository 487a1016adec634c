// A wrong call of Apple's, and a name that is defined for a Mac alone.
#include "macos/core_foundation.h"

#ifdef __APPLE__
int wrong = 1 + nullptr; // expected-error {{invalid operands}}
#endif

CFIndex lengthOf(CFDataRef data) {
    // expected-error@+2 {{cannot initialize a parameter of type 'CFStringRef'}}
    // expected-note@*:* 1+ {{}}
    return ::CFStringGetLength(data);
}
