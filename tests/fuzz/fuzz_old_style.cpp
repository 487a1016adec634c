#include "core/named_error.h"
#include "plist/old_style_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) try {
    frimbolate::readOldStylePlist({reinterpret_cast<const char*>(bytes), size});
    return 0;
} catch (const frimbolate::NamedError&) {
    return 0;
}
