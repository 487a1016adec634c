#include "tests/support/check_rows.h"

namespace frimbolate::test {

namespace {

Dictionary keptIf(const char* condition, Value value) {
    return edited(poller(), {{"KeepAlive", Dictionary{{condition, std::move(value)}}}});
}

} // namespace

std::vector<CheckRow> stateCheckRows() {
    const std::string daemon = ": is for daemons; launchd ignores it in an agent";
    const std::string withoutEffect = ": no longer does anything";
    const std::string unsupported = ": is no longer supported";
    const std::string reported = ": is what launchd reports; it never reads it";
    const std::string runs = "enabled-key Enabled: is not read by launchd, which runs the agent "
                             "all the same: unload it, or set Disabled";
    const std::string counts =
        "enabled-key Enabled: is not read by launchd, where only Disabled counts";
    const std::string discouraged = ": is discouraged by launchd's manual";
    return {
        {"UserName",
         "daemon-key",
         backupWith("UserName", "maya"),
         {"daemon-key UserName" + daemon}},
        {"GroupName",
         "daemon-key",
         backupWith("GroupName", "staff"),
         {"daemon-key GroupName" + daemon}},
        {"InitGroups",
         "daemon-key",
         backupWith("InitGroups", true),
         {"daemon-key InitGroups" + daemon}},
        {"SessionCreate", "daemon-key", backupWith("SessionCreate", true), {}},

        {"LimitLoadToHosts",
         "dropped-key",
         backupWith("LimitLoadToHosts", texts({"a"})),
         {"dropped-key LimitLoadToHosts" + unsupported}},
        {"LimitLoadFromHosts",
         "dropped-key",
         backupWith("LimitLoadFromHosts", texts({"a"})),
         {"dropped-key LimitLoadFromHosts" + unsupported}},
        {"NetworkState",
         "dropped-key",
         keptIf("NetworkState", true),
         {"dropped-key KeepAlive.NetworkState" + withoutEffect}},
        {"TimeOut",
         "dropped-key",
         backupWith("TimeOut", 5),
         {"dropped-key TimeOut" + withoutEffect}},
        {"HopefullyExitsFirst",
         "dropped-key",
         backupWith("HopefullyExitsFirst", "x"),
         {"dropped-key HopefullyExitsFirst" + withoutEffect}},
        {"HopefullyExitsLast",
         "dropped-key",
         backupWith("HopefullyExitsLast", 1),
         {"dropped-key HopefullyExitsLast" + withoutEffect}},
        {"ExitTimeOut", "dropped-key", backupWith("ExitTimeOut", 5), {}},

        {"LastExitStatus",
         "reported-key",
         backupWith("LastExitStatus", 0),
         {"reported-key LastExitStatus" + reported}},
        {"Pid", "reported-key", backupWith("PID", 512), {"reported-key PID" + reported}},
        {"LegacyTimers", "reported-key", backupWith("LegacyTimers", true), {}},

        {"EnabledFalse", "enabled-key", backupWith("Enabled", false), {runs}},
        {"EnabledZero", "enabled-key", backupWith("Enabled", 0), {runs}},
        {"EnabledNo", "enabled-key", backupWith("Enabled", "NO"), {runs}},
        {"EnabledArray", "enabled-key", backupWith("Enabled", Array{}), {runs}},
        {"EnabledTrue", "enabled-key", backupWith("Enabled", true), {counts}},
        {"EnabledYes", "enabled-key", backupWith("Enabled", "YES"), {counts}},
        {"DisabledFalse", "enabled-key", backupWith("Disabled", false), {}},

        {"OnDemandFalse",
         "retired-key",
         edited(server(), {{"OnDemand", false}}),
         {"retired-key OnDemand: is retired and should be removed: write KeepAlive true in its "
          "place"}},
        {"OnDemandTrue",
         "retired-key",
         backupWith("OnDemand", true),
         {"retired-key OnDemand: is retired and should be removed"}},
        {"ServiceIpc",
         "retired-key",
         backupWith("ServiceIPC", false),
         {"retired-key ServiceIPC: is retired and should be removed"}},
        {"ServiceIpcOfWrongType",
         "retired-key",
         backupWith("ServiceIPC", 0),
         {"retired-key ServiceIPC: is retired and should be removed",
          "wrong-type ServiceIPC: is an integer; launchd reads a boolean"}},
        {"EnableTransactions", "retired-key", backupWith("EnableTransactions", true), {}},

        {"Inetd",
         "discouraged-key",
         backupWith("inetdCompatibility", Dictionary{{"Wait", false}}),
         {"discouraged-key inetdCompatibility" + discouraged}},
        {"PathState",
         "discouraged-key",
         keptIf("PathState", Dictionary{{"/srv/x", true}}),
         {"discouraged-key KeepAlive.PathState" + discouraged + ": it races"}},
        {"OtherJobEnabled",
         "discouraged-key",
         keptIf("OtherJobEnabled", Dictionary{{"com.example.x", true}}),
         {"discouraged-key KeepAlive.OtherJobEnabled" + discouraged +
          ": it tells only whether the other job is loaded"}},
        {"Crashed", "discouraged-key", keptIf("Crashed", true), {}},

        {"DisabledTrue",
         "disabled-default",
         backupWith("Disabled", true),
         {"disabled-default Disabled: is a default for loading; what launchctl enable or disable "
          "has stored wins"}},
        {"DisabledOfWrongType",
         "disabled-default",
         backupWith("Disabled", "true"),
         {"wrong-type Disabled: is a string; launchd reads a boolean"}},
        {"DebugOn", "disabled-default", backupWith("Debug", true), {}},
    };
}

} // namespace frimbolate::test
