// Writes JSON, with a key a line and two blanks for each level.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// A text in quotes. What is no valid UTF-8 becomes U+FFFD, since JSON cannot hold it.
std::string jsonText(std::string_view text);

/// Builds one document. Every value in an object follows a key().
class JsonWriter {
  public:
    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }
    void key(std::string_view name);
    /// A value as JSON writes it: jsonText(), a number, "true", "null".
    void value(std::string_view json);

    /// The document with a final line break.
    std::string text() const { return text_ + "\n"; }

  private:
    void begin(char bracket);
    void end(char bracket);
    void beginValue();
    void beginLine();

    std::string text_;
    std::size_t depth_ = 0;
    bool isEmpty_ = true;   ///< nothing stands in the current bracket
    bool afterKey_ = false; ///< the value belongs to the key before it
};

} // namespace frimbolate
