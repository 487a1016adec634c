// A host that records the requests of the reader, and rows that state what a file is read as.
#pragma once

#include "core/agent_reader.h"
#include "tests/support/form_snapshot.h"

#include <string>
#include <vector>

namespace frimbolate::test {

using Lines = std::vector<std::string>;

/// The form of a new agent.
FormModel newAgentForm();

/// A new agent, and two forms that hold other values and opposite flags.
std::vector<StartForm> startForms();

/// Records the requests as "log: …", "target: …", "alert: …", "drawer", "pop-over" and "reset".
class RecordingHost : public AgentReaderHost {
  public:
    explicit RecordingHost(FormModel start = newAgentForm()) : form_(std::move(start)) {}

    FormModel& form() override { return form_; }
    void log(const std::string& line) override { journal.push_back("log: " + line); }
    void createNewAgent() override { journal.emplace_back("reset"), form_ = newAgentForm(); }
    void lookForAdvancedKeys(const AgentPlist& file) override {
        AgentReader(*this).lookForAdvancedKeys(file);
    }
    void openAdvancedDrawer() override {
        journal.emplace_back("drawer"), form_.advancedDrawer.open = true;
    }
    void showPopOverScript() override {
        journal.emplace_back("pop-over"), form_.popoverScriptObject.shown = true;
    }
    void evaluateScriptExtension(const std::string& path) override {
        journal.push_back("target: " + path), form_.agentTargetImageWell.toolTip = path;
    }
    void showAlertThatResets(const std::string& message, const std::string& text) override {
        journal.push_back("alert: " + message + " | " + text);
    }
    std::optional<Value> preference(std::string_view key) override {
        const auto* value = find(preferences, key);
        return value ? std::optional(*value) : std::nullopt;
    }

    Lines journal;
    Dictionary preferences = {{"DefaultGlobbingKey", "1"}, {"DefaultPriorityKey", "0"}};

  private:
    FormModel form_;
};

/// What an agent file is read as, whatever the form held before.
struct ReaderRow {
    const char* name;
    Dictionary keys; ///< beside a label and a target, or in their place
    Snapshot sets;   ///< every property that is set, beside those of a label and no keep-alive, and
                     ///< of the target where it is the usual one
    Lines primary = {};  ///< effects before the advanced keys, after the target's
    Lines advanced = {}; ///< effects of the advanced keys
};

/// The calendar of an agent that runs each day at 07:05, and what it is read as.
Value daily();
Snapshot dailySnapshot();
Lines dailyLines();
Lines operator+(Lines lines, const Lines& more);
Snapshot operator+(Snapshot snapshot, const Snapshot& more);

inline constexpr const char* keysAlert = "alert: This launch agent could not be read. | An error "
                                         "occurred while reading some key values.";

/// Reads into each start form. Fails the running test where the form or the effects differ from
/// the row. The properties of a row whose effects contain a reset are those of a new agent.
void expectReads(const ReaderRow& row);

} // namespace frimbolate::test
