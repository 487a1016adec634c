// An agent that is written, read and written again changes only by the named rules.
#include "tests/support/editor_test.h"
#include "tests/ui/generated_forms.h"

#include "core/validation.h"

#include <set>

namespace frimbolate::test {

namespace {

class RoundTrip : public EditorTest {
  protected:
    RoundTrip() { platform.defaults.contents["WarnForDelete"] = false; }

    /// Saves under the proposed name: command, panel and success alert.
    AgentPlist save() {
        editor.validateAgentConfig();
        const auto path =
            std::string(agents) + '/' + platform.shownSavePanel().nameFieldStringValue;
        platform.saveAs(path);
        platform.press("Skip");
        return *platform.files.contents.at(path);
    }

    /// Edits the file: command and panel. Expects no alert.
    void read(const AgentPlist& file) {
        const auto path = std::string(agents) + "/com.frimbolate.read.plist";
        platform.files.contents[path] = file;
        editor.editLaunchAgent();
        platform.choose(path);
        EXPECT_FALSE(platform.isAsking());
        platform.files.contents.clear();
    }

    /// The file that an agent is saved as after reading. An agent whose interval fails validation
    /// is written without validation.
    AgentPlist saveAgain() {
        const auto record = agentForm(form);
        if (validate(record).empty())
            return save();
        // Only an interval can become invalid: the minimum in seconds does not apply to minutes and
        // hours, and their product with 60 or 3600 may not fit into 32 bits.
        EXPECT_EQ(record.scheduleType, ScheduleType::OnInterval);
        EXPECT_LT(std::stoll(record.intervalText), 10);
        ++refused;
        editor.validateAgentConfig();
        platform.press("Ok");
        const auto file = buildAgentPlist(record, "com.frimbolate." + record.name);
        editor.createNewAgent();
        return file;
    }

    /// The subject after every rule that applies to it. Records the names of these rules.
    template <typename Subject>
    Subject ruled(Subject subject, std::span<const RoundTripRule<Subject>> rules) {
        for (const auto& rule : rules)
            if (rule.applies(subject)) {
                rule.change(subject);
                applied.insert(rule.name);
            }
        return subject;
    }

    std::set<std::string> applied;
    int refused = 0;
};

TEST_F(RoundTrip, KeepsEveryFormThatPassesValidation) {
    constexpr int wanted = 2500;
    RandomValues random(4711);
    for (int passed = 0; passed < wanted;) {
        const auto generated = generatedForm(random);
        if (!validate(generated).empty())
            continue;
        ++passed;
        SCOPED_TRACE(passed);
        show(generated, form);
        const auto first = save();
        read(first);
        ASSERT_EQ(agentForm(form), ruled(generated, formRules()));
        const auto second = saveAgain();
        ASSERT_EQ(second, ruled(first, fileRules())) << description(Value(first));
        // The second file is a fixed point.
        read(second);
        ASSERT_EQ(saveAgain(), second) << description(Value(first));
        platform.journal.clear();
    }
    for (const auto& rule : formRules())
        EXPECT_TRUE(applied.contains(rule.name)) << rule.name;
    for (const auto& rule : fileRules())
        EXPECT_TRUE(applied.contains(rule.name)) << rule.name;
    EXPECT_GT(refused, 0);
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

/// The defaults of the preferences apply to new agents alone.
TEST_F(RoundTrip, DoesNotDependOnTheDefaults) {
    RandomValues random(815);
    for (int passed = 0; passed < 200;) {
        const auto generated = generatedForm(random);
        if (!validate(generated).empty())
            continue;
        ++passed;
        SCOPED_TRACE(passed);
        const auto first = buildAgentPlist(generated, "com.frimbolate." + generated.name);
        for (const char* globbing : {"0", "1"})
            for (const char* priority : {"0", "1"}) {
                platform.defaults.contents["DefaultGlobbingKey"] = globbing;
                platform.defaults.contents["DefaultPriorityKey"] = priority;
                read(first);
                ASSERT_EQ(agentForm(form), ruled(generated, formRules()));
                editor.createNewAgent();
            }
    }
}

} // namespace

} // namespace frimbolate::test
