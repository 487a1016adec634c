// Writing the advanced keys and the additional conditions.
#include "tests/core/written_forms.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

class AdvancedKey : public testing::TestWithParam<ConditionRow> {};

TEST_P(AdvancedKey, IsWritten) {
    for (const auto& start : starts()) {
        SCOPED_TRACE(start.name);
        EXPECT_EQ(fileOf(start.form, GetParam().change), joined(start.file, GetParam().keys));
    }
}

template <typename Field>
Change set(Field AgentForm::*field, Field value) {
    return [=](AgentForm& form) { form.*field = value; };
}

Change text(std::string AgentForm::*field, std::string value) {
    return set(field, std::move(value));
}

Change all(const std::vector<Change>& changes) {
    return [=](AgentForm& form) {
        for (const auto& change : changes)
            change(form);
    };
}

const auto alsoAtLoad = set(&AgentForm::alsoRunAtLoad, true);
const auto alsoOnMount = set(&AgentForm::alsoRunOnVolumeMount, true);
const auto alsoOnPath =
    all({set(&AgentForm::alsoRunOnPathChange, true), text(&AgentForm::alsoRunPath, "/also")});
const Array alsoPath = {Value("/also")};

const ConditionRow advanced[] = {
    {"Globbing", set(&AgentForm::enableGlobbing, true), {{"EnableGlobbing", true}}},
    {"LowPriority", set(&AgentForm::priorityLevel, 0), {{"LowPriorityIO", true}}},
    {"NoGlobbing", set(&AgentForm::enableGlobbing, false), {{"EnableGlobbing", false}}},
    {"NormalPriority", set(&AgentForm::priorityLevel, 1), {{"LowPriorityIO", false}}},
    {"PriorityWithoutSelection", set(&AgentForm::priorityLevel, -1), {{"LowPriorityIO", false}}},
    {"PriorityBeyond", set(&AgentForm::priorityLevel, 2), {{"LowPriorityIO", false}}},
    {"Nice", set(&AgentForm::niceLevel, std::int64_t{-20}), {{"Nice", -20}}},
    {"NiceBeyond32Bits",
     set(&AgentForm::niceLevel, std::int64_t{4294967296}),
     {{"Nice", 4294967296}}},
    {"In", text(&AgentForm::standardInPath, "/in"), {{"StandardInPath", "/in"}}},
    {"Out", text(&AgentForm::standardOutPath, "/out"), {{"StandardOutPath", "/out"}}},
    {"Error", text(&AgentForm::standardErrorPath, "/err"), {{"StandardErrorPath", "/err"}}},
    {"Working", text(&AgentForm::workingDirectory, "/w"), {{"WorkingDirectory", "/w"}}},
    {"Root", text(&AgentForm::rootDirectory, "/r"), {{"RootDirectory", "/r"}}},
    {"Queue", text(&AgentForm::queueDirectory, "/q"), {{"QueueDirectories", Array{Value("/q")}}}},
    {"OnlyBlanksAreWritten", text(&AgentForm::standardInPath, "  "), {{"StandardInPath", "  "}}},
    {"QueueOfABlank",
     text(&AgentForm::queueDirectory, " "),
     {{"QueueDirectories", Array{Value(" ")}}}},
};

const ConditionRow additionalRows[] = {
    {"AtLoad", alsoAtLoad, {{"RunAtLoad", true}}},
    {"OnMount", alsoOnMount, {{"StartOnMount", true}}},
    {"OnPath", alsoOnPath, {{"WatchPaths", alsoPath}}},
    {"OnNoPath",
     all({set(&AgentForm::alsoRunOnPathChange, true), text(&AgentForm::alsoRunPath, "")}),
     {{"WatchPaths", Array{Value("")}}}},
    {"PathWithoutTheBox", text(&AgentForm::alsoRunPath, "/also"), {}},
    {"PathReplacesTheMainOne", all({launched(4, -1), alsoOnPath}), {{"WatchPaths", alsoPath}}},
    {"MountTwice", all({launched(5, -1), alsoOnMount}), {{"StartOnMount", true}}},
    {"LoadTwice", all({launched(2, 12), alsoAtLoad}), {{"RunAtLoad", true}}},
    {"All",
     all({alsoAtLoad, alsoOnMount, alsoOnPath}),
     {{"RunAtLoad", true}, {"StartOnMount", true}, {"WatchPaths", alsoPath}}},
};

INSTANTIATE_TEST_SUITE_P(Advanced, AdvancedKey, testing::ValuesIn(advanced), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Also, AdvancedKey, testing::ValuesIn(additionalRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
