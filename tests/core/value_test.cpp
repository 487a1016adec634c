#include "core/value.h"

#include "core/named_error.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <type_traits>

namespace frimbolate {

namespace {

using test::NamedAfterRow;

constexpr auto mostInteger = std::numeric_limits<std::int64_t>::max();
constexpr auto leastInteger = std::numeric_limits<std::int64_t>::min();

struct KindRow {
    std::string_view name;
    Value value;
    std::string_view kind;
    std::string_view description;
};

class ValueOfKind : public testing::TestWithParam<KindRow> {};

TEST_P(ValueOfKind, TellsItsKind) { EXPECT_EQ(GetParam().value.kind(), GetParam().kind); }

TEST_P(ValueOfKind, GivesItselfAsThatKindAlone) {
    const auto& [name, value, kind, text] = GetParam();
    EXPECT_EQ(value.string() != nullptr, kind == "string");
    EXPECT_EQ(value.boolean() != nullptr, kind == "boolean");
    EXPECT_EQ(value.integer() || value.bigInteger(), kind == "integer");
    EXPECT_EQ(value.real() != nullptr, kind == "real");
    EXPECT_EQ(value.data() != nullptr, kind == "data");
    EXPECT_EQ(value.date() != nullptr, kind == "date");
    EXPECT_EQ(value.array() != nullptr, kind == "array");
    EXPECT_EQ(value.dictionary() != nullptr, kind == "dictionary");
    EXPECT_EQ(value.isNumber(), kind == "boolean" || kind == "integer" || kind == "real");
}

/// Expects that a value can be taken for its own kind alone.
template <typename Ask>
void expectOnly(const Value& value, std::string_view kind, std::string_view wanted, Ask ask) {
    if (kind == wanted) {
        EXPECT_NO_THROW(ask(value));
        return;
    }
    try {
        ask(value);
        ADD_FAILURE() << "a " << kind << " passed for a " << wanted;
    } catch (const NamedError& failure) {
        EXPECT_EQ(failure.name(), "Unexpected value");
        EXPECT_EQ(failure.reason(),
                  "Expected a " + std::string(wanted) + ", found a " + std::string(kind));
        EXPECT_EQ(failure.what(), failure.reason());
    }
}

TEST_P(ValueOfKind, FailsTheStepThatTakesItForAnother) {
    const auto& [name, value, kind, text] = GetParam();
    expectOnly(value, kind, "string", [](const Value& v) { (void)v.asString(); });
    expectOnly(value, kind, "array", [](const Value& v) { (void)v.asArray(); });
    expectOnly(value, kind, "dictionary", [](const Value& v) { (void)v.asDictionary(); });
}

TEST_P(ValueOfKind, IsDescribed) {
    EXPECT_EQ(description(GetParam().value), GetParam().description);
    EXPECT_EQ(description(&GetParam().value), GetParam().description);
}

TEST_P(ValueOfKind, EqualsItsCopyAndNoOther) {
    const Value copy = GetParam().value;
    EXPECT_EQ(copy, GetParam().value);
    EXPECT_NE(copy, Value(Array{copy}));
}

const KindRow kindRows[] = {
    {"Nothing", Value(), "string", ""},
    {"Text", "a text", "string", "a text"},
    {"TextWithQuotes", std::string(R"(say "hi"\)"), "string", R"(say "hi"\)"},
    {"View", std::string_view("view"), "string", "view"},
    {"NotANumber", "12", "string", "12"},
    {"True", true, "boolean", "1"},
    {"False", false, "boolean", "0"},
    {"Zero", 0, "integer", "0"},
    {"One", 1, "integer", "1"},
    {"Negative", -20, "integer", "-20"},
    {"Most", mostInteger, "integer", "9223372036854775807"},
    {"Least", leastInteger, "integer", "-9223372036854775808"},
    {"UnsignedThatFits", std::uint64_t{5}, "integer", "5"},
    {"FirstThatDoesNotFit", std::uint64_t{1} << 63, "integer", "9223372036854775808"},
    {"MostUnsigned", std::numeric_limits<std::uint64_t>::max(), "integer", "18446744073709551615"},
    {"Real", 1.5, "real", "1.5"},
    {"WholeReal", 2.0, "real", "2"},
    {"Data", Data{{0x00, 0x0f, 0xff}}, "data", "<000fff>"},
    {"NoData", Data{}, "data", "<>"},
    {"Date", Date{86400}, "date", "1970-01-02 00:00:00 +0000"},
    {"DateWithATime", Date{1000000000}, "date", "2001-09-09 01:46:40 +0000"},
    {"DateBeforeTheFirst", Date{-1}, "date", "1969-12-31 23:59:59 +0000"},
    {"EmptyArray", Array{}, "array", "(\n)"},
    {"Array", Array{Value(1), Value("/bin/sh"), Value("two words"), Value(true)}, "array",
     "(\n    1,\n    /bin/sh,\n    \"two words\",\n    1\n)"},
    {"EmptyTextInArray", Array{Value("")}, "array", "(\n    \"\"\n)"},
    {"QuotesInArray", Array{Value(R"(a"b\c)")}, "array", "(\n    \"a\\\"b\\\\c\"\n)"},
    {"HyphenInArray", Array{Value("a-b")}, "array", "(\n    \"a-b\"\n)"},
    {"EmptyDictionary", Dictionary{}, "dictionary", "{\n}"},
    {"DictionaryIsSorted", Dictionary{{"b", 2}, {"a", false}, {"c d", "e"}}, "dictionary",
     "{\n    a = 0;\n    b = 2;\n    \"c d\" = e;\n}"},
    {"Nested", Dictionary{{"k", Array{Value(Dictionary{{"i", 1}})}}}, "dictionary",
     "{\n    k = (\n        {\n            i = 1;\n        }\n    );\n}"},
};

INSTANTIATE_TEST_SUITE_P(Values, ValueOfKind, testing::ValuesIn(kindRows), NamedAfterRow());

TEST(Value, QuotesInsideAnArrayWhatIsNoBareWord) {
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const char c = static_cast<char>(byte);
        const bool bare =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
            (byte != 0 && std::string_view("_./$:").find(c) != std::string_view::npos);
        const std::string shown = std::string(c == '"' || c == '\\' ? "\\" : "") + c;
        for (const char* around : {"", "a"}) {
            const Value array{Array{Value(around + std::string(1, c) + around)}};
            const auto word = around + shown + around;
            EXPECT_EQ(description(array), "(\n    " + (bare ? word : '"' + word + '"') + "\n)");
        }
    }
}

TEST(Value, DescribesSoMuchAndNoMore) {
    constexpr std::size_t mebibyte = std::size_t{1} << 20;
    // Its lines begin with as many blanks as they are deep.
    Array deep(2000, Value(1));
    for (int level = 0; level < 200; ++level) {
        Array outer;
        outer.emplace_back(std::move(deep));
        deep = std::move(outer);
    }
    Dictionary wide;
    for (std::size_t i = 0; i < mebibyte / 15; ++i)
        wide.emplace("key" + std::to_string(i), 1);
    struct Row {
        Value value;
        const char* end;
    };
    const Row rows[] = {{Array(mebibyte / 6, Value(1)), ",\n    1\n\u2026)"},
                        {wide, " = 1;\n\u2026}"},
                        {deep, "\n    \u2026)\n\u2026)"}};
    for (const auto& [value, end] : rows) {
        const std::string text = description(value);
        EXPECT_TRUE(text.ends_with(end)) << text.substr(text.size() - 40);
        EXPECT_GT(text.size(), mebibyte);
        EXPECT_LT(text.size(), mebibyte + mebibyte / 4);
    }
    EXPECT_TRUE(description(Array(mebibyte / 8, Value(1))).ends_with("\n    1\n)"));
}

TEST(Value, DescribesWhatIsMissing) {
    const Value* missing = nullptr;
    EXPECT_EQ(description(missing), "(null)");
}

TEST(Value, IsNoBooleanByAccident) {
    const int number = 1;
    EXPECT_TRUE(Value("text").string());
    EXPECT_FALSE((std::is_constructible_v<Value, const int*>));
    EXPECT_FALSE((std::is_constructible_v<Value, char>));
    EXPECT_FALSE((std::is_constructible_v<Value, float>));
    EXPECT_TRUE(Value(number).integer());
    EXPECT_NE(Value(1), Value(true));
    EXPECT_NE(Value(0), Value(false));
    EXPECT_NE(Value(1), Value(1.0));
    EXPECT_NE(Value(1), Value("1"));
}

TEST(Value, FindsWhatADictionaryHolds) {
    const Dictionary dictionary = {{"Label", "a"}, {"", "no name"}};
    ASSERT_TRUE(find(dictionary, "Label"));
    EXPECT_EQ(*find(dictionary, "Label"), Value("a"));
    EXPECT_EQ(find(dictionary, ""), &dictionary.at(""));
    EXPECT_EQ(find(dictionary, "label"), nullptr);
    EXPECT_EQ(find({}, "Label"), nullptr);
}

TEST(Value, ComparesDictionariesByContentNotByOrder) {
    const Value one = Dictionary{{"a", 1}, {"b", Array{Value("x")}}};
    const Value other = Dictionary{{"b", Array{Value("x")}}, {"a", 1}};
    EXPECT_EQ(one, other);
    EXPECT_NE(one, Value(Dictionary{{"a", 1}, {"b", Array{Value("y")}}}));
}

} // namespace

} // namespace frimbolate
