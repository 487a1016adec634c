#include "plist/xml_writer.h"

#include "core/named_error.h"
#include "plist/limits.h"
#include "plist/written_scalars.h"

#include <algorithm>
#include <string_view>

namespace frimbolate {

namespace {

constexpr std::string_view header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                    "<plist version=\"1.0\">\n";
constexpr std::size_t base64LineLength = 68;

constexpr bool isEscaped(char c) { return c == '&' || c == '<' || c == '>' || c == '\r'; }

void appendEscaped(std::string& result, std::string_view text) {
    if (const auto reason = reasonUnwritable(text))
        throw NamedError("Unwritable content",
                         "A text of this content cannot be written: " + *reason);
    for (;;) {
        const auto* const plainEnd = std::find_if(text.begin(), text.end(), isEscaped);
        result.append(text.begin(), plainEnd);
        if (plainEnd == text.end())
            return;
        switch (*plainEnd) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        default:
            result += "&#13;";
        }
        text = {plainEnd + 1, text.end()};
    }
}

class Writer {
  public:
    std::string document(const Dictionary& dictionary) {
        text_ = header;
        write(dictionary);
        text_ += "</plist>\n";
        requireSize();
        return std::move(text_);
    }

  private:
    /// Also while it writes: the tabs before deeply nested elements take hundreds of times their
    /// size.
    void requireSize() const {
        if (text_.size() > maximumPlistBytes)
            throw NamedError(tooLargeContent,
                             "it would be over 16 MiB and could not be read again");
    }
    void line(std::string_view content) { text_.append(depth_, '\t').append(content) += '\n'; }
    void element(std::string_view name, std::string_view content) {
        begin(name);
        text_ += content;
        end(name);
    }
    void escapedElement(std::string_view name, std::string_view content) {
        begin(name);
        appendEscaped(text_, content);
        end(name);
    }
    void begin(std::string_view name) {
        text_.append(depth_, '\t').append("<").append(name).append(">");
    }
    void end(std::string_view name) { text_.append("</").append(name).append(">\n"); }
    void write(const Value& value);
    void write(const Array& array);
    void write(const Dictionary& dictionary);
    void write(const Data& data);
    void write(Date date);

    std::string text_;
    std::size_t depth_ = 0;
};

void Writer::write(const Value& value) {
    if (const auto* text = value.string())
        escapedElement("string", *text);
    else if (const auto* truth = value.boolean())
        line(*truth ? "<true/>" : "<false/>");
    else if (const auto* number = value.integer())
        element("integer", std::to_string(*number));
    else if (const auto* bigNumber = value.bigInteger())
        element("integer", std::to_string(*bigNumber));
    else if (const auto* real = value.real())
        element("real", plistTextOf(*real));
    else if (const auto* data = value.data())
        write(*data);
    else if (const auto* date = value.date())
        write(*date);
    else if (const auto* array = value.array())
        write(*array);
    else
        write(*value.dictionary());
}

void Writer::write(const Array& array) {
    if (array.empty())
        return line("<array/>");
    line("<array>");
    ++depth_;
    for (const Value& element : array) {
        requireSize();
        write(element);
    }
    --depth_;
    line("</array>");
}

void Writer::write(const Dictionary& dictionary) {
    if (dictionary.empty())
        return line("<dict/>");
    line("<dict>");
    ++depth_;
    for (const auto& [key, value] : dictionary) {
        requireSize();
        escapedElement("key", key);
        write(value);
    }
    --depth_;
    line("</dict>");
}

void Writer::write(const Data& data) {
    line("<data>");
    const std::string base64 = plistTextOf(data);
    for (std::size_t start = 0; start < base64.size(); start += base64LineLength)
        line(std::string_view(base64).substr(start, base64LineLength));
    line("</data>");
}

void Writer::write(Date date) {
    const auto text = plistTextOf(date);
    if (!text)
        throw NamedError("Unwritable content", "A date lies outside of the years 1 to 9999");
    element("date", *text);
}

} // namespace

std::string xmlPropertyList(const Dictionary& dictionary) { return Writer().document(dictionary); }

} // namespace frimbolate
