#include "tests/hostile/hostile_consumers.h"

#include "core/agent_plist.h"
#include "core/form_presentation.h"
#include "core/named_error.h"
#include "plist/xml_writer.h"
#include "posix/local_agent_folder.h"
#include "posix/plist_defaults.h"
#include "tests/cli/terminal_run.h"
#include "tests/core/recording_host.h"
#include "tests/support/recording_log.h"
#include "tests/support/temporary_folder.h"

namespace frimbolate::test {

namespace {

using namespace std::chrono;

const LocalMinute time{local_days(2026y / November / 21) + hours(9) + minutes(41)};

/// Fills a form as the editor does, and keeps no line of the log.
class HostileFileHost : public RecordingHost {
  public:
    void log(const std::string& line) override { logged_ += line.size(); }
    std::size_t logged() const { return logged_; }

  private:
    std::size_t logged_ = 0;
};

void readFile(const std::string& path) { readPropertyListFile(path); }

void readIntoForm(const std::string& path) {
    const PropertyListFile file = readPropertyListFile(path);
    HostileFileHost host;
    try {
        AgentReader(host).read(file.dictionary);
        present(host.form(), {.home = "/Users/ada", .clock = {}, .now = time});
        xmlPropertyList(buildAgentPlist(agentForm(host.form()), "com.frimbolate.a"));
    } catch (const NamedError&) {
        // An agent without a label, or one that XML cannot hold.
    }
}

void listAgent(const std::string& path) {
    LocalAgentFolder().read(path, {.home = "/Users/ada", .clock = {}, .now = time});
}

void checkAgentFile(const std::string& path) { run({"check", path}); }
void explainAgent(const std::string& path) { run({"explain", "--json", path}); }

void switchAgent(const std::string& path) {
    const TemporaryFolder folder;
    const auto copy = folder / "a.plist";
    std::filesystem::copy_file(path, copy);
    run({"off", copy});
}

void openSettings(const std::string& path) {
    const TemporaryFolder folder;
    const auto copy = folder / "settings.plist";
    std::filesystem::copy_file(path, copy);
    RecordingLog log;
    PlistDefaults(copy, log).set("Key", "value");
}

} // namespace

std::span<const HostileConsumer> hostileConsumers() {
    static constexpr HostileConsumer consumers[] = {
        {"read", readFile},
        {"form", readIntoForm},
        {"list", listAgent},
        {"check", checkAgentFile},
        {"explain", explainAgent},
        {"switch", switchAgent},
        {"preferences", openSettings},
    };
    return consumers;
}

} // namespace frimbolate::test
