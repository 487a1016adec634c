// Steps at the controls of whatever window has the input, by key, mouse and drag.
#include "tests/random_user/input.h"
#include "tests/random_user/session.h"
#include "tests/random_user/step.h"
#include "tests/random_user/typed_texts.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/controls/time_field.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSlider>
#include <QUrl>

#include <algorithm>

namespace frimbolate::test {

namespace {

using Drawn = std::optional<Arguments>;

template <typename Kind>
Drawn drawName(RandomValues& random) {
    Arguments names;
    for (const auto* widget : reachable<Kind>())
        if (const std::string name = nameOf(*widget); !name.empty())
            names.push_back(name);
    return names.empty() ? Drawn() : Arguments{random.oneOf(names)};
}

Drawn with(Drawn drawn, const std::string& argument) {
    if (drawn)
        drawn->push_back(argument);
    return drawn;
}

Drawn drawPress(Session&, RandomValues& random) { return drawName<QAbstractButton>(random); }

void runPress(Session&, const Arguments& arguments) {
    if (auto* button = reachable<QAbstractButton>(arguments.at(0)))
        click(*button);
}

/// The editors of text, by the name of the control that they belong to.
QWidget* editor(const std::string& name) {
    for (auto* field : reachable<QLineEdit>())
        if (nameOf(*field) == name || nameOf(*field->parentWidget()) == name)
            return field;
    return reachable<QPlainTextEdit>(name);
}

Drawn drawType(Session&, RandomValues& random) {
    Arguments names;
    for (const auto* field : reachable<QLineEdit>()) {
        const bool isPart = qobject_cast<const TimeField*>(field->parentWidget());
        names.push_back(isPart ? nameOf(*field->parentWidget()) : nameOf(*field));
    }
    for (const auto* field : reachable<QPlainTextEdit>())
        names.push_back(nameOf(*field));
    std::erase(names, "");
    if (names.empty())
        return {};
    return Arguments{random.oneOf(names), drawText(random), random.coin() ? "replace" : "append"};
}

void runType(Session&, const Arguments& arguments) {
    QWidget* field = editor(arguments.at(0));
    if (!field)
        return;
    click(*field);
    if (arguments.at(2) == "replace")
        press(Qt::Key_A, Qt::ControlModifier);
    else
        press(Qt::Key_End);
    const QString text = typedText(arguments.at(1));
    if (text.isEmpty())
        press(Qt::Key_Delete);
    else if (isPasted(text))
        paste(text);
    else
        type(text);
    // The names that a file panel offers while the user types.
    if (const QWidget* list = QApplication::activePopupWidget();
        list && qobject_cast<const QAbstractItemView*>(list))
        press(Qt::Key_Escape);
}

Drawn drawChoose(Session&, RandomValues& random) {
    auto drawn = drawName<PopUpButton>(random);
    if (!drawn)
        return {};
    const auto* button = reachable<PopUpButton>(drawn->front());
    const auto index = random.below(static_cast<std::size_t>(button->count()));
    return with(with(drawn, std::to_string(index)), random.coin() ? "keys" : "mouse");
}

void runChoose(Session& session, const Arguments& arguments) {
    auto* button = reachable<PopUpButton>(arguments.at(0));
    if (!button)
        return;
    const int index = std::stoi(arguments.at(1));
    click(*button);
    settle();
    auto* list = button->view();
    if (!list->isVisible())
        return;
    const QModelIndex item = list->model()->index(index, 0);
    const bool canBeChosen = item.flags() & Qt::ItemIsEnabled;
    session.hasChosenItem = canBeChosen;
    if (!canBeChosen) {
        press(Qt::Key_Escape);
    } else if (arguments.at(2) == "mouse") {
        click(*list->viewport(), list->visualRect(item).center());
    } else {
        press(Qt::Key_Home);
        for (int i = 0; i < button->count() && list->currentIndex().row() < index; ++i)
            press(Qt::Key_Down);
        press(Qt::Key_Return);
    }
}

Drawn drawOpenList(Session&, RandomValues& random) { return drawName<QComboBox>(random); }

void runOpenList(Session&, const Arguments& arguments) {
    if (auto* button = reachable<QComboBox>(arguments.at(0)))
        click(*button);
}

struct NamedKey {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};
const NamedKey keys[] = {
    {"Tab", Qt::Key_Tab},
    {"Backtab", Qt::Key_Backtab, Qt::ShiftModifier},
    {"Ctrl+Tab", Qt::Key_Tab, Qt::ControlModifier},
    {"Escape", Qt::Key_Escape},
    {"Return", Qt::Key_Return},
    {"Space", Qt::Key_Space},
    {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},
    {"Left", Qt::Key_Left},
    {"Right", Qt::Key_Right},
    {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},
    {"PageUp", Qt::Key_PageUp},
    {"PageDown", Qt::Key_PageDown},
    {"Backspace", Qt::Key_Backspace},
    {"Delete", Qt::Key_Delete},
    {"F10", Qt::Key_F10},
    {"Alt+N", Qt::Key_N, Qt::AltModifier},
    {"Alt+W", Qt::Key_W, Qt::AltModifier},
    {"Alt+S", Qt::Key_S, Qt::AltModifier},
    {"Alt+F", Qt::Key_F, Qt::AltModifier},
    {"Ctrl+Z", Qt::Key_Z, Qt::ControlModifier},
    {"Ctrl+A", Qt::Key_A, Qt::ControlModifier},
    {"Ctrl+C", Qt::Key_C, Qt::ControlModifier},
    {"Ctrl+X", Qt::Key_X, Qt::ControlModifier},
    {"Ctrl+V", Qt::Key_V, Qt::ControlModifier},
    {"Shift+End", Qt::Key_End, Qt::ShiftModifier},
    {"a", Qt::Key_A},
    {"7", Qt::Key_7},
};

Drawn drawKey(Session&, RandomValues& random) { return Arguments{random.oneOf(keys).name}; }

void runKey(Session&, const Arguments& arguments) {
    const auto row = std::ranges::find(keys, std::string_view(arguments.at(0)), &NamedKey::name);
    if (row != std::end(keys))
        press(row->key, row->modifiers);
}

Drawn drawSlide(Session&, RandomValues& random) {
    return with(drawName<QSlider>(random), std::to_string(random.below(100)));
}

void runSlide(Session&, const Arguments& arguments) {
    auto* slider = reachable<QSlider>(arguments.at(0));
    if (!slider)
        return;
    const int place = slider->width() * std::stoi(arguments.at(1)) / 100;
    click(*slider, {place, slider->height() / 2});
}

/// The commands with a shortcut; Quit ends the program, which "restart" does.
std::vector<QAction*> commandsWithKeys(Session& session) {
    std::vector<QAction*> result;
    for (auto* action : session.window().findChildren<QAction*>())
        if (!action->shortcut().isEmpty() && !action->objectName().isEmpty() &&
            action->objectName() != "quit" && action->shortcutContext() == Qt::WindowShortcut)
            result.push_back(action);
    return result;
}

Drawn drawShortcut(Session& session, RandomValues& random) {
    return Arguments{random.oneOf(commandsWithKeys(session))->objectName().toStdString()};
}

void runShortcut(Session& session, const Arguments& arguments) {
    if (arguments.at(0) == "filterAgents")
        return press(Qt::Key_F, Qt::ControlModifier);
    for (const auto* action : commandsWithKeys(session))
        if (action->objectName().toStdString() == arguments.at(0)) {
            const auto key = action->shortcut()[0];
            return press(key.key(), key.keyboardModifiers());
        }
}

constexpr const char* dropPlaces[] = {"agentTargetImageWell",       "agentWatchPathImageWell",
                                      "alsoRunPathChangeImageWell", "standardInPathField",
                                      "standardErrorPathField",     "rootDirectoryField",
                                      "agentNameTextField"};
constexpr const char* dropped[] = {"~/Scripts/backup.sh",
                                   "~/Scripts/tool.py",
                                   "~/Scripts/blank \u00e9 %.rb",
                                   "~/Scripts/notes.txt",
                                   "~/Scripts/plain",
                                   "~/Good.app",
                                   "~/Broken.app",
                                   "~/Documents",
                                   "~/gone.sh",
                                   "two",
                                   "text",
                                   "remote"};

Drawn drawDrop(Session&, RandomValues& random) {
    Arguments places;
    for (const char* place : dropPlaces)
        if (reachable<QWidget>(place))
            places.emplace_back(place);
    if (places.empty())
        return {};
    return Arguments{random.oneOf(places), random.oneOf(dropped)};
}

void runDrop(Session& session, const Arguments& arguments) {
    auto* place = reachable<QWidget>(arguments.at(0));
    if (!place)
        return;
    const auto url = [&](std::string_view path) {
        return QUrl::fromLocalFile(QString::fromStdString(session.home().expanded(path)));
    };
    QMimeData data;
    if (arguments.at(1) == "two")
        data.setUrls({url("~/Scripts/backup.sh"), url("~/Scripts/tool.py")});
    else if (arguments.at(1) == "text")
        data.setText("dragged text");
    else if (arguments.at(1) == "remote")
        data.setUrls({QUrl("https://example.org/run.sh")});
    else
        data.setUrls({url(arguments.at(1))});
    drop(*place, data);
}

constexpr StepKind controlKinds[] = {
    {"press", 60, drawPress, runPress},
    {"type", 30, drawType, runType},
    {"choose", 30, drawChoose, runChoose},
    {"openList", 4, drawOpenList, runOpenList},
    {"key", 40, drawKey, runKey},
    {"slide", 6, drawSlide, runSlide},
    {"shortcut", 20, drawShortcut, runShortcut},
    {"drop", 12, drawDrop, runDrop},
};

} // namespace

std::span<const StepKind> formSteps() { return controlKinds; }

} // namespace frimbolate::test
