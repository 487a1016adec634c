// The value type of property lists: the value of a key in an agent file or in the preferences.
//
// A Value is a regular type: it copies and compares like an int. Accessors that return a pointer
// return nullptr for another kind; those named as...() throw a NamedError instead, for callers
// where a wrong type must fail the step.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace frimbolate {

class Value;
using Array = std::vector<Value>;
/// Sorted by key, so that equal content produces equal bytes. Keys are UTF-8.
using Dictionary = std::map<std::string, Value, std::less<>>;

struct Data {
    std::vector<std::uint8_t> bytes;
    friend bool operator==(const Data&, const Data&) = default;
};

/// A moment in whole seconds since 1970-01-01T00:00:00Z, the resolution of XML property lists.
struct Date {
    std::int64_t secondsSinceEpoch = 0;
    friend bool operator==(const Date&, const Date&) = default;
};

class Value {
  public:
    Value() : content_(std::string{}) {}
    Value(std::string text) : content_(std::move(text)) {}
    Value(const char* text) : content_(std::string(text)) {}
    Value(std::string_view text) : content_(std::string(text)) {}
    /// Exactly bool, so that no pointer or number converts to a boolean by accident.
    Value(std::same_as<bool> auto truth) : content_(truth) {}
    /// Any integer. Stored unsigned above INT64_MAX, as a signed 64-bit number otherwise.
    template <std::integral T>
    requires(!std::same_as<T, bool> && !std::same_as<T, char>) Value(T number) {
        if (std::in_range<std::int64_t>(number))
            content_ = static_cast<std::int64_t>(number);
        else
            content_ = static_cast<std::uint64_t>(number);
    }
    Value(std::same_as<double> auto number) : content_(number) {}
    Value(Data data) : content_(std::move(data)) {}
    Value(Date date) : content_(date) {}
    Value(Array array) : content_(std::move(array)) {}
    Value(Dictionary dictionary) : content_(std::move(dictionary)) {}

    const std::string* string() const { return std::get_if<std::string>(&content_); }
    const bool* boolean() const { return std::get_if<bool>(&content_); }
    const std::int64_t* integer() const { return std::get_if<std::int64_t>(&content_); }
    /// Set only for integers above INT64_MAX.
    const std::uint64_t* bigInteger() const { return std::get_if<std::uint64_t>(&content_); }
    const double* real() const { return std::get_if<double>(&content_); }
    const Data* data() const { return std::get_if<Data>(&content_); }
    const Date* date() const { return std::get_if<Date>(&content_); }
    const Array* array() const { return std::get_if<Array>(&content_); }
    const Dictionary* dictionary() const { return std::get_if<Dictionary>(&content_); }
    Dictionary* dictionary() { return std::get_if<Dictionary>(&content_); }

    /// Booleans count as numbers, as they do on the platform.
    bool isNumber() const { return boolean() || integer() || bigInteger() || real(); }

    /// The name of the kind, for messages: "string", "boolean", "array" …
    std::string_view kind() const;

    /// \throws NamedError "Unexpected value" when the value is of another kind
    const std::string& asString() const;
    const Array& asArray() const;
    const Dictionary& asDictionary() const;

    friend bool operator==(const Value&, const Value&) = default;

  private:
    std::variant<std::string, bool, std::int64_t, std::uint64_t, double, Data, Date, Array,
                 Dictionary>
        content_;
};

/// The value of a key, or nullptr where the key is missing. Valid as long as the entry.
const Value* find(const Dictionary& dictionary, std::string_view key);

/// The text of a value in the log: a string at the top level without quotes, numbers in decimal,
/// booleans as 1 and 0, arrays as "( … )" and dictionaries as "{ … }" over several lines. Ends
/// early, with "…", where the lines of a container take over a MiB.
std::string description(const Value& value);
/// The same for an optional value; nullptr gives "(null)".
std::string description(const Value* value);

} // namespace frimbolate
