#include "widgets/controls/long_text.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <string_view>

namespace frimbolate::test {
namespace {

const QString ellipsis(QChar(0x2026));
/// A character of two UTF-16 units.
const QString smile = QString::fromUcs4(U"\U0001F600", 1);

QString xs(qsizetype count) { return QString(count, u'x'); }

struct LabelRow {
    std::string_view name;
    QString text;
    Qt::TextElideMode mode;
    QString expected;
};

class LabelText : public testing::TestWithParam<LabelRow> {};

TEST_P(LabelText, IsLimitedInLength) {
    const LabelRow& row = GetParam();
    const QString shown = labelText(row.text, row.mode);
    EXPECT_EQ(shown, row.expected);
    EXPECT_LE(shown.size(), longestLabel);
    EXPECT_TRUE(shown.isValidUtf16());
}

const LabelRow labelRows[] = {
    {"Empty", "", Qt::ElideRight, ""},
    {"Short", "a b", Qt::ElideRight, "a b"},
    {"LongestAtEnd", xs(1024), Qt::ElideRight, xs(1024)},
    {"TooLongAtEnd", xs(1025), Qt::ElideRight, xs(1023) + ellipsis},
    {"LongestInTheMiddle", xs(1024), Qt::ElideMiddle, xs(1024)},
    {"TooLongInTheMiddle", "a" + xs(5000) + "z", Qt::ElideMiddle,
     "a" + xs(511) + ellipsis + xs(510) + "z"},
    {"PairAtTheCut", xs(1022) + smile + xs(9), Qt::ElideRight, xs(1022) + ellipsis},
    {"PairsAtBothCuts", xs(511) + smile + xs(5000) + smile + xs(510), Qt::ElideMiddle,
     xs(511) + ellipsis + xs(510)},
};

INSTANTIATE_TEST_SUITE_P(Table, LabelText, testing::ValuesIn(labelRows), NamedAfterRow());

struct AbbreviationRow {
    std::string_view name;
    QString whole;
    QString shown;
};

class Abbreviation : public testing::TestWithParam<AbbreviationRow> {};

TEST_P(Abbreviation, ExpandsToTheWholeText) {
    AbbreviatedText text;
    EXPECT_EQ(text.abbreviate(GetParam().whole), GetParam().shown);
    EXPECT_EQ(text.expand(GetParam().shown), GetParam().whole);
}

const AbbreviationRow abbreviations[] = {
    {"Empty", "", ""},
    {"Short", "/etc/hosts", "/etc/hosts"},
    {"ShortWithASign", "a" + ellipsis, "a" + ellipsis},
    {"Longest", xs(4096), xs(4096)},
    {"TooLong", xs(4097), xs(4096) + ellipsis},
    {"SignInTheBeginning", ellipsis + xs(9000), ellipsis + xs(4095) + QChar(0x22EF)},
    {"SignInTheRest", xs(4096) + ellipsis, xs(4096) + ellipsis},
    {"PairAtTheCut", xs(4095) + smile + "z", xs(4095) + ellipsis},
    {"EverySign", QString::fromUtf8("…⋯▸»") + xs(9000),
     QString::fromUtf8("…⋯▸»") + xs(4092) + QChar(0xE000)},
};

INSTANTIATE_TEST_SUITE_P(Table, Abbreviation, testing::ValuesIn(abbreviations), NamedAfterRow());

TEST(AbbreviatedText, ExpandsAfterAnEdit) {
    AbbreviatedText text;
    const QString rest = QString(900, u'r');
    const QString shown = text.abbreviate(xs(4096) + rest);
    EXPECT_EQ(text.expand("ab" + shown), "ab" + xs(4096) + rest);
    EXPECT_EQ(text.expand(shown + "z"), xs(4096) + rest + "z");
    EXPECT_EQ(text.expand(xs(4096)), xs(4096)) << "the sign was deleted";
    EXPECT_EQ(text.expand(ellipsis), rest) << "after it was restored";
    text.abbreviate("short");
    EXPECT_EQ(text.expand("short" + ellipsis), "short" + ellipsis);
}

} // namespace
} // namespace frimbolate::test
