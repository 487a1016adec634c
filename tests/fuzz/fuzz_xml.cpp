#include "core/named_error.h"
#include "plist/xml_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) try {
    frimbolate::TextCursor in({reinterpret_cast<const char*>(bytes), size});
    frimbolate::readXmlPlist(in);
    return 0;
} catch (const frimbolate::NamedError&) {
    return 0;
}
