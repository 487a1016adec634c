// The encodings of a property list in text form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// A text as UTF-8. A file that is in UTF-8 is referred to, not copied.
class DecodedText {
  public:
    /// \param text must outlive this object
    static DecodedText reference(std::string_view text) { return DecodedText(text); }
    static DecodedText copy(std::string text) { return DecodedText(std::move(text)); }

    std::string_view text() const { return isCopy_ ? std::string_view(copy_) : reference_; }

  private:
    explicit DecodedText(std::string_view text) : reference_(text), isCopy_(false) {}
    explicit DecodedText(std::string text) : copy_(std::move(text)), isCopy_(true) {}

    std::string copy_;
    std::string_view reference_;
    bool isCopy_;
};

/// The text of a file. A byte order mark decides on the encoding and is left out, else the XML
/// header does, else the file is in UTF-8. A text in UTF-8 is not checked here: XML asks for
/// valid characters only inside texts and keys.
/// \throws NamedError where the declared encoding is not known or the bytes are not of it
DecodedText decodeText(std::string_view bytes);

/// A text in UTF-16 as UTF-8; nothing where it holds half a character.
std::optional<std::string> decodeUtf16(std::string_view bytes, bool isBigEndian);

bool isAscii(std::string_view text);
bool isValidUtf8(std::string_view text);

/// Appends a character. False, without appending, for a surrogate or beyond U+10FFFF.
bool appendUtf8(std::string& text, char32_t character);

} // namespace frimbolate
