// The encodings of a property list in text form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// U+FEFF in UTF-8, with which some editors begin a text.
inline constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

/// A text as UTF-8. Refers to a file that is in UTF-8 already, and owns a converted copy otherwise.
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

/// The text of a file, without its byte order mark. The encoding is that of the mark, else that of
/// the XML header, else UTF-8. UTF-8 is not checked here: the XML grammar requires valid characters
/// only inside texts and keys.
/// \param bytes must outlive the result
/// \throws NamedError where the declared encoding is unknown or does not fit the bytes
DecodedText decodeText(std::string_view bytes);

/// A text in UTF-16 as UTF-8; nothing for an odd number of bytes or an unpaired surrogate.
std::optional<std::string> decodeUtf16(std::string_view bytes, bool isBigEndian);

bool isAscii(std::string_view text);
bool isValidUtf8(std::string_view text);

/// Appends a character. Returns false, without appending, for a surrogate or beyond U+10FFFF.
bool appendUtf8(std::string& text, char32_t character);

} // namespace frimbolate
