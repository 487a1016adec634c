// Faults that once lost something or told the wrong result, each by its name.
#include "cli/command_line.h"
#include "plist/xml_writer.h"
#include "posix/atomic_file.h"
#include "posix/local_files.h"
#include "posix/plist_defaults.h"
#include "tests/cli/terminal_run.h"
#include "tests/faults/one_fault.h"
#include "tests/support/child_process.h"
#include "tests/support/file_status.h"
#include "tests/support/recording_log.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/xattr.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SingleFault : public testing::Test {
  protected:
    void putOld(mode_t mode = 0644) {
        writeBytes(file, "old");
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
    }
    std::optional<std::string> write(std::string_view function, FaultKind kind,
                                     std::uint32_t call = 1) {
        const OneFault fault(folder.path(), function, kind, call);
        auto reason = writeFileAtomically(file, "new");
        EXPECT_TRUE(fault.tookPlace());
        return reason;
    }

    TemporaryFolder folder;
    RecordingLog log;
    std::string file = folder / "a.plist";
};

TEST_F(SingleFault, AMoveThatWasDoneIsASuccess) {
    putOld();
    EXPECT_EQ(write("renameat", FaultKind::doneButError), std::nullopt);
    EXPECT_EQ(bytesOf(file), "new");
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
}

TEST_F(SingleFault, ATemporaryFileThatWasMadeIsRemoved) {
    EXPECT_EQ(write("openat", FaultKind::doneButError, 2), "Input/output error");
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(SingleFault, AWriteOfNothingHasAReason) {
    EXPECT_EQ(write("write", FaultKind::zeroTransfer), "Input/output error");
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(SingleFault, TheNextSaveRemovesWhatAKilledOneLeft) {
    putOld();
    const int status = statusOfChild([this] {
        write("fsync", FaultKind::killBefore);
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(folder.names().size(), 2U);
    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(writeFileAtomically(folder / "b.plist", "x"), std::nullopt);
    EXPECT_THAT(folder.names(), ElementsAre("a.plist", "b.plist"));
}

/// Too many open files are no reason to lose the rights of others and the attributes.
TEST_F(SingleFault, AnOriginalThatCannotBeOpenedForAFaultRefusesTheSave) {
    for (const FaultKind kind :
         {FaultKind::tooManyOpen, FaultKind::inputOutput, FaultKind::interrupted}) {
        putOld();
        EXPECT_NE(write("openat", kind, 2), std::nullopt);
        EXPECT_EQ(bytesOf(file), "old");
        EXPECT_EQ(modeOfFile(file), 0644U);
        EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
    }
}

TEST_F(SingleFault, AnAttributeThatFindsNoSpaceRefusesTheSave) {
    putOld();
    ::setxattr(file.c_str(), "user.tag", "green", 5, 0); // the lists are attributes, too
    for (const char* function : {"fsetxattr", "fgetxattr", "flistxattr", "fchown", "fchmod"}) {
        EXPECT_NE(write(function, FaultKind::noSpace), std::nullopt) << function;
        EXPECT_EQ(bytesOf(file), "old");
        EXPECT_EQ(modeOfFile(file), 0644U);
    }
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
}

TEST_F(SingleFault, ThePreferencesThatEndEarlyAreNotSetAside) {
    writeBytes(file, xmlPropertyList({{"a", 1}}));
    const auto before = bytesOf(file);
    {
        const OneFault fault(folder.path(), "read", FaultKind::zeroTransfer);
        PlistDefaults defaults(file, log);
        EXPECT_TRUE(fault.tookPlace());
    }
    EXPECT_THAT(log.lines, ElementsAre("Could not read the preferences " + file +
                                       ": it became shorter while it was read"));
    EXPECT_EQ(bytesOf(file), before);
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
}

TEST_F(SingleFault, DamagedPreferencesKeepTheirLastName) {
    writeBytes(file, "rubbish");
    const OneFault fault(folder.path(), "unlink", FaultKind::doneButError);
    const PlistDefaults defaults(file, log);
    EXPECT_TRUE(fault.tookPlace());
    EXPECT_EQ(bytesOf(folder / "a.damaged-1.plist"), "rubbish");
}

TEST_F(SingleFault, DamagedPreferencesAreSetAsideOnce) {
    writeBytes(file, "rubbish");
    const int status = statusOfChild([this] {
        const OneFault fault(folder.path(), "unlink", FaultKind::killBefore);
        const PlistDefaults defaults(file, log);
        return 0;
    });
    ASSERT_TRUE(WIFSIGNALED(status));
    PlistDefaults(file, log).set("a", 1);
    EXPECT_THAT(folder.names(), ElementsAre("a.damaged-1.plist", "a.plist", "a.plist.lock"));
}

TEST_F(SingleFault, ARemovalIsToldAsItWent) {
    LocalFiles files(log);
    putOld();
    {
        const OneFault fault(folder.path(), "unlink", FaultKind::doneButError);
        EXPECT_TRUE(files.remove(file)) << "it is gone";
    }
    putOld();
    const OneFault fault(folder.path(), "lstat", FaultKind::inputOutput);
    EXPECT_FALSE(files.remove(file)) << "nobody knows";
    EXPECT_EQ(bytesOf(file), "old");
}

TEST_F(SingleFault, AFileThatCannotBeLookedAtIsNotReplaced) {
    putOld();
    const OneFault fault(folder.path(), "stat", FaultKind::inputOutput);
    const auto result =
        run({"new", "--name", "Backup", "--script", "true", "--at-load", "--output", file});
    EXPECT_EQ(result.code, ExitCode::Failed);
    EXPECT_EQ(bytesOf(file), "old");
}

} // namespace

} // namespace frimbolate::test
