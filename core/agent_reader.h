// Turns an agent file back into the form: the lenient inverse of the writer.
#pragma once

#include "core/agent_plist.h"
#include "core/form_model.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace frimbolate {

/// What the reader asks of the editor, so that it stays free of any window.
class AgentReaderHost {
  public:
    virtual ~AgentReaderHost() = default;
    virtual FormModel& form() = 0;
    virtual void log(const std::string& line) = 0;
    /// Resets the form to a new agent.
    virtual void createNewAgent() = 0;
    /// Has the keys of the advanced drawer read, which is an action of its own.
    virtual void lookForAdvancedKeys(const AgentPlist& file) = 0;
    virtual void openAdvancedDrawer() = 0;
    virtual void showPopOverScript() = 0;
    /// Shows the icon of a stored target and records its path.
    virtual void evaluateScriptExtension(const std::string& path) = 0;
    /// Shows an alert with one button, whose closing resets the form.
    virtual void showAlertThatResets(const std::string& message, const std::string& text) = 0;
    virtual std::optional<Value> preference(std::string_view key) = 0;
};

/// Where an agent file comes from, told by its path alone.
enum class AgentOrigin { Foreign, Own, EarlierVersion };
AgentOrigin agentOrigin(std::string_view path);

/// An agent's name: its label, or file name, without either prefix and without ".plist".
std::string agentNameFromLabel(std::string_view labelOrFileName);

class AgentReader {
  public:
    explicit AgentReader(AgentReaderHost& host) : host_(host) {}

    /// Fills the form from the file, group by group, the advanced keys through the editor; a group
    /// that fails costs an alert or a fall-back, not the reading.
    /// \throws NamedError when something outside the guarded groups fails.
    void read(const AgentPlist& file);
    /// The keys of the advanced drawer alone; opens the drawer where they differ from a new agent.
    void lookForAdvancedKeys(const AgentPlist& file);

  private:
    /// A key that holds one text, and the field that shows it.
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
