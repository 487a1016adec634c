#include "plist/property_list_reader.h"

#include "core/failure.h"
#include "plist/limits.h"
#include "plist/text_encoding.h"
#include "plist/xml_reader.h"

namespace frimbolate {

Value readPropertyList(std::string_view bytes) {
    if (bytes.size() > maximumPlistBytes)
        throw Failure(unreadablePlist, "it is over 16 MiB");
    if (bytes.empty())
        throw Failure(unreadablePlist, "it is empty");
    const DecodedText decoded = decodeText(bytes);
    TextCursor in(decoded.text());
    return readXmlPlist(in);
}

} // namespace frimbolate
