// Files that exhaust time, memory or stack where a reader reads a part of them more than once. Time
// must grow linearly with the size of the file; memory must stay below 40 times that size.
#include "core/named_error.h"
#include "plist/limits.h"
#include "plist/property_list_reader.h"
#include "plist/xml_reader.h"
#include "tests/plist/binary_file.h"
#include "tests/plist/memory_meter.h"
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <functional>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

constexpr std::size_t largeSize = std::size_t{1} << 19;

/// The text repeated until it has at least that size, in bytes.
std::string filled(std::string_view text, std::size_t size = largeSize) {
    std::string result;
    result.reserve(size + text.size());
    while (result.size() < size)
        result += text;
    return result;
}

/// Different texts, each as short as possible.
std::string manyNames(std::size_t count, const std::function<std::string(std::string)>& around) {
    constexpr std::string_view letters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ01234567";
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        std::string name;
        for (std::size_t rest = i + 1; rest > 0; rest /= letters.size())
            name += letters[rest % letters.size()];
        result += around(std::move(name));
    }
    return result;
}

std::string times(std::string_view text, std::size_t count) {
    return filled(text, text.size() * count);
}

std::string binaryOf(std::vector<std::string> objects) {
    return BinaryFile{std::move(objects), 4}.bytes();
}

struct BoundsRow {
    const char* name;
    std::string (*file)();
    bool isRead;
};

void PrintTo(const BoundsRow& row, std::ostream* out) { *out << row.name; }

class Bounds : public testing::TestWithParam<BoundsRow> {};

TEST_P(Bounds, OfMemoryAreKept) {
    const std::string file = GetParam().file();
    bool isRead = true;
    const MemoryMeter meter;
    try {
        readPropertyList(file);
    } catch (const NamedError&) {
        isRead = false;
    }
    EXPECT_LE(meter.peak(), maximumPlistMemory(file.size()));
    EXPECT_EQ(isRead, GetParam().isRead) << rejectionReasonFor(file).substr(0, 200);
}

/// Counts the bytes that the XML reader searches, also for files of the other forms.
TEST_P(Bounds, OfSearchingAreKept) {
    const std::string file = GetParam().file();
    TextCursor in(file);
    try {
        readXmlPlist(in);
    } catch (const NamedError&) {
        // Only the number of bytes searched matters.
    }
    EXPECT_LE(in.bytesSearched(), 3 * file.size());
}

const BoundsRow boundsRows[] = {
    {"Attributes", [] { return "<plist" + filled(" a=\"b\"") + "><true/></plist>"; }, true},
    {"TagsWithAttributes", [] { return "<array>" + filled("<true a='b'/>") + "</array>"; }, true},
    {"Comments",
     [] { return filled("<!---->") + "<plist>" + filled("<!---->") + "<true/></plist>"; }, true},
    {"CommentOfDashes", [] { return "<!--" + filled("-") + "><true/>"; }, true},
    {"OpenComments", [] { return "<plist>" + filled("<!--"); }, false},
    {"Instructions",
     [] { return filled("<? ?>") + "<plist>" + filled("<? ?>") + "<true/></plist>"; }, true},
    {"InstructionOfQuestions", [] { return "<?" + filled("?") + "><true/>"; }, true},
    {"DocumentTypes", [] { return filled("<!DOCTYPE a>") + "<true/>"; }, true},
    {"Declarations", [] { return filled("<?xml encoding='utf-8") + "'?><true/>"; }, false},
    {"Sections", [] { return "<string>" + filled("<![CDATA[]]>") + "</string>"; }, true},
    {"SectionOfBrackets", [] { return "<string><![CDATA[" + filled("]") + "]>a</string>"; }, true},
    {"OpenSections", [] { return "<string>" + filled("<![CDATA["); }, false},
    {"References", [] { return "<string>" + filled("&amp;") + "</string>"; }, true},
    {"Ampersands", [] { return "<string>" + filled("&"); }, false},
    {"DigitsOfReference", [] { return "<string>&#" + filled("0") + "65;</string>"; }, true},
    {"TextWithoutEnd", [] { return "<string>" + filled("é&lt;"); }, false},
    {"EmptyTexts", [] { return "<array>" + filled("<string/>") + "</array>"; }, true},
    {"Booleans", [] { return "<array>" + filled("<true/>") + "</array>"; }, true},
    {"EmptyArrays", [] { return "<array>" + filled("<array/>") + "</array>"; }, true},
    {"ShortArrays", [] { return "<array>" + filled("<array><true/></array>") + "</array>"; }, true},
    {"ShortData", [] { return "<array>" + filled("<data>AAAA</data>") + "</array>"; }, true},
    {"LongData", [] { return "<data>" + filled("AAAA\n") + "</data>"; }, true},
    {"PaddingOfData", [] { return "<data>" + filled("=") + "</data>"; }, true},
    {"DigitsOfInteger", [] { return "<integer>" + filled("0") + "</integer>"; }, true},
    {"DigitsOfReal", [] { return "<real>0." + filled("0") + "1</real>"; }, true},
    {"DigitsOfDate", [] { return "<date>" + filled("0") + "1-01-01T00:00:00Z</date>"; }, true},
    {"SameKey", [] { return "<dict>" + filled("<key>a</key><true/>") + "</dict>"; }, true},
    {"LongKeys",
     [] {
         const std::string beginning(1000, 'k');
         return "<dict>" +
                manyNames(3000,
                          [&](auto name) { return "<key>" + beginning + name + "</key><true/>"; }) +
                "</dict>";
     },
     true},
    {"Keys",
     [] {
         return "<dict>" +
                manyNames(60000, [](auto name) { return "<key>" + name + "</key><true/>"; }) +
                "</dict>";
     },
     true},
    {"NestedPlists",
     [] { return times("<plist>", 100000) + "<true/>" + times("</plist>", 100000); }, true},
    {"OpenPlists", [] { return filled("<plist>"); }, false},
    {"OpenArrays", [] { return filled("<array>"); }, false},
    {"OpenDictionaries", [] { return filled("<dict><key/>"); }, false},
    {"ClosedArrays", [] { return filled("</array>"); }, false},
    {"Blanks", [] { return filled(" \n"); }, true},
    {"OldStyleTexts", [] { return "(" + filled("a,") + ")"; }, true},
    {"OldStyleArrays", [] { return "(" + filled("(),") + ")"; }, true},
    {"OldStyleShortArrays", [] { return "(" + filled("(a),") + ")"; }, true},
    {"OldStyleDeepArrays",
     [] { return "(" + filled(times("(", 511) + times(")", 511) + ",") + ")"; }, true},
    {"OldStyleDictionaries", [] { return "(" + filled("{a;},") + ")"; }, true},
    {"OldStyleData", [] { return "(" + filled("<>,") + ")"; }, true},
    {"OldStyleLongData", [] { return "<" + filled("0f") + ">"; }, true},
    {"OldStyleSameKey", [] { return filled("a;"); }, true},
    {"OldStyleKeys", [] { return manyNames(100000, [](auto name) { return name + ";"; }); }, true},
    {"OldStyleComments", [] { return filled("/**/") + "a" + filled("//\n"); }, true},
    {"OldStyleCommentOfStars", [] { return "/*" + filled("*"); }, true},
    {"OldStyleOpenComments", [] { return filled("/* "); }, true},
    {"OldStyleEscapes", [] { return "\"" + filled("\\\"") + "\""; }, true},
    {"OldStyleBackslashes", [] { return "\"" + filled("\\\\"); }, false},
    {"OldStyleOpenArrays", [] { return filled("("); }, false},
    {"OldStyleOpenDictionaries", [] { return filled("{a="); }, false},
    {"DataThatIsNoXml", [] { return "<" + filled("00") + "g>"; }, false},
    {"Latin1", [] { return "<?xml encoding='latin1'?><string>" + filled("\xe9") + "</string>"; },
     true},
    {"Utf16", [] { return "\xfe\xff" + filled("\x4e\x00"s); }, false},
    {"BinaryDoubling",
     [] {
         std::vector<std::string> objects;
         for (int i = 1; i <= 40; ++i)
             objects.push_back("\xa2" + std::string(2, static_cast<char>(i)));
         objects.emplace_back("\x09");
         return binaryOf(std::move(objects));
     },
     false},
    {"BinaryDoublingOfNothing",
     [] {
         std::vector<std::string> objects;
         for (int i = 1; i <= 40; ++i)
             objects.push_back("\xd2\x29\x29" + std::string(2, static_cast<char>(i)));
         objects.emplace_back("\xd0");
         objects.emplace_back("\x51\x61");
         return binaryOf(std::move(objects));
     },
     false},
    {"BinarySharedText",
     [] {
         return binaryOf({"\xaf\x12" + bigEndian(100000, 4) + std::string(100000, '\x01'),
                          "\x5f\x12" + bigEndian(100000, 4) + std::string(100000, 'a')});
     },
     false},
    {"BinarySharedKey",
     [] {
         return binaryOf({"\xdf\x12" + bigEndian(100000, 4) + std::string(100000, '\x01') +
                              std::string(100000, '\x02'),
                          "\x5f\x12" + bigEndian(100000, 4) + std::string(100000, 'a'), "\x09"});
     },
     false},
    {"BinarySharedDictionary",
     [] {
         // Short keys, so that the entries take most of the memory.
         constexpr std::size_t keys = 200;
         std::string references;
         std::vector<std::string> names;
         for (std::size_t i = 0; i < keys; ++i) {
             references += static_cast<char>(i + 2);
             names.push_back("\x52" + bigEndian(0x4141 + i / 20 * 256 + i % 20, 2));
         }
         std::vector<std::string> objects = {"\xaf\x11" + bigEndian(300, 2) +
                                                 std::string(300, '\x01'),
                                             "\xdf\x11" + bigEndian(keys, 2) + references +
                                                 std::string(keys, static_cast<char>(keys + 2))};
         objects.insert(objects.end(), names.begin(), names.end());
         objects.emplace_back("\x09");
         return binaryOf(std::move(objects));
     },
     false},
    {"BinarySharedData",
     [] {
         return binaryOf({"\xaf\x12" + bigEndian(100000, 4) + std::string(100000, '\x01'),
                          "\x4f\x12" + bigEndian(100000, 4) + std::string(100000, 'a')});
     },
     false},
    {"BinarySharedBoolean",
     [] {
         return binaryOf({"\xaf\x12" + bigEndian(100000, 4) + std::string(100000, '\x01'), "\x09"});
     },
     false},
    {"BinaryBooleans",
     [] {
         Array booleans(100000, true);
         return binaryPlist(booleans);
     },
     true},
    {"BinaryShortTexts", [] { return binaryPlist(Array(100000, "")); }, true},
    {"BinaryUtf16", [] { return binaryPlist(filled("\u4e00")); }, true},
    {"BinarySharedUtf16",
     [] {
         return binaryOf({"\xaf\x10\x40" + std::string(64, '\x01'),
                          "\x6f\x12" + bigEndian(100000, 4) + times("\x4e\x00"s, 100000)});
     },
     false},
    {"BinarySharedBooleans",
     [] {
         return binaryOf(
             {"\xaf\x12" + bigEndian(1000000, 4) + std::string(std::size_t{2} << 20, '\x01'),
              "\x09"});
     },
     true},
    {"BinaryCycle",
     [] {
         return binaryOf({"\xa2\x01\x01", "\xa2\x00\x01"s});
     },
     false},
};

INSTANTIATE_TEST_SUITE_P(Rows, Bounds, testing::ValuesIn(boundsRows), NamedAfterRow());

TEST(MemoryMeter, SeesWhatIsTaken) {
    const MemoryMeter meter;
    { const std::string large(1000000, 'a'); }
    EXPECT_GE(meter.peak(), 1000000U);
    EXPECT_LT(meter.peak(), 1100000U);
    { const std::string again(1000000, 'a'); }
    EXPECT_LT(meter.peak(), 1100000U);
    EXPECT_GE(meter.total(), 2000000U);
}

} // namespace

} // namespace frimbolate::test
