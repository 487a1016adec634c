// Switches every case of tests/plist that the platform reads in a real file. The file then holds
// the platform's value with another "Enabled", or is unchanged.
#include "core/named_error.h"
#include "operations/agent_switch.h"
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "posix/local_files.h"
#include "tests/plist/value_notation.h"
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

/// The dictionary that the platform reads, with another "Enabled", as text.
std::string switchedText(const std::string& file, bool enabled) {
    Dictionary dictionary = readPropertyList(file).asDictionary();
    dictionary.insert_or_assign("Enabled", enabled);
    return valueText(dictionary);
}

/// Whether the platform can read back what is written of a case: it is a dictionary without
/// characters that XML cannot hold and without years of more than four digits.
bool isWritable(const std::string& file) try {
    xmlPropertyList(readPropertyList(file).asDictionary());
    return true;
} catch (const NamedError&) {
    return false;
}

class SwitchedVerdict : public testing::TestWithParam<VerdictRow> {
  protected:
    /// Chooses the file and confirms. Returns false if an alert reports a failure.
    bool switchFile() {
        ScriptedPlatform user;
        LocalFiles files(user);
        Services services = user.services({.files = &files});
        AgentSwitch agentSwitch(services);
        agentSwitch.onOffLaunchAgent();
        user.choose(path);
        const bool isDictionary = readPropertyList(bytesOf(path)).dictionary() != nullptr;
        if (isDictionary)
            user.press("Continue");
        const bool hasFailed = user.isAsking();
        user.abandonQuestions();
        return !hasFailed;
    }

    TemporaryFolder folder;
    std::string path = folder / "a.plist";
};

TEST_P(SwitchedVerdict, ChangesNothingElse) {
    const std::string file = GetParam().file();
    ASSERT_EQ(verdictOn(file), GetParam().verdict);
    writeBytes(path, file);
    if (!isWritable(file)) {
        EXPECT_FALSE(switchFile());
        EXPECT_EQ(bytesOf(path), file);
        return;
    }
    for (const bool enabled : {false, true}) {
        EXPECT_TRUE(switchFile());
        EXPECT_EQ(verdictOn(bytesOf(path)), "ok\t" + switchedText(file, enabled));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, SwitchedVerdict, testing::ValuesIn(readableRows()), NamedAfterRow());

/// The cases that cannot be written are these alone.
TEST(SwitchedVerdicts, AreRefusedOnlyForWhatXmlCannotHold) {
    std::vector<std::string> refused;
    for (const auto& row : readableRows())
        if (row.verdict.starts_with("ok\t{") && !isWritable(row.file()))
            refused.push_back(row.name);
    EXPECT_THAT(refused,
                testing::ElementsAre("str_numeric_nul", "str_numeric_ctl", "str_numeric_fffe",
                                     "str_raw_ctl", "str_raw_esc", "str_raw_vt", "str_raw_ff",
                                     "str_raw_nul", "date_year0", "date_year0_zero"));
}

} // namespace

} // namespace frimbolate::test
