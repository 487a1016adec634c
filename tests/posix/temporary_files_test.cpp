#include "posix/atomic_file.h"
#include "posix/file_descriptor.h"
#include "posix/temporary_files.h"
#include "tests/support/rows.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct NameRow {
    const char* name;
    const char* file;
    bool isTemporary;
};

class TemporaryName : public testing::TestWithParam<NameRow> {};

TEST_P(TemporaryName, IsKnown) {
    EXPECT_EQ(isTemporaryName(GetParam().file), GetParam().isTemporary);
}

const NameRow names[] = {{"Proper", ".frimbolate-0123456789abcdef", true},
                         {"Empty", "", false},
                         {"PrefixAlone", ".frimbolate-", false},
                         {"Shorter", ".frimbolate-0123456789abcde", false},
                         {"Longer", ".frimbolate-0123456789abcdef0", false},
                         {"CapitalLetters", ".frimbolate-0123456789ABCDEF", false},
                         {"NoDigit", ".frimbolate-0123456789abcdeg", false},
                         {"NotHidden", "-frimbolate-0123456789abcdef", false},
                         {"Suffix", ".frimbolate-0123456789ab.txt", false},
                         {"OtherPrefix", ".frımbolate-123456789abcdef", false}};
INSTANTIATE_TEST_SUITE_P(Rows, TemporaryName, testing::ValuesIn(names), NamedAfterRow());

constexpr std::time_t now = 1'800'000'000;
constexpr std::time_t day = 24 * 60 * 60;
const std::string leftOver = ".frimbolate-0123456789abcdef";

class TemporaryFiles : public testing::Test {
  protected:
    void setAge(const std::string& name, std::time_t seconds) {
        const timespec time{now - seconds, 0};
        const timespec times[2] = {time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, (folder / name).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    }
    void put(const std::string& name, std::time_t age) {
        writeBytes(folder / name, "half of an agent");
        setAge(name, age);
    }
    std::set<std::string> namesAfterRemoval() {
        const FileDescriptor open(::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY));
        removeAbandonedFiles(open.number(), now);
        return folder.names();
    }

    TemporaryFolder folder;
};

TEST_F(TemporaryFiles, HaveNamesOfTheirOwn) {
    const auto first = temporaryName();
    EXPECT_TRUE(isTemporaryName(first)) << first;
    EXPECT_NE(temporaryName(), first);
}

TEST_F(TemporaryFiles, AreRemovedUnlessASaveHoldsThem) {
    for (const std::time_t age : {std::time_t{0}, -day, day, 30 * day}) {
        put(leftOver, age);
        {
            const FileDescriptor held(::open((folder / leftOver).c_str(), O_WRONLY));
            ASSERT_EQ(lockTemporaryFile(held.number()), TemporaryLock::held);
            EXPECT_THAT(namesAfterRemoval(), ElementsAre(leftOver));
        }
        EXPECT_THAT(namesAfterRemoval(), IsEmpty()) << age;
    }
}

TEST(TemporaryFilesOfOrdinaryUser, AreRemovedAfterADayWhereTheyCannotBeLocked) {
    const OrdinaryUser user;
    const TemporaryFolder folder;
    const auto namesAfter = [&](std::time_t age) {
        writeBytes(folder / leftOver, "half of an agent");
        const std::array<timespec, 2> times = {timespec{now - age, 0}, timespec{now - age, 0}};
        EXPECT_EQ(::utimensat(AT_FDCWD, (folder / leftOver).c_str(), times.data(), 0), 0);
        EXPECT_EQ(::chmod((folder / leftOver).c_str(), 0), 0);
        const FileDescriptor open(::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY));
        removeAbandonedFiles(open.number(), now);
        auto rest = folder.names();
        std::filesystem::remove(folder / leftOver);
        return rest;
    };
    EXPECT_THAT(namesAfter(day), ElementsAre(leftOver));
    EXPECT_THAT(namesAfter(day + 1), IsEmpty());
}

TEST_F(TemporaryFiles, StayUnderOtherNames) {
    for (const char* name : {"com.frimbolate.Backup.plist", ".frimbolate-0123456789abcde",
                             ".frimbolate-0123456789abcdef0", ".hidden"})
        put(name, 30 * day);
    const auto before = folder.names();
    EXPECT_EQ(namesAfterRemoval(), before);
}

TEST_F(TemporaryFiles, StayWhenTheyAreNoFiles) {
    put("target", 30 * day);
    std::filesystem::create_symlink("target", folder / ".frimbolate-0000000000000001");
    std::filesystem::create_directory(folder / ".frimbolate-0000000000000002");
    ASSERT_EQ(::mkfifo((folder / ".frimbolate-0000000000000003").c_str(), 0600), 0);
    for (const char digit : {'1', '2', '3'})
        setAge(std::string(".frimbolate-000000000000000") + digit, 30 * day);
    const auto before = folder.names();
    EXPECT_EQ(namesAfterRemoval(), before);
}

TEST_F(TemporaryFiles, StayWhenTheyBelongToAnotherUser) {
    put(leftOver, 30 * day);
    if (::chown((folder / leftOver).c_str(), 12345, 12345) == 0)
        EXPECT_THAT(namesAfterRemoval(), ElementsAre(leftOver));
    else // An ordinary user cannot make a file of another user, and its own one is removed.
        EXPECT_THAT(namesAfterRemoval(), IsEmpty());
}

TEST_F(TemporaryFiles, AreRemovedByTheNextSaveInTheFolder) {
    put(leftOver, 0);
    EXPECT_EQ(writeFileAtomically(folder / "a.plist", "x"), std::nullopt);
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
}

} // namespace

} // namespace frimbolate::test
