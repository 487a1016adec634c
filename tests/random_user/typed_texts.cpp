#include "tests/random_user/typed_texts.h"

#include <algorithm>
#include <array>

namespace frimbolate::test {

namespace {

constexpr const char* shortTexts[] = {"backup",
                                      "sync_notes",
                                      "a",
                                      "two words",
                                      "n\u00e9t",
                                      "\u540d\u524d",
                                      "\U0001f642 x",
                                      "\u0627\u0644\u0639",
                                      "e\u0301",
                                      "a/b",
                                      "..",
                                      "-dash",
                                      "x'y",
                                      "com.frimbolate.x",
                                      "name.plist",
                                      "12",
                                      "0",
                                      "31",
                                      "32",
                                      "-5",
                                      "99999999999999999999",
                                      "1.5",
                                      "0730",
                                      "7:30 pm",
                                      "7p",
                                      "25:00",
                                      "24",
                                      "noon",
                                      "~/out.log",
                                      "~",
                                      "/usr/share",
                                      "relative/x",
                                      "*.txt",
                                      "%1 %n",
                                      "<b>&amp;",
                                      "\u202e",
                                      "#!/bin/sh"};

struct LongText {
    const char* name;
    QString (*make)();
};
const LongText longTexts[] = {
    {"#empty", [] { return QString(); }},
    {"#time", [] { return QStringLiteral("19:45"); }},
    {"#text", [] { return QStringLiteral("#!/bin/sh\nset -eu\n\tls ~/Documents\n"); }},
    {"#breaks", [] { return QStringLiteral("one\r\ntwo\u2028three\n"); }},
    {"#control", [] { return QStringLiteral("a\u0001b\u0007"); }},
    {"#name", [] { return QString(300, 'm'); }},
    {"#long", [] { return QString(5000, 'x') + QStringLiteral("\U0001f642"); }},
    {"#lines", [] { return QStringLiteral("echo one line of many\n").repeated(500); }},
};

} // namespace

std::string drawText(RandomValues& random) {
    if (random.below(4) == 0)
        return random.oneOf(longTexts).name;
    return random.oneOf(shortTexts);
}

QString typedText(const std::string& argument) {
    if (argument == "#all") { // every character, each of which may need a font of its own
        QString all;
        for (const char* text : shortTexts)
            all += QString::fromUtf8(text);
        return all;
    }
    const auto row = std::ranges::find(longTexts, argument,
                                       [](const LongText& text) { return std::string(text.name); });
    return row == std::end(longTexts) ? QString::fromStdString(argument) : row->make();
}

bool isPasted(const QString& text) {
    constexpr qsizetype mostTyped = 40;
    return text.size() > mostTyped || std::ranges::any_of(text, [](QChar character) {
               return character.category() == QChar::Other_Control || character == u'\u2028';
           });
}

} // namespace frimbolate::test
