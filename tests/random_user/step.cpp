#include "tests/random_user/step.h"

#include "tests/random_user/session.h"
#include "widgets/sheets/qt_alerts.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace frimbolate::test {

namespace {

/// Steps that lead somewhere only in their order. What "@" begins is drawn when the plan begins.
struct Plan {
    const char* name;
    std::vector<const char*> steps;
};

const std::vector<Plan>& plans() {
    static const std::vector<Plan> rows = {
        {"saveScheduled",
         {"shortcut\tshowForm", "shortcut\tcreateNewAgent",
          "type\tagentNameTextField\t@name\treplace", "drop\tagentTargetImageWell\t@script",
          "choose\tagentActionButton\t2\tkeys", "choose\tagentScheduleTypeButton\t@weekday\tmouse",
          "type\tagentScheduleDatePicker\t@time\treplace", "shortcut\tvalidateAgentConfig",
          "press\tpromptButton", "press\t@replaces", "press\t@skips", "press\tcopyCommandButton",
          "press\tcloseExecuteScriptWindow"}},
        {"saveMonthly",
         {"shortcut\tshowForm", "type\tagentNameTextField\t@name\treplace",
          "drop\tagentTargetImageWell\t@app", "choose\tagentActionButton\t2\tmouse",
          "choose\tagentScheduleTypeButton\t10\tkeys", "type\tonMonthTextField\t@day\treplace",
          "shortcut\tvalidateAgentConfig", "press\tpromptButton", "press\tReplace",
          "press\tContinue", "press\tlaunchTerminalButton", "key\tEscape"}},
        {"saveKeptRunning",
         {"shortcut\tshowForm", "shortcut\tcreateNewAgent",
          "type\tagentNameTextField\t@name\treplace", "shortcut\tadvancedToolbarItem",
          "choose\tagentActionButton\t3\tkeys", "press\tallowSuccessfulExitCheckbox",
          "drop\tagentTargetImageWell\t@script", "press\tOk", "choose\tagentTargetButton\t3\tkeys",
          "key\tEscape", "press\tOk", "type\tscriptPopOverScriptField\t@script\treplace",
          "key\tEscape", "shortcut\tvalidateAgentConfig", "answerPanel\t@place", "press\t@replaces",
          "press\t@skips", "key\tEscape"}},
        {"saveInterval",
         {"shortcut\tshowForm", "shortcut\tcreateNewAgent",
          "type\tagentNameTextField\t@name\treplace", "choose\tagentTargetButton\t2\tkeys",
          "answerPanel\t@target", "press\tOk", "choose\tagentActionButton\t2\tkeys",
          "choose\tagentScheduleTypeButton\t14\tkeys", "type\tagentIntervalField\t@day\treplace",
          "choose\tagentIntervalTypeButton\t1\tmouse", "shortcut\tvalidateAgentConfig",
          "press\tpromptButton", "press\tReplace", "key\tReturn", "key\tReturn"}},
        {"saveWatching",
         {"shortcut\tshowForm", "shortcut\tcreateNewAgent",
          "type\tagentNameTextField\t@name\treplace", "choose\tagentTargetButton\t3\tkeys",
          "type\tscriptPopOverScriptField\t@text\treplace", "key\tEscape",
          "choose\tagentActionButton\t4\tkeys", "answerPanel\t@folder",
          "shortcut\tadvancedToolbarItem", "press\talsoRunAtLoadCheckbox",
          "shortcut\tvalidateAgentConfig", "press\tpromptButton", "press\tReplace", "press\tSkip"}},
        {"watchAnother",
         {"shortcut\tshowForm", "shortcut\tadvancedToolbarItem", "press\talsoRunPathChangeCheckbox",
          "answerPanel\t@folder", "drop\talsoRunPathChangeImageWell\t@folder",
          "press\talsoRunPathChangeImageWell", "answerPanel\t@folder",
          "press\talsoRunPathChangeCheckbox"}},
        {"edit",
         {"shortcut\teditLaunchAgent", "press\tContinue", "press\tContinue",
          "answerPanel\t~/Library/LaunchAgents/@own", "press\tOk", "shortcut\tundo"}},
        {"upgrade",
         {"other\taddsEarlierAgent", "shortcut\tcreateNewAgent", "shortcut\teditLaunchAgent",
          "press\tContinue", "answerPanel\t~/Library/LaunchAgents/@old", "press\tOk",
          "press\tpromptButton", "press\t@replaces"}},
        {"failedUpgrade",
         {"other\taddsEarlierAgent", "shortcut\tcreateNewAgent", "shortcut\teditLaunchAgent",
          "press\tContinue", "answerPanel\t~/Library/LaunchAgents/@old", "other\t@spoils",
          "press\tOk", "press\tOk", "press\tpromptButton", "press\tReplace", "press\tOk"}},
        {"delete",
         {"shortcut\tdeleteLaunchAgent", "press\tContinue",
          "answerPanel\t~/Library/LaunchAgents/@any", "press\tDelete"}},
        {"failedDelete",
         {"other\tputsAllAgentsBack", "shortcut\tdeleteLaunchAgent", "press\tContinue",
          "answerPanel\t~/Library/LaunchAgents/com.frimbolate.daily.plist",
          "other\tremovesOwnAgent", "press\tDelete", "press\tOk"}},
        {"switch",
         {"shortcut\tonOffLaunchAgent", "answerPanel\t~/Library/LaunchAgents/@any",
          "press\tContinue"}},
        {"failedSwitch",
         {"other\tputsAllAgentsBack", "shortcut\tonOffLaunchAgent",
          "answerPanel\t~/Library/LaunchAgents/com.frimbolate.daily.plist",
          "other\tremovesOwnAgent", "press\tContinue", "press\tOk"}},
        {"load",
         {"shortcut\tloadLaunchAgent", "answerPanel\t~/Library/LaunchAgents/@any",
          "press\tautoCopyScriptsCheckbox2", "press\tcloseExecuteScriptWindow"}},
        {"unload",
         {"shortcut\tunloadLaunchAgent", "answerPanel\t~/Library/LaunchAgents/@any",
          "key\tEscape"}},
        {"preferences",
         {"shortcut\tpreferencesMenuItem", "choose\tglobalPriorityCheckbox\t1\tkeys",
          "press\twarnSuccessfulExitCheckbox", "press\tsavePreferences"}},
        {"resetPreferences",
         {"shortcut\tpreferencesMenuItem", "press\tresetPreferences", "press\tshowWelcomeCheckbox",
          "press\tcloseWelcomeWindow", "answerPanel\t~/Documents", "press\tContinue Anyways",
          "other\tforgetsGrant", "restart", "key\tEscape", "press\tTry Again",
          "answerPanel\t~/Library/LaunchAgents"}},
        {"listAgents",
         {"other\tputsAllAgentsBack", "shortcut\tshowAgents", "row\t@row\tclick",
          "press\tswitchAgentButton", "press\tContinue", "row\t@row\tmenu", "key\tDown",
          "key\tReturn", "row\t@row\tdouble", "key\tEscape"}},
        {"deleteListed",
         {"shortcut\tshowAgents", "row\t@row\tclick", "key\tDelete", "press\tDelete"}},
        {"filter",
         {"shortcut\tshowAgents", "shortcut\tfilterAgents", "type\tagentFilter\t@text\treplace",
          "key\tDown", "key\tEscape"}},
        {"grantFromTheList",
         {"other\tforgetsGrant", "restart", "press\tcancelButton", "press\tTry Again",
          "answerPanel\t~/Documents", "press\tChoose Again", "press\tnewFolder",
          "type\tnewFolderName\t@name\treplace", "press\tCreate",
          "answerPanel\t~/Library/LaunchAgents"}},
        {"about", {"openMenu\tHelp", "menuItem\tabout", "press\tClose"}},
        {"faults",
         {"shortcut\tshowForm", "shortcut\tcreateNewAgent", "shortcut\tvalidateAgentConfig",
          "press\tOk"}},
        {"pathOfDrawer",
         {"shortcut\tshowForm", "shortcut\tadvancedToolbarItem",
          "press\tstandardOutPathFieldChooser", "answerPanel\t@target",
          "press\tqueueDirectoryFieldChooser", "answerPanel\t@folder",
          "drop\trootDirectoryField\t@folder", "shortcut\tshowAgents",
          "shortcut\tadvancedToolbarItem"}},
        {"narrow",
         {"window\tnarrow", "shortcut\tadvancedToolbarItem", "key\tTab", "key\tEscape",
          "window\twide"}},
        {"unwritable",
         {"shortcut\tshowForm", "shortcut\tcreateNewAgent",
          "type\tagentNameTextField\tbackup\treplace", "choose\tagentTargetButton\t3\tkeys",
          "type\tscriptPopOverScriptField\t#control\treplace", "key\tEscape",
          "choose\tagentActionButton\t2\tkeys", "shortcut\tshowPropertyList",
          "shortcut\tvalidateAgentConfig", "press\tpromptButton", "press\tReplace", "press\tOk"}},
    };
    return rows;
}

struct Placeholder {
    const char* name;
    std::vector<const char*> values;
};

const std::vector<Placeholder>& placeholders() {
    static const std::vector<Placeholder> rows = {
        {"@name", {"backup", "sync_notes", "daily", "a", "n\u00e9t", "\u540d\u524d", "kept"}},
        {"@script", {"~/Scripts/backup.sh", "~/Scripts/tool.py", "~/Scripts/blank \u00e9 %.rb"}},
        {"@app", {"~/Good.app", "~/Broken.app"}},
        {"@target", {"~/Scripts/backup.sh", "~/Good.app", "~/Broken.app", "~/Scripts/tool.py"}},
        {"@folder", {"~/Documents", "~/Scripts", "~/Scripts/notes.txt"}},
        {"@weekday", {"0", "2", "5", "8", "12"}},
        {"@time", {"#time", "0730", "7:30 pm", "25:00", "noon"}},
        {"@day", {"1", "31", "32", "5", "often"}},
        {"@text", {"#text", "#long", "daily", "a b", "\u00e9"}},
        {"@own",
         {"com.frimbolate.daily.plist", "com.frimbolate.watch.plist", "com.frimbolate.kept.plist",
          "com.frimbolate.damaged.plist", "org.example.sync.plist"}},
        {"@old", {"com.fr\u0131mbolate.old.plist"}},
        {"@any",
         {"com.frimbolate.daily.plist", "com.frimbolate.damaged.plist", "org.example.sync.plist",
          "com.frimbolate.kept.plist"}},
        {"@spoils", {"removesEarlierAgent", "damagesEarlierAgent", "removesFolder"}},
        {"@replaces", {"Replace", "Cancel"}},
        {"@skips", {"Continue", "Skip"}},
        {"@place", {"~/Elsewhere/agent.plist", "~/Elsewhere/com.frimbolate.x", "x.plist"}},
        {"@row", {"0", "1", "2", "3", "4", "5"}},
    };
    return rows;
}

std::string filledIn(std::string line, RandomValues& random) {
    for (const Placeholder& row : placeholders())
        if (const auto found = line.find(row.name); found != std::string::npos)
            line.replace(found, std::string_view(row.name).size(), random.oneOf(row.values));
    return line;
}

} // namespace

std::string Step::line() const {
    std::string result = kind;
    for (const auto& argument : arguments)
        result.append("\t").append(argument);
    return result;
}

Step Step::ofLine(std::string_view line) {
    Step step;
    for (bool isKind = true;; isKind = false) {
        const auto tab = line.find('\t');
        const std::string part(line.substr(0, tab));
        if (isKind)
            step.kind = part;
        else
            step.arguments.push_back(part);
        if (tab == std::string_view::npos)
            return step;
        line.remove_prefix(tab + 1);
    }
}

std::vector<StepKind> allStepKinds() {
    std::vector<StepKind> result;
    for (const auto rows : {formSteps(), dialogSteps(), desktopSteps()})
        result.insert(result.end(), rows.begin(), rows.end());
    return result;
}

void run(Session& session, const Step& step) {
    const auto kinds = allStepKinds();
    const auto row = std::ranges::find(kinds, std::string_view(step.kind), &StepKind::name);
    session.hasChosenItem = false;
    const auto* alert = session.alert();
    session.question = alert ? alert->windowTitle().toStdString() : "";
    if (row != kinds.end())
        row->run(session, step.arguments);
}

Step StepSource::next(Session& session) {
    constexpr int planChance = 6, strayChance = 12; // one in so many
    if (planned_.empty() && random_.below(planChance) == 0)
        begin(random_.oneOf(plans()).name, session);
    if (!planned_.empty() && random_.below(strayChance) != 0) {
        Step step = std::move(planned_.back());
        planned_.pop_back();
        return step;
    }
    const int total =
        std::accumulate(kinds_.begin(), kinds_.end(), 0,
                        [](int sum, const StepKind& row) { return sum + row.weight; });
    for (;;) {
        int drawn = static_cast<int>(random_.below(static_cast<std::size_t>(total)));
        const auto row = std::ranges::find_if(
            kinds_, [&](const StepKind& kind) { return (drawn -= kind.weight) < 0; });
        if (auto arguments = row->draw(session, random_))
            return {row->name, std::move(*arguments)};
    }
}

void StepSource::begin(std::string_view plan, Session&) {
    const auto row = std::ranges::find(plans(), plan, &Plan::name);
    for (const char* step : row->steps)
        planned_.push_back(Step::ofLine(filledIn(step, random_)));
    std::ranges::reverse(planned_);
}

} // namespace frimbolate::test
