#include "tests/widgets/file_panel_fixture.h"

#include <QApplication>

namespace frimbolate {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct SaveRow {
    const char* name;
    const char* preset;
};
const SaveRow saveRows[] = {
    {"Plain", "com.frimbolate.backup.plist"},
    {"WithoutSuffix", "backup"},
    {"OtherSuffix", "backup.tar.gz"},
    {"Blanks", " a name with blanks "},
    {"SingleQuote", "it's.plist"},
    {"DoubleQuotes", "a \"quoted\" name.plist"},
    {"LineBreak", "two\nlines.plist"},
    {"Emoji", "backup 🚀.plist"},
    {"Ampersand", "this & that.plist"},
    {"OtherScript", "резервная копия.plist"},
};

class SavePreset : public FilePanel, public testing::WithParamInterface<SaveRow> {};

TEST_P(SavePreset, IsReturnedUnchanged) {
    save(named(GetParam().preset));
    EXPECT_EQ(nameField()->text().toStdString(), GetParam().preset);
    click(dialog, "Save");
    ASSERT_TRUE(journalReaches(3));
    settle();
    EXPECT_THAT(journal, ElementsAre(path(GetParam().preset), GetParam().preset, "afterwards"));
}
INSTANTIATE_TEST_SUITE_P(Table, SavePreset, testing::ValuesIn(saveRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(FilePanel, SavesIntoAnotherFolder) {
    save({});
    type("folder/new.plist");
    click(dialog, "Save");
    ASSERT_TRUE(journalReaches(3));
    EXPECT_THAT(journal, ElementsAre(path("folder/new.plist"), "new.plist", "afterwards"));
}

TEST_F(FilePanel, AsksBeforeItReplaces) {
    save(named("agent.plist"));
    click(dialog, "Save");
    AlertDialog* question = replaceAlert();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), question);
    EXPECT_THAT(question->findChild<WrappedText*>("messageText")->text().toStdString(),
                HasSubstr("agent.plist"));
    EXPECT_TRUE(button(question, "Cancel")->isDefault()) << "Return loses nothing";
    click(question, "Cancel");
    settle();
    EXPECT_THAT(journal, ElementsAre());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(replaceAlert(), nullptr);

    click(dialog, "Save");
    click(replaceAlert(), "Replace");
    ASSERT_TRUE(journalReaches(3));
    settle();
    EXPECT_THAT(journal, ElementsAre(path("agent.plist"), "agent.plist", "afterwards"));
}

TEST_F(FilePanel, KeepsTheFileIfTheQuestionIsEscaped) {
    save(named("agent.plist"));
    for (const bool closed : {false, true}) {
        click(dialog, "Save");
        AlertDialog* question = replaceAlert();
        ASSERT_NE(question, nullptr);
        if (closed)
            question->close();
        else
            QTest::keyClick(question, Qt::Key_Escape);
        settle();
        EXPECT_THAT(journal, ElementsAre());
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(replaceAlert(), nullptr);
    }
}

TEST_F(FilePanel, HasATitleThatNamesWhatItSaves) {
    save(named("agent.plist"));
    EXPECT_EQ(dialog->windowTitle(), "Save agent.plist");
}

TEST_F(FilePanel, EntersAFolderTypedAsName) {
    save(named("folder"));
    click(dialog, "Save");
    settle();
    EXPECT_THAT(journal, ElementsAre());
    EXPECT_EQ(dialog->directory().dirName(), "folder");
}

TEST_F(FilePanel, RejectsAPathInAMissingFolder) {
    save(named("missing/new.plist"));
    click(dialog, "Save");
    settle();
    EXPECT_THAT(rejectionReason(), HasSubstr("missing"));
    EXPECT_THAT(journal, ElementsAre());
}

TEST_F(FilePanel, RejectsANameThatIsTooLong) {
    save(named(std::string(256, 'x')));
    click(dialog, "Save");
    settle();
    EXPECT_THAT(rejectionReason(), HasSubstr("too long"));
    EXPECT_THAT(journal, ElementsAre());
}

TEST_F(FilePanel, CannotSaveWithoutAName) {
    save({});
    type("");
    EXPECT_FALSE(button(dialog, "Save")->isEnabled());
}

} // namespace
} // namespace frimbolate
