// Reads an agent file into the form. The inverse of the writer, and more lenient.
#pragma once

#include "core/agent_plist.h"
#include "core/form_model.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace frimbolate {

/// What the reader needs of the editor. Keeps the reader independent of the controller.
class AgentReaderHost {
  public:
    virtual ~AgentReaderHost() = default;
    virtual FormModel& form() = 0;
    virtual void log(const std::string& line) = 0;
    /// Resets the form to a new agent.
    virtual void createNewAgent() = 0;
    /// Runs the action that reads the keys of the advanced drawer.
    virtual void lookForAdvancedKeys(const AgentPlist& file) = 0;
    virtual void openAdvancedDrawer() = 0;
    virtual void showPopOverScript() = 0;
    /// Shows the icon of the target at a path and records the path.
    virtual void evaluateScriptExtension(const std::string& path) = 0;
    /// Shows an alert with one button; the form is reset when it closes.
    virtual void showAlertThatResets(const std::string& message, const std::string& text) = 0;
    virtual std::optional<Value> preference(std::string_view key) = 0;
};

/// The program that an agent file comes from, judged by its path alone.
enum class AgentOrigin { Foreign, Own, EarlierVersion };
AgentOrigin agentOrigin(std::string_view path);

/// An agent's name: its label or file name without the current and the earlier prefix, and without
/// ".plist".
std::string agentNameFromLabel(std::string_view labelOrFileName);

class AgentReader {
  public:
    /// \param host must outlive the reader
    explicit AgentReader(AgentReaderHost& host) : host_(host) {}

    /// Fills the form from the file, group by group; the host starts the reading of the advanced
    /// keys. A failure in the target, the schedule or the advanced keys ends in an alert or a
    /// fall-back, and reading continues.
    /// \throws NamedError for a label that is missing or no text, and for a SuccessfulExit that is
    ///         no boolean, number or text
    void read(const AgentPlist& file);
    /// Reads the keys of the advanced drawer alone; opens the drawer where they differ from those
    /// of a new agent. Failures end in an alert.
    void lookForAdvancedKeys(const AgentPlist& file);

  private:
    /// A key whose value is one text, and the field that shows it.
    struct TextKey {
        const char* key;
        TextField FormModel::*field;
    };

    void readName(const AgentPlist& file);
    void readTarget(const AgentPlist& file);
    void readAction(const AgentPlist& file);
    void readRunAtLoad(const AgentPlist& file);
    void readSchedule(const AgentPlist& file);
    void readCalendar(const AgentPlist& file);
    void readDayOfMonth(const Value& day);
    void readWeekday(const Value* weekday);
    void readOnDemand(const AgentPlist& file);
    void readInterval(const AgentPlist& file);
    void readGlobbing(const AgentPlist& file);
    void readPriority(const AgentPlist& file);
    void readNice(const AgentPlist& file);
    void readTexts(const AgentPlist& file, std::span<const TextKey> keys);
    void readQueue(const AgentPlist& file);
    void readAdditionalConditions(const AgentPlist& file);
    void showPath(ImageWell& well, const Value* path);
    void selectAtLoad();
    void selectScheduleTitled(std::string_view title);
    void disableSchedule(int action);

    AgentReaderHost& host_;
};

} // namespace frimbolate
