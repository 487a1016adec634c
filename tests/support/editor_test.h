// The fixture of the scenarios: the controller over the scripted desktop.
#pragma once

#include "tests/support/form_snapshot.h"
#include "tests/support/scripted_platform.h"
#include "ui/app_delegate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace frimbolate::test {

class EditorTest : public testing::Test {
  protected:
    static constexpr const char* agents = "/Users/maya/Library/LaunchAgents";

    EditorTest() {
        platform.files.folders = {agents, "/Users/maya"};
        platform.defaults.contents["Bookmark"] = bookmarkOf(agents);
    }

    /// A new agent, and two forms that hold other values and opposite flags. Keeps the preferences,
    /// clears the journal.
    std::vector<StartForm> startForms() {
        const auto preferences = platform.defaults.contents;
        AppDelegate fresh(platform.services());
        fresh.createNewAgent();
        platform.defaults.contents = preferences;
        platform.journal.clear();
        return {{"from a new agent", fresh.form()},
                {"from other values, flags not set", nonDefaultForm(false)},
                {"from other values, flags set", nonDefaultForm(true)}};
    }

    std::vector<std::string> log() const { return platform.journal.texts("log"); }

    ScriptedPlatform platform; // outlives the controller, which keeps its services
    AppDelegate editor{platform.services()};
    FormModel& form = editor.form();
};

} // namespace frimbolate::test
