#include "plist/property_list_reader.h"

#include "core/named_error.h"
#include "plist/binary_reader.h"
#include "plist/limits.h"
#include "plist/old_style_reader.h"
#include "plist/text_encoding.h"
#include "plist/xml_reader.h"

namespace frimbolate {

namespace {

bool looksLikeXml(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && text[first] == '<';
}

Value readTextForm(std::string_view bytes) {
    const DecodedText decoded = decodeText(bytes);
    const std::string_view text = decoded.text();
    if (!looksLikeXml(text))
        return readOldStylePlist(text);
    try {
        TextCursor in(text);
        return readXmlPlist(in);
    } catch (const NamedError& error) {
        // "<0fbd77>" is old-style data. For any other file the error of the XML reader is reported.
        try {
            return readOldStylePlist(text);
        } catch (const NamedError&) {
            throw error;
        }
    }
}

} // namespace

Value readPropertyList(std::string_view bytes) {
    if (bytes.size() > maximumPlistBytes)
        throw NamedError(unreadablePlist, "it is over 16 MiB");
    if (bytes.empty())
        throw NamedError(unreadablePlist, "it is empty");
    const auto fault = binaryPlistFault(bytes);
    if (!fault)
        return readBinaryPlist(bytes);
    if (!hasBinaryPlistMagic(bytes))
        return readTextForm(bytes);
    // Without an intact trailer the magic can also be a text of the old style.
    try {
        return readTextForm(bytes);
    } catch (const NamedError&) {
        throw NamedError(unreadablePlist, *fault);
    }
}

} // namespace frimbolate
