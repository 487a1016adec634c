#include "core/control_characters.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

struct MaskRow {
    const char* name;
    std::string text;
    std::string masked;
    const char* kept = "";
};

void PrintTo(const MaskRow& row, std::ostream* out) { *out << row.name; }

class ControlCharacters : public testing::TestWithParam<MaskRow> {};

TEST_P(ControlCharacters, AreMasked) {
    EXPECT_EQ(maskedControls(GetParam().text, GetParam().kept), GetParam().masked);
}

INSTANTIATE_TEST_SUITE_P(Rows, ControlCharacters,
                         testing::Values(MaskRow{"Nothing", "", ""},
                                         MaskRow{"Plain", "a ~\u00e9\u4e00", "a ~\u00e9\u4e00"},
                                         MaskRow{"Escape", "\x1b[31m", "?[31m"},
                                         MaskRow{"FirstAndLast", std::string("\0\x1f\x7f", 3),
                                                 "???"},
                                         MaskRow{"LineEnds", "a\r\nb\tc", "a??b?c"},
                                         MaskRow{"KeptLineEnd", "a\r\nb\tc", "a?\nb\tc", "\n\t"},
                                         MaskRow{"C1", "\u0080\u009f\u00a0", "??\u00a0"},
                                         MaskRow{"CutOff", "a\xc2", "a\xc2"},
                                         MaskRow{"OtherBytes", "\x9b\xff", "\x9b\xff"}),
                         NamedAfterRow());

} // namespace

} // namespace frimbolate::test
