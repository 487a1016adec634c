#include "tests/hostile/hostile_files.h"

#include "plist/limits.h"
#include "tests/plist/binary_file.h"

#include <string_view>
#include <vector>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

/// The text repeated as often as it fits into a size.
std::string repeatedUpTo(std::size_t size, std::string_view text) {
    std::string result;
    result.reserve(size);
    while (result.size() + text.size() <= size)
        result += text;
    return result;
}

std::string between(std::size_t size, std::string_view begin, std::string_view text,
                    std::string_view end) {
    return std::string(begin)
        .append(repeatedUpTo(size - begin.size() - end.size(), text))
        .append(end);
}

/// A number in digits of a base, the lowest first.
std::string shortName(std::size_t number) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::string name;
    do {
        name += letters[number % letters.size()];
        number /= letters.size();
    } while (number > 0);
    return name;
}

/// Entries with keys that all differ, up to a size.
template <typename Entry>
std::string manyEntries(std::size_t size, std::string_view begin, Entry entry,
                        std::string_view end) {
    std::string result(begin);
    result.reserve(size);
    for (std::size_t number = 0;; ++number) {
        const std::string next = entry(shortName(number));
        if (result.size() + next.size() + end.size() > size)
            return result.append(end);
        result += next;
    }
}

/// Small things below as many open containers as may be.
std::string atDepth(std::size_t size, std::string_view open, std::string_view inner,
                    std::string_view close, std::string_view key = "") {
    constexpr std::size_t levels = maximumPlistDepth - 2;
    const std::string begin = std::string("<dict><key>") + std::string(key) + "</key>" +
                              repeatedUpTo(levels * open.size(), open);
    const std::string end = repeatedUpTo(levels * close.size(), close) + "</dict>";
    return between(size, begin, inner, end);
}

std::string agent(std::size_t size, std::string_view begin, std::string_view text,
                  std::string_view end) {
    const std::string head = "<plist><dict><key>Label</key><string>a</string>"
                             "<key>ProgramArguments</key><array><string>/bin/a</string></array>" +
                             std::string(begin);
    return between(size, head, text, std::string(end) + "</dict></plist>");
}

/// The bytes of a text in UTF-16 or UTF-32 with their mark.
std::string wideText(std::string_view text, std::size_t unit) {
    std::string result = "\xff\xfe"s + std::string(unit - 2, '\0');
    result.reserve((text.size() + 1) * unit);
    for (const char c : text)
        result.append(1, c).append(unit - 1, '\0');
    return result;
}

std::string binary(std::vector<std::string> objects) {
    return BinaryFile{std::move(objects), 4, 4}.bytes();
}

std::string counted(char kind, std::size_t count, std::string content) {
    return std::string(1, kind) + "\x13" + bigEndian(count, 8) + std::move(content);
}

std::string times(std::size_t count, const std::string& text) {
    return repeatedUpTo(count * text.size(), text);
}

/// An array of an agent's dictionary, all of whose elements are one object.
std::string sharing(std::size_t size, std::string shared, std::size_t count) {
    const std::size_t left = size - shared.size() - 100;
    const std::size_t elements = std::min(count, left / 4);
    return binary({"\xd1"s + bigEndian(1, 4) + bigEndian(2, 4),
                   "\x5f\x10\x10" + "ProgramArguments"s,
                   counted('\xaf', elements, times(elements, bigEndian(3, 4))), std::move(shared)});
}

std::string doubling(std::size_t) {
    constexpr std::size_t levels = 60;
    std::vector<std::string> objects;
    for (std::size_t i = 1; i <= levels; ++i)
        objects.push_back("\xa2" + bigEndian(i, 4) + bigEndian(i, 4));
    objects.emplace_back("\x09");
    return binary(std::move(objects));
}

std::string distinctKeys(std::size_t size) {
    // A key takes its object, its offset, and two references.
    const std::size_t count = size / (8 + 4 + 8 + 8);
    std::string keys, values;
    std::vector<std::string> objects(2);
    for (std::size_t i = 0; i < count; ++i) {
        objects.push_back("\x54" + bigEndian(0x61616161 + i % 20 + (i / 20 % 20) * 256 +
                                                 (i / 400 % 20) * 65536 + (i / 8000) * 16777216,
                                             4));
        keys += bigEndian(i + 2, 4);
        values += bigEndian(1, 4);
    }
    objects[0] = counted('\xdf', count, keys + values);
    objects[1] = "\x09";
    return binary(std::move(objects));
}

std::string chain(std::size_t size) {
    std::vector<std::string> objects;
    for (std::size_t i = 1; objects.size() < size / 13; ++i)
        objects.push_back("\xa1" + bigEndian(i, 4));
    objects.emplace_back("\x09");
    return binary(std::move(objects));
}

std::string nothingBehindOffsets(std::size_t size) {
    return binary(std::vector<std::string>(size / 5 - 20, "\x09"));
}

} // namespace

#define FRIMBOLATE_MADE(expression) [](std::size_t size) -> std::string { return expression; }

std::span<const HostileFile> hostileFiles() {
    static constexpr HostileFile files[] = {
        {"XmlNesting", FRIMBOLATE_MADE(repeatedUpTo(size, "<array>"))},
        {"XmlNestedPlists", FRIMBOLATE_MADE(repeatedUpTo(size / 16 * 7, "<plist>") + "<true/>" +
                                            repeatedUpTo(size / 16 * 8, "</plist>"))},
        {"XmlEntities", FRIMBOLATE_MADE(between(size, "<!DOCTYPE a [", "<!ENTITY b '&a;&a;&a;'>",
                                                "]><string>&b;</string>"))},
        {"XmlReferences", FRIMBOLATE_MADE(between(size, "<dict><key>Label</key><string>", "&lt;",
                                                  "</string></dict>"))},
        {"XmlAttributes", FRIMBOLATE_MADE(between(size, "<plist", " a=\"b\"", "><dict/></plist>"))},
        {"XmlComments", FRIMBOLATE_MADE(between(size, "<plist>", "<!---->", "<dict/></plist>"))},
        {"XmlOpenComment", FRIMBOLATE_MADE(between(size, "<plist>", "<!-- -", ""))},
        {"XmlSections", FRIMBOLATE_MADE(between(size, "<dict><key>Label</key><string>",
                                                "<![CDATA[a]]>", "</string></dict>"))},
        {"XmlBooleans",
         FRIMBOLATE_MADE(agent(size, "<key>WatchPaths</key><array>", "<true/>", "</array>"))},
        {"XmlEmptyArrays",
         FRIMBOLATE_MADE(agent(size, "<key>WatchPaths</key><array>", "<array/>", "</array>"))},
        {"XmlShortTexts", FRIMBOLATE_MADE(agent(size, "<key>WatchPaths</key><array>",
                                                "<string>/</string>", "</array>"))},
        {"XmlCalendars", FRIMBOLATE_MADE(agent(size, "<key>StartCalendarInterval</key><array>",
                                               "<dict><key>Month</key><integer>2</integer>"
                                               "<key>Day</key><integer>30</integer></dict>",
                                               "</array>"))},
        {"XmlConditions",
         FRIMBOLATE_MADE(manyEntries(
             size,
             "<dict><key>Label</key><string>a</string><key>Program</key><string>/a"
             "</string><key>KeepAlive</key><dict><key>PathState</key><dict>",
             [](const std::string& name) { return "<key>" + name + "</key><true/>"; },
             "</dict></dict></dict>"))},
        {"XmlUnknownKeys",
         FRIMBOLATE_MADE(manyEntries(
             size, "<dict>",
             [](const std::string& name) { return "<key>" + name + "</key><true/>"; }, "</dict>"))},
        {"XmlDeepKeys",
         FRIMBOLATE_MADE(manyEntries(
             size, "<dict><key>" + std::string(size / 4, 'k') + "</key><dict>",
             [](const std::string& name) { return "<key>" + name + "</key><true/>"; },
             "</dict></dict>"))},
        {"XmlSameKey", FRIMBOLATE_MADE(between(size, "<dict>", "<key>a</key><true/>", "</dict>"))},
        {"XmlKeysAlike", FRIMBOLATE_MADE(manyEntries(
                             size, "<dict>",
                             [](const std::string& name) {
                                 return "<key>" + std::string(2000, 'k') + name + "</key><true/>";
                             },
                             "</dict>"))},
        {"XmlText", FRIMBOLATE_MADE(between(size, "<dict><key>Label</key><string>", "\u4e00",
                                            "</string></dict>"))},
        {"XmlScript",
         FRIMBOLATE_MADE(between(size,
                                 "<dict><key>Label</key><string>a</string><key>ProgramArguments"
                                 "</key><array><string>/bin/sh</string><string>-c</string><string>",
                                 "&lt;", "</string></array></dict>"))},
        {"XmlProgram",
         FRIMBOLATE_MADE(between(size,
                                 "<dict><key>Label</key><string>a</string><key>ProgramArguments"
                                 "</key><array><string>",
                                 "~/a", "</string></array></dict>"))},
        {"XmlData", FRIMBOLATE_MADE(agent(size, "<key>Hour</key><data>", "AAAA", "</data>"))},
        {"XmlDataOfCalendar",
         FRIMBOLATE_MADE(agent(size, "<key>StartCalendarInterval</key><dict><key>Hour</key><data>",
                               "AAAA", "</data></dict>"))},
        {"XmlDigits", FRIMBOLATE_MADE(agent(size, "<key>Nice</key><integer>", "0", "</integer>"))},
        {"XmlRealDigits", FRIMBOLATE_MADE(agent(size, "<key>Nice</key><real>", "9", "</real>"))},
        {"XmlDeepArrays",
         FRIMBOLATE_MADE(atDepth(size, "<array>", "<array/>", "</array>", "QueueDirectories"))},
        {"XmlDeepTexts",
         FRIMBOLATE_MADE(atDepth(size, "<array>", "<string>a</string>", "</array>", "Label"))},
        {"XmlDeepInterval",
         FRIMBOLATE_MADE(agent(size, "<key>StartInterval</key>" + times(500, "<array>"), "<array/>",
                               times(500, "</array>")))},
        {"XmlTags", FRIMBOLATE_MADE(repeatedUpTo(size, "<"))},
        {"XmlLines", FRIMBOLATE_MADE(between(size, "<plist>", "\n", "<x/>"))},
        {"Utf16Booleans",
         FRIMBOLATE_MADE(wideText(between(size / 2 - 4, "<array>", "<true/>", "</array>"), 2))},
        {"Utf16Wide", FRIMBOLATE_MADE("\xfe\xff" + repeatedUpTo(size - 2, "\x4e\x01"))},
        {"Utf32Text",
         FRIMBOLATE_MADE(wideText(between(size / 4 - 4, "<string>", "a", "</string>"), 4))},
        {"Latin1",
         FRIMBOLATE_MADE(between(size, "<?xml encoding='latin1'?><string>", "\xe9", "</string>"))},
        {"OldStyleTexts", FRIMBOLATE_MADE(between(size, "(", "a,", ")"))},
        {"OldStyleArrays", FRIMBOLATE_MADE(between(size, "(", "(),", ")"))},
        {"OldStyleNesting", FRIMBOLATE_MADE(repeatedUpTo(size, "("))},
        {"OldStyleDeepArrays", FRIMBOLATE_MADE(between(size, "{QueueDirectories=" + times(500, "("),
                                                       "(),", times(500, ")") + ";}"))},
        {"OldStyleDictionaries", FRIMBOLATE_MADE(between(size, "(", "{a;},", ")"))},
        {"OldStyleKeys", FRIMBOLATE_MADE(manyEntries(
                             size, "", [](const std::string& name) { return name + ";"; }, ""))},
        {"OldStyleSameKey", FRIMBOLATE_MADE(repeatedUpTo(size, "a;"))},
        {"OldStyleData", FRIMBOLATE_MADE(between(size, "<", "0f", ">"))},
        {"OldStyleComments", FRIMBOLATE_MADE(between(size, "", "/**/", "a"))},
        {"OldStyleEscapes", FRIMBOLATE_MADE(between(size, "\"", "\\\"", "\""))},
        {"OldStyleText", FRIMBOLATE_MADE(repeatedUpTo(size, "a"))},
        {"OldStyleAfterXml", FRIMBOLATE_MADE(between(size, "<", "0f ", "g>"))},
        {"BinaryDoubling", doubling},
        {"BinaryCycle",
         FRIMBOLATE_MADE(size > 0 ? binary({"\xa2" + bigEndian(1, 4) + bigEndian(1, 4),
                                            "\xa2" + bigEndian(0, 4) + bigEndian(1, 4)})
                                  : "")},
        {"BinaryChain", chain},
        {"BinaryOffsets", nothingBehindOffsets},
        {"BinarySharedBoolean", FRIMBOLATE_MADE(sharing(size, "\x09", size))},
        {"BinarySharedEmptyText", FRIMBOLATE_MADE(sharing(size, "\x50", size))},
        {"BinarySharedText",
         FRIMBOLATE_MADE(sharing(size, counted('\x5f', size / 2, std::string(size / 2, '/')), 30))},
        {"BinarySharedData",
         FRIMBOLATE_MADE(sharing(size, counted('\x4f', size / 2, std::string(size / 2, 'a')), 30))},
        {"BinaryShort1",
         FRIMBOLATE_MADE(sharing(size, "\x5f\x10\x10" + std::string(16, 'a'), size))},
        {"BinaryManyKeys", distinctKeys},
        {"BinaryCount",
         FRIMBOLATE_MADE(size > 0 ? binary({counted('\xaf', std::size_t{1} << 63, "a")}) : "")},
        {"BinaryTextCount",
         FRIMBOLATE_MADE(size > 0 ? binary({counted('\x6f', ~std::size_t{0} / 2 + 1, "a")}) : "")},
        {"BinaryUtf16", FRIMBOLATE_MADE(binary({counted('\x6f', size / 2 - 30,
                                                        repeatedUpTo(size - 60, "\x4e\x01"))}))},
        {"Zeros", FRIMBOLATE_MADE(std::string(size, '\0'))},
    };
    return files;
}

#undef FRIMBOLATE_MADE

} // namespace frimbolate::test
