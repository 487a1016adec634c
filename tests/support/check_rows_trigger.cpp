#include "tests/support/check_rows.h"

namespace frimbolate::test {

namespace {

const std::string none = "no-trigger : has no key that starts it";

/// poller() with these keys and without its interval.
Dictionary startedBy(const Edits& edits) {
    return edited(edited(poller(), {{"StartInterval", std::nullopt}}), edits);
}

Value conditions(const char* name, Value value) { return Dictionary{{name, std::move(value)}}; }

std::vector<CheckRow> startRows() {
    const auto empty = [](const std::string& key) {
        return "empty-trigger " + key + ": is empty: it never starts the agent";
    };
    return {
        {"NoWatchedPath",
         "empty-trigger",
         startedBy({{"WatchPaths", Array{}}}),
         {none, empty("WatchPaths")}},
        {"NoQueue",
         "empty-trigger",
         edited(backup(), {{"QueueDirectories", Array{}}}),
         {empty("QueueDirectories")}},
        {"NoCalendar", "empty-trigger", at(Array{}), {none, empty("StartCalendarInterval")}},
        {"OneQueue", "empty-trigger", startedBy({{"QueueDirectories", texts({"/srv/q"})}}), {}},

        {"Nothing", "no-trigger", startedBy({}), {none}},
        {"KeepAliveFalse", "no-trigger", startedBy({{"KeepAlive", false}}), {none}},
        {"RunAtLoadFalse", "no-trigger", startedBy({{"RunAtLoad", false}}), {none}},
        {"StartOnMountFalse", "no-trigger", startedBy({{"StartOnMount", false}}), {none}},
        {"KeptAlive", "no-trigger", startedBy({{"KeepAlive", true}}), {}},
        {"KeptAliveOnCondition",
         "no-trigger",
         startedBy({{"KeepAlive", conditions("Crashed", true)}}),
         {}},
        {"KeptAliveOnNoCondition", "no-trigger", startedBy({{"KeepAlive", Dictionary{}}}), {}},
        {"AtLoad", "no-trigger", startedBy({{"RunAtLoad", true}}), {}},
        {"OnMount", "no-trigger", startedBy({{"StartOnMount", true}}), {}},
        {"ByWatchedPath", "no-trigger", watcher(), {}},
        {"ByInterval", "no-trigger", poller(), {}},
        {"ByCalendar", "no-trigger", backup(), {}},
        {"BySocket", "no-trigger", startedBy({{"Sockets", Dictionary{}}}), {}},
        {"ByService", "no-trigger", startedBy({{"MachServices", Dictionary{}}}), {}},
        {"ByEvent", "no-trigger", startedBy({{"LaunchEvents", Dictionary{}}}), {}},
        {"ByRetiredKey",
         "no-trigger",
         startedBy({{"OnDemand", false}}),
         {"retired-key OnDemand: is retired and should be removed: write KeepAlive true in its "
          "place"}},
        {"ByUnknownKey",
         "no-trigger",
         startedBy({{"NewTrigger", true}}),
         {"unknown-key NewTrigger: is not a key that launchd documents"}},
        {"ByWrongType",
         "no-trigger",
         startedBy({{"RunAtLoad", 1}}),
         {"wrong-type RunAtLoad: is an integer; launchd reads a boolean"}},
    };
}

std::vector<CheckRow> keepAliveRows() {
    const auto shadowed = [](const std::string& key) {
        return "shadowed-trigger " + key + ": adds nothing: KeepAlive keeps the agent running";
    };
    const auto with = [](const char* key, Value value) {
        return edited(server(), {{key, std::move(value)}});
    };
    const auto shortBy = [](const char* interval, const char* throttle) {
        return "keep-alive-interval StartInterval: is " + std::string(interval) +
               " s beside KeepAlive, shorter than the " + throttle +
               " s by which launchd throttles quick exits";
    };
    const auto both = [](Value keepAlive, int interval) {
        return edited(poller(), {{"KeepAlive", std::move(keepAlive)}, {"StartInterval", interval}});
    };
    const auto ifCrashed = conditions("Crashed", true);
    const auto off = "run-at-load-off RunAtLoad: is false, but KeepAlive starts the agent when it "
                     "is loaded";
    return {
        {"IntervalOfServer",
         "shadowed-trigger",
         with("StartInterval", 300),
         {shadowed("StartInterval")}},
        {"CalendarOfServer",
         "shadowed-trigger",
         with("StartCalendarInterval", Dictionary{{"Minute", 5}}),
         {shadowed("StartCalendarInterval")}},
        {"WatchedPathOfServer",
         "shadowed-trigger",
         with("WatchPaths", texts({"/srv"})),
         {shadowed("WatchPaths")}},
        {"QueueOfServer",
         "shadowed-trigger",
         with("QueueDirectories", texts({"/srv"})),
         {shadowed("QueueDirectories")}},
        {"MountOfServer",
         "shadowed-trigger",
         with("StartOnMount", true),
         {shadowed("StartOnMount")}},
        {"NoMountOfServer", "shadowed-trigger", with("StartOnMount", false), {}},
        {"IntervalBesideCondition", "shadowed-trigger", both(ifCrashed, 300), {}},
        {"WatchedPathBesideCondition",
         "shadowed-trigger",
         edited(watcher(), {{"KeepAlive", conditions("SuccessfulExit", false)}}),
         {}},
        {"IntervalBesideFalse", "shadowed-trigger", both(false, 300), {}},

        {"ShortInterval", "keep-alive-interval", both(true, 9), {shortBy("9", "10")}},
        {"ShortIntervalBesideCondition",
         "keep-alive-interval",
         both(ifCrashed, 1),
         {shortBy("1", "10")}},
        {"ShorterThanThrottle",
         "keep-alive-interval",
         edited(both(ifCrashed, 59), {{"ThrottleInterval", 60}}),
         {shortBy("59", "60")}},
        {"NoThrottle",
         "keep-alive-interval",
         edited(both(ifCrashed, 9), {{"ThrottleInterval", 0}}),
         {shortBy("9", "10")}},
        {"AsLongAsThrottle", "keep-alive-interval", both(ifCrashed, 10), {}},
        {"LongerThanOwnThrottle",
         "keep-alive-interval",
         edited(both(ifCrashed, 5), {{"ThrottleInterval", 5}}),
         {}},
        {"ShortIntervalAlone", "keep-alive-interval", edited(poller(), {{"StartInterval", 5}}), {}},
        {"ShortIntervalBesideNoCondition", "keep-alive-interval", both(Dictionary{}, 5), {}},

        {"NotAtLoad", "run-at-load-off", with("RunAtLoad", false), {off}},
        {"AtLoadOfWrongType",
         "run-at-load-off",
         with("RunAtLoad", 0),
         {"wrong-type RunAtLoad: is an integer; launchd reads a boolean"}},
        {"NotAtLoadOnCondition",
         "run-at-load-off",
         edited(both(ifCrashed, 300), {{"RunAtLoad", false}}),
         {}},
        {"NotAtLoadAlone", "run-at-load-off", edited(backup(), {{"RunAtLoad", false}}), {}},
    };
}

std::vector<CheckRow> demandRows() {
    const auto waiting = [](Edits edits) {
        edits.emplace_back("KeepAlive", conditions("AfterInitialDemand", true));
        return startedBy(edits);
    };
    const std::string start =
        "after-initial-demand KeepAlive.AfterInitialDemand: waits for a first start by demand";
    const auto notBy = [&start](const std::string& keys) {
        return start + "; " + keys + " does not make it, and no other key of the file does";
    };
    const Dictionary calendar{{"Hour", 7}, {"Minute", 5}};
    const Value path = texts({"/srv/in"});
    return {
        {"NothingDemands",
         "after-initial-demand",
         waiting({}),
         {start + ", and no key of the file makes one"}},
        {"CalendarIsNoDemand",
         "after-initial-demand",
         waiting({{"StartCalendarInterval", calendar}}),
         {notBy("StartCalendarInterval")}},
        {"IntervalIsNoDemand",
         "after-initial-demand",
         waiting({{"StartInterval", 5}}),
         {notBy("StartInterval")}},
        {"MountIsNoDemand",
         "after-initial-demand",
         waiting({{"StartOnMount", true}}),
         {notBy("StartOnMount")}},
        {"LoadIsNoDemand",
         "after-initial-demand",
         waiting({{"RunAtLoad", true}}),
         {notBy("RunAtLoad")}},
        {"ThreeAreNoDemand",
         "after-initial-demand",
         waiting({{"StartInterval", 300}, {"StartOnMount", true}, {"RunAtLoad", true}}),
         {notBy("StartInterval, StartOnMount or RunAtLoad")}},
        {"CalendarBesideDemand",
         "after-initial-demand",
         waiting({{"StartCalendarInterval", calendar}, {"WatchPaths", path}}),
         {start + ", which StartCalendarInterval does not make"}},
        {"WatchedPathDemands", "after-initial-demand", waiting({{"WatchPaths", path}}), {}},
        {"QueueDemands", "after-initial-demand", waiting({{"QueueDirectories", path}}), {}},
        {"ServiceDemands", "after-initial-demand", waiting({{"MachServices", Dictionary{}}}), {}},
        {"DoesNotWait",
         "after-initial-demand",
         startedBy({{"KeepAlive", conditions("AfterInitialDemand", false)}}),
         {}},
    };
}

std::vector<CheckRow> onceRows() {
    const auto once = [](Dictionary agent) {
        return edited(std::move(agent), {{"LaunchOnlyOnce", true}});
    };
    const auto never = [](const std::string& key) {
        return "launch-once " + key +
               ": never starts it a second time: LaunchOnlyOnce holds until the machine restarts";
    };
    return {
        {"OnceByCalendar", "launch-once", once(backup()), {never("StartCalendarInterval")}},
        {"OnceByInterval", "launch-once", once(poller()), {never("StartInterval")}},
        {"OnceKeptAlive", "launch-once", once(server()), {never("KeepAlive")}},
        {"OnceOnCondition",
         "launch-once",
         once(startedBy({{"KeepAlive", conditions("Crashed", true)}})),
         {never("KeepAlive")}},
        {"OnceAtLoad", "launch-once", once(startedBy({{"RunAtLoad", true}})), {}},
        {"OnceNotKeptAlive",
         "launch-once",
         once(startedBy({{"RunAtLoad", true}, {"KeepAlive", false}})),
         {}},
        {"NotOnce", "launch-once", edited(poller(), {{"LaunchOnlyOnce", false}}), {}},
    };
}

} // namespace

std::vector<CheckRow> triggerCheckRows() {
    auto rows = startRows();
    for (const auto& more : {keepAliveRows(), demandRows(), onceRows()})
        rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

} // namespace frimbolate::test
