// Use by keyboard: tab order, focus after alerts, unique mnemonics.
#include "tests/widgets/window_test.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include <functional>

namespace frimbolate::test {
namespace {

class WindowKeyboardTest : public WindowTest {
  protected:
    /// The controls that Tab reaches in the form, starting at the name, with their positions.
    struct Stop {
        std::string name;
        QPoint middle;
    };
    std::vector<Stop> stops() {
        std::vector<Stop> result;
        auto* form = find("form");
        const QWidget* const first = find("agentNameTextField");
        const QWidget* at = first;
        do {
            if (form->isAncestorOf(at) && at->isVisibleTo(form) && at->isEnabled() &&
                (at->focusPolicy() & Qt::TabFocus) && !at->objectName().startsWith("qt_"))
                result.push_back(
                    {at->objectName().toStdString(), at->mapTo(form, at->rect().center())});
            at = at->nextInFocusChain();
        } while (at != first);
        return result;
    }
    static bool has(const std::vector<Stop>& stops, const char* name) {
        return std::ranges::any_of(stops, [&](const Stop& stop) { return stop.name == name; });
    }

    /// The mnemonics of the visible controls and labels in the dialog.
    static void expectOwnLetters(const QWidget* dialog) {
        QStringList taken;
        const auto take = [&](const QString& words) {
            const qsizetype at = QString(words).replace("&&", "  ").indexOf('&');
            if (at < 0)
                return;
            const QString letter = words.mid(at + 1, 1).toLower();
            EXPECT_FALSE(taken.contains(letter)) << words.toStdString();
            taken.append(letter);
        };
        for (const auto* button : dialog->findChildren<QAbstractButton*>())
            take(button->text());
        for (const auto* label : dialog->findChildren<QLabel*>())
            if (label->buddy())
                take(label->text());
    }
};

TEST_F(WindowKeyboardTest, TabFollowsTheReadingOrderInEverySchedule) {
    const std::pair<int, const char*> rows[] = {
        {ScheduleType::EveryDay, "agentScheduleDatePicker"},
        {ScheduleType::OnceAMonth, "onMonthTextField"},
        {ScheduleType::AtLoad, "agentScheduleTypeButton"},
        {ScheduleType::OnInterval, "agentIntervalTypeButton"}};
    window.show();
    for (const auto& [schedule, control] : rows) {
        auto* button = find<QComboBox>("agentScheduleTypeButton");
        button->setCurrentIndex(schedule);
        emit button->activated(schedule);
        QCoreApplication::processEvents();
        const std::vector<Stop> met = stops();
        EXPECT_TRUE(has(met, control)) << schedule;
        ASSERT_GE(met.size(), 5u);
        for (std::size_t i = 1; i < met.size(); ++i) {
            constexpr int sameRow = 20; // pixels; rows are 72 high
            const QPoint step = met[i].middle - met[i - 1].middle;
            EXPECT_TRUE(step.y() > sameRow || (std::abs(step.y()) <= sameRow && step.x() > 0))
                << "from " << met[i - 1].name << " to " << met[i].name << ", schedule " << schedule;
        }
    }
}

TEST_F(WindowKeyboardTest, TheNameFieldHasTheFocusAtFirst) {
    for (const char* before : {"agentActionButton", "standardInPathField"}) {
        find(before)->setFocus();
        ASSERT_EQ(window.focusWidget(), find(before));
        find<QAction>("createNewAgent")->trigger();
        EXPECT_EQ(window.focusWidget(), find("agentNameTextField")) << "from " << before;
    }
}

struct FaultRow {
    const char* control;
    std::function<void(FormModel&)> mend; ///< fixes the fault; applied after those of earlier rows
};
const FaultRow faultRows[] = {
    {"agentNameTextField", [](FormModel&) {}},
    {"agentTargetButton", [](FormModel& form) { form.agentNameTextField.stringValue = "a"; }},
    {"agentActionButton",
     [](FormModel& form) { form.agentTargetButton.selectedItem = TargetType::Script; }},
    {"onMonthTextField",
     [](FormModel& form) {
         form.agentActionButton.selectedItem = AgentAction::OnSchedule;
         form.agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
         form.onMonthTextBox.hidden = false;
     }},
    {"agentIntervalField",
     [](FormModel& form) {
         form.agentScheduleTypeButton.selectedItem = ScheduleType::OnInterval;
         form.onMonthTextBox.hidden = true;
         form.agentIntervalField.hidden = false;
     }},
};

TEST_F(WindowKeyboardTest, AfterTheValidationAlertTheFirstFaultHasTheFocus) {
    window.show();
    for (const FaultRow& row : faultRows) {
        show(row.mend);
        find("agentScheduleTypeButton")->setFocus();
        find<QAction>("validateAgentConfig")->trigger();
        EXPECT_EQ(window.focusWidget(), find("agentScheduleTypeButton")) << "the alert comes first";
        platform.press("Ok");
        window.mirror();
        EXPECT_EQ(window.focusWidget(), find(row.control)) << row.control;
        find("agentScheduleTypeButton")->setFocus();
        window.mirror();
        EXPECT_EQ(window.focusWidget(), find("agentScheduleTypeButton")) << "only once";
    }
}

TEST_F(WindowKeyboardTest, AFormWithoutFaultsKeepsTheFocus) {
    show([](FormModel& form) {
        form.agentNameTextField.stringValue = "a";
        form.agentTargetButton.selectedItem = TargetType::Script;
        form.agentActionButton.selectedItem = AgentAction::OnSchedule;
    });
    find("agentScheduleTypeButton")->setFocus();
    find<QAction>("validateAgentConfig")->trigger();
    platform.cancelPanel();
    window.mirror();
    EXPECT_EQ(window.focusWidget(), find("agentScheduleTypeButton"));
}

TEST_F(WindowKeyboardTest, NoTwoMnemonicsOfASheetAreTheSame) {
    for (const char* sheet : {"welcomeWindow", "preferencesWindow", "executeScriptWindow"})
        expectOwnLetters(find(sheet));
    find<QAction>("about")->trigger();
    expectOwnLetters(queue.current());
}

TEST_F(WindowKeyboardTest, EverySheetHasOneDefaultButtonAndTabReachesAllOfIt) {
    for (const char* name : {"welcomeWindow", "preferencesWindow", "executeScriptWindow"}) {
        int defaults = 0;
        for (const auto* button : find(name)->findChildren<QAbstractButton*>()) {
            const auto* push = qobject_cast<const QPushButton*>(button);
            defaults += push && push->isDefault();
            EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << button->objectName().toStdString();
        }
        EXPECT_EQ(defaults, 1) << name;
    }
}

TEST_F(WindowKeyboardTest, ReturnAndEscapeCloseTheAboutBox) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        find<QAction>("about")->trigger();
        ASSERT_TRUE(QTest::qWaitFor([&] { return queue.current() != nullptr; }));
        QTest::keyClick(queue.current(), key);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !queue.current(); })) << key;
    }
}

} // namespace
} // namespace frimbolate::test
