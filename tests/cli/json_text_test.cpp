#include "cli/json_text.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {
namespace {

struct JsonRow {
    const char* name;
    std::string text;
    const char* json;
};

void PrintTo(const JsonRow& row, std::ostream* out) { *out << row.name; }

class JsonTexts : public testing::TestWithParam<JsonRow> {};

TEST_P(JsonTexts, AreQuotedAndValid) { EXPECT_EQ(jsonText(GetParam().text), GetParam().json); }

const JsonRow jsonRows[] = {
    {"Empty", "", R"("")"},
    {"Plain", "a b", R"("a b")"},
    {"QuoteAndBackslash", R"("\)", R"("\"\\")"},
    {"LineEnds", "\n\r\t", R"("\n\r\t")"},
    {"Controls", std::string("\0\x1b\x7f", 3), R"("\u0000\u001b\u007f")"},
    {"TwoBytes", "\u00e9", "\"\u00e9\""},
    {"ThreeBytes", "\u4e03", "\"\u4e03\""},
    {"FourBytes", "\U0001f600", "\"\U0001f600\""},
    {"LastCharacter", "\xf4\x8f\xbf\xbf", "\"\xf4\x8f\xbf\xbf\""},
    {"BeyondTheLast", "\xf4\x90\x80\x80", R"("\ufffd\ufffd\ufffd\ufffd")"},
    {"Surrogate", "\xed\xa0\x80", R"("\ufffd\ufffd\ufffd")"},
    {"BelowTheSurrogates", "\xed\x9f\xbf", "\"\xed\x9f\xbf\""},
    {"OverlongOfTwo", "\xc1\xbf", R"("\ufffd\ufffd")"},
    {"OverlongOfThree", "\xe0\x9f\xbf", R"("\ufffd\ufffd\ufffd")"},
    {"OverlongOfFour", "\xf0\x8f\xbf\xbf", R"("\ufffd\ufffd\ufffd\ufffd")"},
    {"Continuation", "a\x80z", R"("a\ufffdz")"},
    {"CutOff", "a\xe4\xb8", R"("a\ufffd\ufffd")"},
    {"NoByteOfUtf8", "\xff", R"("\ufffd")"},
};

INSTANTIATE_TEST_SUITE_P(Table, JsonTexts, testing::ValuesIn(jsonRows), NamedAfterRow());

TEST(JsonWriters, IndentNestedValues) {
    JsonWriter json;
    json.beginObject();
    json.key("a");
    json.beginArray();
    json.endArray();
    json.key("b");
    json.beginArray();
    json.value("1");
    json.beginObject();
    json.key("c");
    json.value("null");
    json.endObject();
    json.endArray();
    json.endObject();
    EXPECT_EQ(json.text(), "{\n  \"a\": [],\n  \"b\": [\n    1,\n    {\n      \"c\": null\n    }\n"
                           "  ]\n}\n");
}

} // namespace
} // namespace frimbolate::test
