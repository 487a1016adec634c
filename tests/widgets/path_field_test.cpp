// The path fields of the drawer: drops, the panel, and the hint about "~".
#include "widgets/drawer/path_field.h"

#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"
#include "widgets/style/tokens.h"

#include <QAction>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QToolButton>
#include <QUrl>

namespace frimbolate::test {
namespace {

struct FieldRow {
    std::string_view name; ///< the outlet
    TextField FormModel::*member;
    const char* caption;
};

constexpr FieldRow fields[] = {
    {"standardInPathField", &FormModel::standardInPathField, "Standard input"},
    {"standardOutPathField", &FormModel::standardOutPathField, "Standard output"},
    {"standardErrorPathField", &FormModel::standardErrorPathField, "Standard error"},
    {"workingDirectoryField", &FormModel::workingDirectoryField, "Working folder"},
    {"rootDirectoryField", &FormModel::rootDirectoryField, "Root folder"},
    {"queueDirectoryField", &FormModel::queueDirectoryField, "Queue folder"},
};

class PathFieldTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        show([](FormModel& model) { model.advancedDrawer.open = true; });
    }
    PathField* field(std::string_view outlet) { return find<PathField>(std::string(outlet)); }

    bool enter(PathField* field, const QMimeData& data, Qt::DropActions offered) {
        QDragEnterEvent event({5, 5}, offered, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(field, &event);
        return event.isAccepted();
    }
    /// Whether the drop was accepted.
    bool drop(PathField* field, const QMimeData& data,
              Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction) {
        const bool entered = enter(field, data, offered);
        QDropEvent event(QPointF(5, 5), offered, &data, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::MoveAction); // the default without modifier keys
        QCoreApplication::sendEvent(field, &event);
        EXPECT_EQ(entered, event.isAccepted());
        if (event.isAccepted()) {
            EXPECT_NE(event.dropAction(), Qt::MoveAction) << "the source would give its file away";
        }
        return event.isAccepted();
    }
    static std::unique_ptr<QMimeData> urls(const QList<QUrl>& list) {
        auto data = std::make_unique<QMimeData>();
        data->setUrls(list);
        data->setText("file:///as/file/managers/add");
        return data;
    }
};

class EachField : public PathFieldTest, public testing::WithParamInterface<FieldRow> {};

TEST_P(EachField, AcceptsADroppedFileOrFolder) {
    show([](FormModel& model) { (model.*GetParam().member).stringValue = "/earlier"; });
    for (const auto& [url, path] : {std::pair("file:///no/such/a%20b.log", "/no/such/a b.log"),
                                    std::pair("file:///Users/maya/Logs/", "/Users/maya/Logs")}) {
        EXPECT_TRUE(drop(field(GetParam().name), *urls({QUrl(url)})));
        EXPECT_EQ((form().*GetParam().member).stringValue, path);
    }
    field(GetParam().name)->undo();
    EXPECT_EQ((form().*GetParam().member).stringValue, "/no/such/a b.log");
}

TEST_P(EachField, HasAButtonThatChoosesItsPath) {
    auto* button = find<QToolButton>(std::string(GetParam().name) + "Chooser");
    EXPECT_EQ(button->accessibleName(), QString("Choose: ") + GetParam().caption);
    EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus);
    field(GetParam().name)->setFocus();
    QTest::keyClick(field(GetParam().name), Qt::Key_Tab);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_EQ(field(GetParam().name)->width() + 4 + button->width(), 248);
    EXPECT_EQ(button->geometry().right() + 1, 128 + 248);
    QTest::mouseClick(button, Qt::LeftButton);
    platform.choose("/var/log/x.log");
    window.mirror();
    EXPECT_EQ(field(GetParam().name)->text(), "/var/log/x.log");
    EXPECT_EQ((form().*GetParam().member).stringValue, "/var/log/x.log");
}

TEST_P(EachField, ExpandsATildeToTheHomeFolderThatTheWindowWasGiven) {
    window.formBinder().setHomeFolder("/Users/maya");
    PathField* edited = field(GetParam().name);
    QTest::keyClicks(edited, "~/x.log");
    EXPECT_TRUE(edited->toolTip().endsWith("/Users/maya/x.log"));
    EXPECT_TRUE(find<ElidedLabel>("pathHint")->isVisible());
}

TEST_P(EachField, SaysThatATildeIsNotExpanded) {
    PathField* edited = field(GetParam().name);
    const auto* hint = find<ElidedLabel>("pathHint");
    EXPECT_FALSE(hint->isVisible());
    QTest::keyClicks(edited, "~/x.log");
    const QString instead = QDir::homePath() + "/x.log";
    EXPECT_EQ((form().*GetParam().member).stringValue, "~/x.log") << "it stays as typed";
    EXPECT_EQ(edited->property("faulty"), true);
    EXPECT_TRUE(edited->toolTip().endsWith(instead));
    EXPECT_TRUE(edited->accessibleDescription().endsWith(instead));
    EXPECT_TRUE(hint->isVisible());
    EXPECT_TRUE(hint->isWarning());
    EXPECT_EQ(hint->text(), QString::fromUtf8("%1: “~” is not expanded").arg(GetParam().caption));
    // A root folder has a hint of its own.
    edited->setText(GetParam().name == "rootDirectoryField" ? "" : "/x.log");
    EXPECT_NE(edited->property("faulty"), true);
    EXPECT_EQ(edited->toolTip(), "");
    EXPECT_EQ(edited->accessibleDescription(), "");
    EXPECT_FALSE(hint->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Table, EachField, testing::ValuesIn(fields), NamedAfterRow());

struct RejectedRow {
    std::string_view name;
    QList<QUrl> urls;
    Qt::DropActions offered = Qt::CopyAction;
};

class RejectedDrop : public PathFieldTest, public testing::WithParamInterface<RejectedRow> {};

TEST_P(RejectedDrop, ChangesNothing) {
    show([](FormModel& model) { model.rootDirectoryField.stringValue = "/earlier"; });
    EXPECT_FALSE(drop(field("rootDirectoryField"), *urls(GetParam().urls), GetParam().offered));
    EXPECT_EQ(form().rootDirectoryField.stringValue, "/earlier");
}

const RejectedRow rejectedRows[] = {
    {"Two", {QUrl("file:///a"), QUrl("file:///b")}},
    {"Remote", {QUrl("https://example.org/a")}},
    {"OtherHost", {QUrl("file://elsewhere/a")}},
    {"NotUtf8", {QUrl("file:///%ff")}},
    {"OnlyToBeMoved", {QUrl("file:///a")}, Qt::MoveAction},
};

INSTANTIATE_TEST_SUITE_P(Table, RejectedDrop, testing::ValuesIn(rejectedRows), NamedAfterRow());

TEST_F(PathFieldTest, ADraggedTextIsInserted) {
    QMimeData text;
    text.setText("/typed/elsewhere");
    PathField* target = field("rootDirectoryField");
    QDragEnterEvent entered({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &entered);
    EXPECT_TRUE(entered.isAccepted());
    QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &dropped);
    EXPECT_EQ(form().rootDirectoryField.stringValue, "/typed/elsewhere");
}

TEST_F(PathFieldTest, NoDropIsAcceptedWhileASheetIsShown) {
    find<QAction>("about")->trigger();
    ASSERT_NE(queue.current(), nullptr);
    EXPECT_FALSE(drop(field("rootDirectoryField"), *urls({QUrl("file:///a")})));
    EXPECT_EQ(form().rootDirectoryField.stringValue, "");
    queue.current()->reject();
}

TEST_F(PathFieldTest, HighlightsAnAcceptableDrag) {
    PathField* target = field("rootDirectoryField");
    const auto edge = [target] {
        return target->grab().toImage().pixelColor(target->width() / 2, 0);
    };
    const QColor accent = style::tokens(false).accent;
    EXPECT_NE(edge(), accent);
    EXPECT_FALSE(enter(target, *urls({QUrl("https://example.org/a")}), Qt::CopyAction));
    EXPECT_NE(edge(), accent);
    EXPECT_TRUE(enter(target, *urls({QUrl("file:///a")}), Qt::CopyAction));
    EXPECT_EQ(edge(), accent);
    QDragLeaveEvent left;
    QCoreApplication::sendEvent(target, &left);
    EXPECT_NE(edge(), accent);
}

TEST_F(PathFieldTest, ARootFolderNeedsRoot) {
    show([](FormModel& model) { model.rootDirectoryField.stringValue = "/jail"; });
    const auto* hint = find<ElidedLabel>("pathHint");
    PathField* root = field("rootDirectoryField");
    EXPECT_EQ(hint->text(), "Root folder: needs root");
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(root->property("faulty"), true);
    EXPECT_EQ(root->toolTip(), "Only root may change the root folder, and an agent runs as you");
    EXPECT_EQ(root->accessibleDescription(), root->toolTip());
    show([](FormModel& model) { model.queueDirectoryField.stringValue = "~/Queue"; });
    EXPECT_TRUE(hint->text().startsWith("Queue folder"));
    show([](FormModel& model) {
        model.queueDirectoryField.stringValue = "/Queue";
        model.rootDirectoryField.stringValue.clear();
    });
    EXPECT_FALSE(hint->isVisible());
    EXPECT_NE(root->property("faulty"), true);
    EXPECT_EQ(root->toolTip(), "");
}

TEST_F(PathFieldTest, TheFirstPathWithATildeIsNamed) {
    show([](FormModel& model) {
        model.queueDirectoryField.stringValue = "~/Queue";
        model.standardErrorPathField.stringValue = "~/x.log";
    });
    const auto* hint = find<ElidedLabel>("pathHint");
    EXPECT_TRUE(hint->text().startsWith("Standard error"));
    show([](FormModel& model) { model.standardErrorPathField.stringValue.clear(); });
    EXPECT_TRUE(hint->text().startsWith("Queue folder"));
}

} // namespace
} // namespace frimbolate::test
