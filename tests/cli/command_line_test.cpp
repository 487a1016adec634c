#include "tests/cli/terminal_run.h"

#include "operations/agent_switch.h"
#include "plist/xml_writer.h"
#include "posix/local_files.h"
#include "tests/support/recording_log.h"
#include "tests/support/rows.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sys/stat.h>

namespace frimbolate::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const Dictionary soundAgent = {
    {"Label", "org.example.sync"},
    {"ProgramArguments", Array{Value("/bin/sh"), Value("-c"), Value("true")}},
    {"StartCalendarInterval", Dictionary{{"Hour", 7}, {"Minute", 5}, {"Weekday", 3}}}};

Dictionary with(Dictionary agent, const char* key, Value value) {
    agent.insert_or_assign(key, std::move(value));
    return agent;
}

class CommandLine : public testing::Test {
  protected:
    std::string make(const std::string& name, const std::string& content) {
        writeBytes(folder_ / name, content);
        return folder_ / name;
    }
    std::string make(const std::string& name, const Dictionary& agent) {
        const auto path = make(name, xmlPropertyList(agent));
        ::chmod(path.c_str(), 0644);
        return path;
    }
    std::string sound() { return make("org.example.sync.plist", soundAgent); }
    std::string misspelt() {
        return make("org.example.bad.plist",
                    with(with(soundAgent, "Label", "org.example.bad"), "RunAtLoadd", true));
    }

    TemporaryFolder folder_;
};

TEST_F(CommandLine, CheckSaysNothingOfASoundAgent) {
    const auto result = run({"check", sound()});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out + result.err, "");
}

TEST_F(CommandLine, CheckNamesFileLineKeyAndFault) {
    const auto path = misspelt();
    const auto result = run({"check", path});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith(path + ":13: RunAtLoadd: "));
    EXPECT_THAT(result.err, HasSubstr("RunAtLoad"));
    EXPECT_THAT(result.err, HasSubstr(" [suspicious]\n"));
}

TEST_F(CommandLine, CheckLooksAtEveryFileOfAFolder) {
    sound();
    const auto bad = misspelt();
    make("readme.txt", std::string("no agent"));
    make(".hidden.plist", std::string("no agent"));
    const auto result = run({"check", folder_.path()});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, StartsWith(bad));
    EXPECT_THAT(result.err, Not(HasSubstr("org.example.sync")));
    EXPECT_THAT(result.err, Not(HasSubstr("hidden")));
    EXPECT_EQ(std::ranges::count(result.err, '\n'), 1);
}

TEST_F(CommandLine, CheckCannotLookAtAMissingFileButLooksAtTheOthers) {
    const auto result = run({"check", folder_.path() + "/none.plist", misspelt()});
    EXPECT_EQ(result.code, 2);
    EXPECT_THAT(result.err, StartsWith(folder_.path() + "/none.plist: No such file"));
    EXPECT_THAT(result.err, HasSubstr("RunAtLoadd"));
}

TEST_F(CommandLine, CheckCannotLookAtAPipe) {
    const auto path = folder_.path() + "/pipe.plist";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const auto result = run({"check", path});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, path + ": it is not a regular file\n");
}

TEST_F(CommandLine, CheckFindsADamagedFileWithItsLine) {
    const auto path = make("a.plist", std::string("<plist>\n<dict>\n<key>A</key>\n</dict>"));
    const auto result = run({"check", path});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, StartsWith(path + ":4: "));
    EXPECT_THAT(result.err, HasSubstr(" [refused]\n"));
    EXPECT_THAT(result.err, Not(HasSubstr("(line")));
}

TEST_F(CommandLine, CheckReadsTheStandardInput) {
    EXPECT_EQ(run({"check", "-"}, {.in = xmlPropertyList(soundAgent)}).code, 0);
    const auto result =
        run({"check", "-"}, {.in = xmlPropertyList(with(soundAgent, "RunAtLoadd", true))});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, StartsWith("-:13: RunAtLoadd: "));
    EXPECT_EQ(run({"check", "-"}, {.in = ""}).code, 1);
}

TEST_F(CommandLine, ColorsOnlyWhereTheyAreShown) {
    const auto path = misspelt();
    EXPECT_THAT(run({"check", path}).err, Not(HasSubstr("\x1b[")));
    EXPECT_THAT(run({"check", path}, {.colors = true}).err, HasSubstr("\x1b["));
}

TEST_F(CommandLine, KeepsControlCharactersFromTheTerminal) {
    const auto path = make("a.plist", with(soundAgent, "a\tb", true));
    EXPECT_THAT(run({"check", path}).err, HasSubstr("a?b: "));
    const auto label = make("b.plist", with(soundAgent, "Label", "a\u009b1mb\u00e9"));
    EXPECT_THAT(run({"explain", label}).out, StartsWith("a?1mb\u00e9 ("));
}

TEST_F(CommandLine, KeepsControlCharactersOfArgumentsFromTheTerminal) {
    const std::string hostile = "\x1b[31m";
    const auto inside = folder_.path() + "/" + hostile;
    std::filesystem::create_directory(inside);
    writeBytes(inside + "/a.plist", "{Label=a;}");
    const std::vector<std::string> agent = {"new", "--name", "A", "--script", "true"};
    const auto made = [&](const std::vector<std::string>& rest) {
        auto call = agent;
        call.insert(call.end(), rest.begin(), rest.end());
        return call;
    };
    const std::vector<std::vector<std::string>> calls = {
        {hostile},
        {"check", "a", "--" + hostile},
        {"check", inside + "/none.plist"},
        {"list", inside + "/a.plist"},
        {"command", "load", inside + "/none.plist"},
        made({"--at", hostile}),
        made({"--at-load", "--output", inside + "/a.plist"}),
        made({"--at-load", "--output", inside + "/none/a.plist"}),
    };
    for (const auto& call : calls) {
        const auto result = run(call);
        EXPECT_NE(result.code, 0);
        EXPECT_THAT(result.err, HasSubstr("?[31m"));
        EXPECT_THAT(result.err, Not(HasSubstr("\x1b")));
    }
}

TEST_F(CommandLine, ExplainSaysWhatTheAgentDoesAndWhenNext) {
    const auto result = run({"explain", sound()});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "org.example.sync (other program, on)\n"
                          "  Runs a script every Wednesday at 07:05.\n"
                          "  Program: /bin/sh -c true\n"
                          "  Next: Wednesday 25 November, 07:05\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(CommandLine, ExplainCannotReadADamagedFile) {
    const auto path = make("a.plist", std::string("<plist>"));
    const auto result = run({"explain", path, sound()});
    EXPECT_EQ(result.code, 2);
    EXPECT_THAT(result.out, StartsWith("org.example.sync"));
    EXPECT_THAT(result.err, StartsWith(path));
}

TEST_F(CommandLine, ListShowsTheAgentsOfAFolder) {
    sound();
    make("com.frimbolate.Backup.plist",
         with(with(soundAgent, "Label", "com.frimbolate.Backup"), "Enabled", false));
    const auto result = run({"list", folder_.path()});
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.out, HasSubstr("\noff  Backup            -"));
    EXPECT_THAT(result.out, HasSubstr("\non   org.example.sync  Wed 07:05"));
    EXPECT_EQ(run({"list", folder_.path() + "/none"}).code, 2);
}

TEST_F(CommandLine, ListShowsTheUsersFolderWithoutAnother) {
    std::filesystem::create_directories(folder_.path() + "/Library/LaunchAgents");
    make("Library/LaunchAgents/org.example.sync.plist", soundAgent);
    EXPECT_THAT(run({"list"}, {.home = folder_.path()}).out, HasSubstr("org.example.sync"));
}

TEST_F(CommandLine, SwitchesAsTheWindowDoes) {
    RecordingLog log;
    LocalFiles files(log);
    const auto path = sound();
    const auto other = make("other.plist", soundAgent);
    for (const bool enable : {false, true}) {
        EXPECT_EQ(run({enable ? "on" : "off", path}).code, 0);
        ASSERT_TRUE(files.writeDictionary(other, withSwitch(*files.readDictionary(other), enable)));
        EXPECT_EQ(bytesOf(path), bytesOf(other));
        EXPECT_EQ(isEnabled(*files.readDictionary(path)), enable);
    }
}

TEST_F(CommandLine, ReadsTheStandardInputAfterTheDashes) {
    EXPECT_EQ(run({"check", "--", "-"}, {.in = xmlPropertyList(soundAgent)}).code, 0);
}

TEST_F(CommandLine, LeavesAFileThatHasTheStateAlready) {
    const auto path = make("a.plist", "/* by hand */ " + std::string("{Label=a;}"));
    const auto before = bytesOf(path);
    EXPECT_EQ(run({"on", path}).code, 0);
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(run({"off", path}).code, 0);
    EXPECT_NE(bytesOf(path), before);
}

TEST_F(CommandLine, SwitchesTheStandardInputToTheStandardOutput) {
    const auto result = run({"off", "-"}, {.in = xmlPropertyList(soundAgent)});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, xmlPropertyList(withSwitch(soundAgent, false)));
}

TEST_F(CommandLine, ReportsAFileThatCannotBeSwitched) {
    const OrdinaryUser user;
    const TemporaryFolder folder; // which this user may enter
    const auto path = folder / "a.plist";
    writeBytes(path, xmlPropertyList(soundAgent));
    ::chmod(path.c_str(), 0444);
    const auto result = run({"off", path});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, path + ": it cannot be written\n");
    EXPECT_EQ(bytesOf(path), xmlPropertyList(soundAgent));
}

TEST_F(CommandLine, ComposesEachLaunchctlCommand) {
    const auto path = sound();
    EXPECT_EQ(run({"command", "load", path}).out, "launchctl load '" + path + "'\n");
    EXPECT_EQ(run({"command", "unload", path}).out, "launchctl unload '" + path + "'\n");
    EXPECT_EQ(run({"command", "load", path, "--modern"}).out,
              "launchctl bootstrap gui/$(id -u) '" + path + "'\n");
    EXPECT_EQ(run({"command", "unload", "--modern", path}).out,
              "launchctl bootout gui/$(id -u) '" + path + "'\n");
    EXPECT_EQ(run({"command", "load", path + "x"}).code, 2);
    EXPECT_EQ(run({"command", "start", path}).code, 2);
    EXPECT_EQ(run({"command", "load", "-"}).code, 2);
}

TEST_F(CommandLine, WarnsOfAQuoteThatTheCommandDoesNotEscape) {
    const auto path = make("a'b.plist", soundAgent);
    EXPECT_EQ(run({"command", "load", path}).code, 1);
    EXPECT_THAT(run({"command", "load", path}).err, StartsWith(path + ": "));
    const auto modern = run({"command", "load", "--modern", path});
    EXPECT_EQ(modern.code, 0);
    EXPECT_THAT(modern.out, HasSubstr("a'\\''b.plist"));
}

TEST_F(CommandLine, TakesNamesInBracketsAndWithADashAsTheyAre) {
    std::filesystem::create_directory(folder_.path() + "/[a,b]");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    make("[a,b]/org.example.sync.plist", soundAgent);
    make("-x.plist", with(soundAgent, "Label", "-x"));
    EXPECT_EQ(run({"check", "[a,b]", "--", "-x.plist"}).err, "");
    EXPECT_EQ(run({"check", "--", "-x.plist", "-x.plist"}).code, 0);
    EXPECT_EQ(run({"command", "load", "--", "-x.plist"}).out,
              "launchctl load '" + (folder_ / "-x.plist") + "'\n");
    EXPECT_EQ(run({"check", "-x.plist"}).code, 2);
    std::filesystem::current_path(before);
}

struct CallRow {
    const char* name;
    std::vector<std::string> arguments;
    int code;
    const char* says; ///< a part of what is printed
};

void PrintTo(const CallRow& row, std::ostream* out) { *out << row.name; }

class Calls : public testing::TestWithParam<CallRow> {};

TEST_P(Calls, AreAnswered) {
    const auto result = run(GetParam().arguments);
    EXPECT_EQ(result.code, GetParam().code);
    EXPECT_THAT(result.code == 0 ? result.out : result.err, HasSubstr(GetParam().says));
}

const CallRow calls[] = {
    {"NoWord", {}, 2, "there is no command"},
    {"EmptyWord", {""}, 2, "there is no command \u201c\u201d"},
    {"UnknownWord", {"frobnicate"}, 2, "there is no command \u201cfrobnicate\u201d"},
    {"NoFile", {"check"}, 2, "is required"},
    {"UnknownOption", {"list", "--frob"}, 2, "--frob"},
    {"HelpOfCheck", {"check", "--help"}, 0, "frimbolate check ~/Library/LaunchAgents"},
    {"HelpOfExplain", {"explain", "--help"}, 0, "Example:"},
    {"HelpOfNew", {"new", "-h"}, 0, "--at 07:05 --on wed"},
    {"HelpOfOn", {"on", "--help"}, 0, "frimbolate on "},
    {"HelpOfOff", {"off", "--help"}, 0, "frimbolate off "},
    {"HelpOfList", {"list", "--help"}, 0, "frimbolate list "},
    {"HelpOfCommand", {"command", "--help"}, 0, "frimbolate command load "},
};

INSTANTIATE_TEST_SUITE_P(Table, Calls, testing::ValuesIn(calls), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
