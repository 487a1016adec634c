// A file or folder dropped on a well follows the rules of the well's panel.
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/image_well_button.h"
#include "widgets/style/tokens.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

namespace frimbolate::test {
namespace {

class WindowDropsTest : public WindowTest {
  protected:
    WindowDropsTest() {
        for (const char* name : {"run.sh", "notes.txt", "blank and % é.py", "My.app/Contents/x"}) {
            const QString file = path(name);
            QDir().mkpath(QFileInfo(file).path());
            QFile out(file);
            EXPECT_TRUE(out.open(QIODevice::WriteOnly)) << name;
        }
        QDir().mkpath(path("folder"));
        QFile::link(path("run.sh"), path("link.sh"));
    }

    QString path(const QString& name) const {
        return QDir(root.path()).canonicalPath() + "/" + name;
    }

    struct Outcome {
        bool hovered; ///< the drag was accepted
        bool taken;   ///< and the drop
    };
    /// Drags these URLs over the well and drops them.
    Outcome drop(const char* well, const QList<QUrl>& urls,
                 Qt::DropActions offered = Qt::CopyAction | Qt::LinkAction | Qt::MoveAction) {
        QMimeData data;
        data.setUrls(urls);
        return drop(well, data, offered);
    }
    Outcome drop(const char* well, const QMimeData& data, Qt::DropActions offered) {
        QWidget* target = find(well);
        QDragEnterEvent enter({5, 5}, offered, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &enter);
        QDropEvent event(QPointF(5, 5), offered, &data, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::MoveAction); // the default without modifier keys
        QCoreApplication::sendEvent(target, &event);
        EXPECT_NE(event.isAccepted() ? event.dropAction() : Qt::IgnoreAction, Qt::MoveAction)
            << "the source would take its file away";
        return {enter.isAccepted(), event.isAccepted()};
    }
    Outcome dropFile(const char* well, const QString& name) {
        return drop(well, {QUrl::fromLocalFile(path(name))});
    }

    void watchPath() {
        show([](FormModel& model) {
            model.agentActionButton.selectedItem = AgentAction::PathModified;
            model.agentWatchPathImageWell = {Image::iconForFile("/etc"), "/etc"};
        });
    }
    void watchAnotherPath() {
        show([](FormModel& model) {
            model.advancedDrawer.open = true;
            model.alsoRunPathChangeCheckbox.state = CheckState::On;
            model.alsoRunPathChangeImageWell = {Image::iconForFile("/etc"), "/etc"};
        });
    }

    QTemporaryDir root;
};

TEST_F(WindowDropsTest, AScriptOrApplicationBecomesTheTarget) {
    for (const char* name : {"run.sh", "blank and % é.py"}) {
        const auto [hovered, taken] = dropFile("agentTargetImageWell", name);
        EXPECT_TRUE(hovered && taken) << name;
        EXPECT_EQ(form().agentTargetImageWell.toolTip, path(name).toStdString());
        EXPECT_EQ(form().agentTargetButton.selectedItem, TargetType::File);
        EXPECT_EQ(find("agentTargetImageWell")->toolTip(), path(name)) << "the window is updated";
    }
    const std::string bundle = path("My.app").toStdString();
    platform.files.contents[bundle + "/Contents/Info.plist"] =
        Dictionary{{"CFBundleExecutable", "My"}};
    platform.files.contents[bundle + "/Contents/MacOS/My"] = std::nullopt;
    QUrl url = QUrl::fromLocalFile(path("My.app"));
    url.setPath(url.path() + "/"); // file managers append a slash to folders
    EXPECT_TRUE(drop("agentTargetImageWell", {url}).taken);
    EXPECT_EQ(form().agentTargetImageWell.toolTip, bundle + "/Contents/MacOS/My");
}

TEST_F(WindowDropsTest, ALinkIsFollowedAsThePanelFollowsIt) {
    EXPECT_TRUE(dropFile("agentTargetImageWell", "link.sh").taken);
    EXPECT_EQ(form().agentTargetImageWell.toolTip, path("run.sh").toStdString());
}

TEST_F(WindowDropsTest, AFileOrFolderBecomesTheWatchedPath) {
    watchPath();
    for (const char* name : {"folder", "notes.txt", "My.app"}) {
        EXPECT_TRUE(dropFile("agentWatchPathImageWell", name).taken) << name;
        EXPECT_EQ(form().agentWatchPathImageWell.toolTip, path(name).toStdString());
    }
    watchAnotherPath();
    for (const char* name : {"folder", "notes.txt"}) {
        EXPECT_TRUE(dropFile("alsoRunPathChangeImageWell", name).taken) << name;
        EXPECT_EQ(form().alsoRunPathChangeImageWell.toolTip, path(name).toStdString());
    }
    EXPECT_TRUE(platform.journal.lines().empty());
}

struct RejectionRow {
    std::string_view name;
    std::function<QList<QUrl>(const QString& root)> urls;
    Qt::DropActions offered = Qt::CopyAction;
};

class RejectedWellDrop : public WindowDropsTest,
                         public testing::WithParamInterface<RejectionRow> {};

TEST_P(RejectedWellDrop, ChangesNothing) {
    const auto [hovered, taken] =
        drop("agentTargetImageWell", GetParam().urls(path("")), GetParam().offered);
    EXPECT_FALSE(hovered);
    EXPECT_FALSE(taken);
    EXPECT_EQ(form().agentTargetImageWell.toolTip, "");
    EXPECT_EQ(form().agentTargetButton.selectedItem, TargetType::None);
    EXPECT_TRUE(platform.journal.lines().empty());
}

QUrl local(const QString& path) { return QUrl::fromLocalFile(path); }

const RejectionRow rejectedDrops[] = {
    {"Nothing", [](const QString&) { return QList<QUrl>{}; }},
    {"Two",
     [](const QString& root) {
         return QList<QUrl>{local(root + "run.sh"), local(root + "link.sh")};
     }},
    {"OtherKind", [](const QString& root) { return QList<QUrl>{local(root + "notes.txt")}; }},
    {"PlainFolder", [](const QString& root) { return QList<QUrl>{local(root + "folder")}; }},
    {"Missing", [](const QString& root) { return QList<QUrl>{local(root + "gone.sh")}; }},
    {"Remote", [](const QString&) { return QList<QUrl>{QUrl("https://example.org/run.sh")}; }},
    {"OtherHost",
     [](const QString& root) { return QList<QUrl>{QUrl("file://elsewhere" + root + "run.sh")}; }},
    {"NotUtf8", [](const QString& root) { return QList<QUrl>{QUrl("file://" + root + "%ff.sh")}; }},
    {"OnlyToBeMoved", [](const QString& root) { return QList<QUrl>{local(root + "run.sh")}; },
     Qt::MoveAction},
};

INSTANTIATE_TEST_SUITE_P(Table, RejectedWellDrop, testing::ValuesIn(rejectedDrops),
                         NamedAfterRow());

TEST_F(WindowDropsTest, OfATextAreRejected) {
    QMimeData text;
    text.setText(path("run.sh"));
    EXPECT_FALSE(drop("agentTargetImageWell", text, Qt::CopyAction).taken);
    EXPECT_EQ(form().agentTargetImageWell.toolTip, "");
}

TEST_F(WindowDropsTest, ThePathOfVolumesCannotBeChanged) {
    show([](FormModel& model) {
        model.agentActionButton.selectedItem = AgentAction::VolumeMounted;
        model.agentWatchPathImageWell = {Image::resource("iconVolumes.png"), "/Volumes"};
    });
    EXPECT_FALSE(find("agentWatchPathImageWell")->acceptDrops());
    dropFile("agentWatchPathImageWell", "folder");
    EXPECT_EQ(form().agentWatchPathImageWell.toolTip, "/Volumes");
    watchPath();
    EXPECT_TRUE(find("agentWatchPathImageWell")->acceptDrops());
}

TEST_F(WindowDropsTest, AreNotAcceptedWhileASheetIsShown) {
    find<QAction>("about")->trigger();
    ASSERT_NE(queue.current(), nullptr);
    const auto [hovered, taken] = dropFile("agentTargetImageWell", "run.sh");
    EXPECT_FALSE(hovered || taken);
    EXPECT_EQ(form().agentTargetImageWell.toolTip, "");
    queue.current()->reject();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !queue.current(); }));
    EXPECT_TRUE(dropFile("agentTargetImageWell", "run.sh").taken);
}

TEST_F(WindowDropsTest, AnAcceptableDragIsHighlighted) {
    auto* well = find<ImageWellButton>("agentTargetImageWell");
    const auto edge = [well] {
        return well->grab().toImage().pixelColor(well->width() / 2, 0).rgb();
    };
    const auto enter = [&](const QString& name) {
        QMimeData data;
        data.setUrls({local(path(name))});
        QDragEnterEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(well, &event);
    };
    const auto leave = [&] {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(well, &event);
    };
    const QRgb accent = style::tokens(well->palette()).accent.rgb();
    EXPECT_NE(edge(), accent);
    enter("notes.txt");
    EXPECT_NE(edge(), accent) << "it would not be taken";
    leave();
    enter("run.sh");
    EXPECT_EQ(edge(), accent);
    leave();
    EXPECT_NE(edge(), accent);
    dropFile("agentTargetImageWell", "run.sh");
    EXPECT_NE(edge(), accent);
}

} // namespace
} // namespace frimbolate::test
