#include "bench/pure_parts.h"

#include "bench/full_form.h"
#include "core/agent_overview.h"
#include "core/agent_plist.h"
#include "core/agent_reader.h"
#include "core/finding_hints.h"
#include "core/form_summary.h"
#include "core/next_run.h"
#include "core/validation.h"
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "tests/plist/binary_file.h"

#include <expat.h>

#include <chrono>
#include <cstdlib>

namespace frimbolate {

namespace {

using namespace std::chrono_literals;

Value calendar(int weekday, int hour) {
    return Dictionary{{"Hour", hour}, {"Minute", 30}, {"Weekday", weekday}};
}

Dictionary makeAgent() {
    const Value log("/Users/ada/Library/Logs/backup.log");
    return {
        {"AbandonProcessGroup", true},
        {"Disabled", false},
        {"EnableGlobbing", true},
        {"EnvironmentVariables",
         Dictionary{{"LANG", "en_US.UTF-8"}, {"PATH", "/usr/local/bin:/usr/bin:/bin"}}},
        {"ExitTimeOut", 20},
        {"KeepAlive", Dictionary{{"SuccessfulExit", false}}},
        {"Label", "com.frimbolate.Nightly backup"},
        {"LimitLoadToSessionType", Array{Value("Aqua"), Value("Background")}},
        {"LowPriorityIO", true},
        {"MachServices", Dictionary{{"org.example.backup", true}}},
        {"Nice", 5},
        {"ProcessType", "Background"},
        {"ProgramArguments", Array{Value("/bin/sh"), Value("-c"),
                                   Value("cd /Users/ada && ./backup.sh --quiet > /dev/null")}},
        {"QueueDirectories", Array{Value("/Users/ada/Queue")}},
        {"RunAtLoad", true},
        {"SoftResourceLimits", Dictionary{{"NumberOfFiles", 1024}}},
        {"StandardErrorPath", log},
        {"StandardInPath", "/dev/null"},
        {"StandardOutPath", log},
        {"StartCalendarInterval", Array{calendar(1, 7), calendar(4, 19)}},
        {"StartOnMount", true},
        {"ThrottleInterval", 30},
        {"Umask", 18},
        {"WatchPaths", Array{Value("/Users/ada/Pictures"), Value("/Users/ada/B\u00fccher")}},
        {"WorkingDirectory", "/Users/ada"},
    };
}

/// An editor that holds a form and answers nothing.
class SilentHost : public AgentReaderHost {
  public:
    FormModel& form() override { return form_; }
    void log(const std::string&) override {}
    void createNewAgent() override { form_ = {}; }
    void lookForAdvancedKeys(const AgentPlist& file) override {
        AgentReader(*this).lookForAdvancedKeys(file);
    }
    void openAdvancedDrawer() override {}
    void showPopOverScript() override {}
    void evaluateScriptExtension(const std::string&) override {}
    void showAlertThatResets(const std::string&, const std::string&) override {}
    std::optional<Value> preference(std::string_view) override { return std::nullopt; }

  private:
    FormModel form_;
};

/// A Wednesday morning.
const WallClock morning(LocalMinute(std::chrono::local_days(2026y / 11 / 25)) + 9h);

/// Everything exists and can be started, without a look at this machine.
CheckContext contextOf(const std::string& path) {
    CheckContext context;
    context.filePath = path;
    context.mode = 0644;
    context.ownedByUser = true;
    context.home = "/Users/ada";
    context.pathState = [](const std::string&) { return PathState::Executable; };
    return context;
}

const std::string path = "/Users/ada/Library/LaunchAgents/com.frimbolate.Nightly backup.plist";
const TextStyle words{.home = "/Users/ada", .now = morning};

void ignoreStart(void*, const XML_Char*, const XML_Char**) {}
void ignoreEnd(void*, const XML_Char*) {}
void ignoreText(void*, const XML_Char*, int) {}

/// What any reader of XML does, and nothing with it.
void parseByExpat() {
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(parser, ignoreStart, ignoreEnd);
    XML_SetCharacterDataHandler(parser, ignoreText);
    const auto& bytes = benchedXml();
    if (XML_Parse(parser, bytes.data(), static_cast<int>(bytes.size()), 1) != XML_STATUS_OK)
        std::abort();
    XML_ParserFree(parser);
}

} // namespace

const Dictionary& benchedAgent() {
    static const Dictionary agent = makeAgent();
    return agent;
}

const std::string& benchedXml() {
    static const std::string bytes = xmlPropertyList(benchedAgent());
    return bytes;
}

const std::string& benchedBinary() {
    static const std::string bytes = test::binaryPlist(benchedAgent());
    return bytes;
}

std::vector<PurePart> pureParts() {
    static const AgentForm form = fullForm();
    static const Faults faults = validate(form);
    static const CheckContext context = contextOf(path);
    return {
        {"read-xml", [] { keep(readPropertyList(benchedXml())); }},
        {"read-binary", [] { keep(readPropertyList(benchedBinary())); }},
        {"write-xml", [] { keep(xmlPropertyList(benchedAgent())); }},
        {"read-agent",
         [] {
             SilentHost host;
             AgentReader(host).read(benchedAgent());
             AgentReader(host).lookForAdvancedKeys(benchedAgent());
             keep(host.form());
         }},
        {"build-agent", [] { keep(buildAgentPlist(form, "com.frimbolate.Backup")); }},
        {"validate", [] { keep(validate(form)); }},
        {"summary", [] { keep(summary(form, faults, words)); }},
        {"row-hints", [] { keep(rowHints(form, faults, {}, words)); }},
        {"form-findings", [] { keep(shownFindings(form, faults, context)); }},
        {"checks", [] { keep(checkAgent(benchedAgent(), context)); }},
        {"next-run", [] { keep(nextRun(benchedAgent(), morning)); }},
        {"overview", [] { keep(agentOverview(benchedAgent(), path, context, words)); }},
        // What others take for the same; not part of the program.
        {"expat", parseByExpat},
        {"copy", [] { keep(Dictionary(benchedAgent())); }},
    };
}

} // namespace frimbolate
