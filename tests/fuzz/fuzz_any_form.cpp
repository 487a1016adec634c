#include "core/named_error.h"
#include "plist/property_list_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) try {
    frimbolate::readPropertyList({reinterpret_cast<const char*>(bytes), size});
    return 0;
} catch (const frimbolate::NamedError&) {
    return 0;
}
