#include "core/path_hint.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {
namespace {

struct PathHintRow {
    std::string_view name;
    std::string_view path;
    std::string_view home;
    std::string_view hint;
};

class PathHint : public testing::TestWithParam<PathHintRow> {};

TEST_P(PathHint, SaysWhatLaunchdDoesNotExpand) {
    EXPECT_EQ(pathHint(GetParam().path, GetParam().home), GetParam().hint);
}

const PathHintRow pathHintRows[] = {
    {"Nothing", "", "/Users/maya", ""},
    {"WholePath", "/Users/maya/x.log", "/Users/maya", ""},
    {"TildeWithin", "/tmp/~x", "/Users/maya", ""},
    {"TildeBehindABlank", " ~/x", "/Users/maya", ""},
    {"Home", "~", "/Users/maya", "launchd does not expand “~”: write /Users/maya"},
    {"InHome", "~/Library/Logs/x.log", "/Users/maya",
     "launchd does not expand “~”: write /Users/maya/Library/Logs/x.log"},
    {"HomeOfAnother", "~root/x.log", "/Users/maya",
     "launchd does not expand “~”: write the whole path"},
    {"UnknownHome", "~/x.log", "", "launchd does not expand “~”: write the whole path"},
};

INSTANTIATE_TEST_SUITE_P(Table, PathHint, testing::ValuesIn(pathHintRows), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
