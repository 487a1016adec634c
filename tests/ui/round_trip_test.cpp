// Written, read and written again: an agent stays what it is, but for differences with a name.
#include "tests/support/editor_test.h"
#include "tests/ui/generated_forms.h"

#include "core/validation.h"

#include <set>

namespace frimbolate::test {

namespace {

class RoundTrip : public EditorTest {
  protected:
    RoundTrip() { platform.defaults.contents["WarnForDelete"] = false; }

    /// Through the save command, the panel and the success alert, under the proposed name.
    AgentPlist save() {
        editor.validateAgentConfig();
        const auto path =
            std::string(agents) + '/' + platform.shownSavePanel().nameFieldStringValue;
        platform.saveAs(path);
        platform.press("Skip");
        return *platform.files.contents.at(path);
    }

    /// Through the edit command and the panel; nothing is asked or told on the way.
    void read(const AgentPlist& file) {
        const auto path = std::string(agents) + "/com.frimbolate.read.plist";
        platform.files.contents[path] = file;
        editor.editLaunchAgent();
        platform.choose(path);
        EXPECT_FALSE(platform.isAsking());
        platform.files.contents.clear();
    }

    /// What an agent that was read is saved as. One whose seconds the validation refuses is
    /// saved without it.
    AgentPlist saveAgain() {
        const auto record = agentForm(form);
        if (validate(record).empty())
            return save();
        // Only an interval can have become invalid: minutes and hours are not bound by the least
        // number of seconds, and a product may not fit into 32 bits.
        EXPECT_EQ(record.scheduleType, ScheduleType::OnInterval);
        EXPECT_LT(std::stoll(record.intervalText), 10);
        ++refused;
        editor.validateAgentConfig();
        platform.press("Ok");
        const auto file = buildAgentPlist(record, "com.frimbolate." + record.name);
        editor.createNewAgent();
        return file;
    }

    /// The subject after every rule that applies to it, which is noted.
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
        // From there on nothing changes any more.
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

/// Whatever a person's defaults are: they belong to new agents only.
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
