#include "core/failure.h"
#include "platform/qt/property_list_xml_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) try {
    const auto* text = reinterpret_cast<const char*>(bytes);
    frimbolate::readXmlPropertyList(QByteArray(text, static_cast<qsizetype>(size)));
    return 0;
} catch (const frimbolate::Failure&) {
    return 0;
}
