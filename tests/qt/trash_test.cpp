// The contract of the trash, tested on the real and the scripted one. The real one is kept in a
// temporary folder, so the trash of the user is not touched.
#include "posix/local_files.h"
#include "qt/qt_trash.h"
#include "tests/support/recording_log.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/variable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;
using testing::StartsWith;

const Dictionary trashedAgent = {{"Label", "com.frimbolate.Backup"}};
const Dictionary another = {{"Label", "com.frimbolate.Another"}};

class RealTrash {
  public:
    RealTrash() {
        std::filesystem::create_directory(path("home"));
        // A file that is moved to a relative path by mistake must stay in the temporary folder.
        std::filesystem::current_path(folder_.path());
    }
    RealTrash(const RealTrash&) = delete;
    RealTrash& operator=(const RealTrash&) = delete;
    ~RealTrash() { std::filesystem::current_path(startFolder_); }

    std::string path(const std::string& name) const { return folder_ / name; }
    std::string trashFolder() const { return path("home/data/Trash/files"); }
    void putFolder(const std::string& name) { std::filesystem::create_directory(path(name)); }
    void refuse() { writeBytes(path("home/data"), "no folder can be made here"); }

    Files& files() { return files_; }
    Trash& trash() { return trash_; }

  private:
    std::filesystem::path startFolder_ = std::filesystem::current_path();
    OrdinaryUser user_;
    TemporaryFolder folder_;
    // HOME as well: the trash of the home serves only files on the disk of the home.
    Variable home_{"HOME", path("home")};
    Variable data_{"XDG_DATA_HOME", path("home/data")};
    RecordingLog log_;
    LocalFiles files_{log_};
    QtTrash trash_;
};

class FakeTrash {
  public:
    FakeTrash() { platform_.files.folders.insert("/Users/maya"); }

    std::string path(const std::string& name) const { return "/Users/maya/" + name; }
    std::string trashFolder() const { return ScriptedTrash::folder; }
    void putFolder(const std::string& name) { platform_.files.folders.insert(path(name)); }
    void refuse() { platform_.trash.refuses = true; }

    Files& files() { return platform_.files; }
    Trash& trash() { return platform_.trash; }

  private:
    ScriptedPlatform platform_;
};

template <typename Backend>
class TrashContract : public testing::Test {
  protected:
    Backend backend;
    Files& files = backend.files();
    Trash& trash = backend.trash();
    std::string path = backend.path("com.fr\u0131mbolate.it's 100%.plist");
};

using TrashBackends = testing::Types<RealTrash, FakeTrash>;
TYPED_TEST_SUITE(TrashContract, TrashBackends);

TYPED_TEST(TrashContract, KeepsTheFileAndTellsWhere) {
    ASSERT_TRUE(this->files.writeDictionary(this->path, trashedAgent));
    const auto place = this->trash.moveToTrash(this->path);
    EXPECT_FALSE(this->files.exists(this->path));
    ASSERT_TRUE(place);
    EXPECT_THAT(*place, StartsWith(this->backend.trashFolder() + "/"));
    EXPECT_EQ(this->files.readDictionary(*place), trashedAgent);
}

TYPED_TEST(TrashContract, KeepsFilesOfOneNameApart) {
    ASSERT_TRUE(this->files.writeDictionary(this->path, trashedAgent));
    const auto first = this->trash.moveToTrash(this->path);
    ASSERT_TRUE(this->files.writeDictionary(this->path, another));
    const auto second = this->trash.moveToTrash(this->path);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(this->files.readDictionary(*first), trashedAgent);
    EXPECT_EQ(this->files.readDictionary(*second), another);
}

TYPED_TEST(TrashContract, LeavesTheFileWhereItRefuses) {
    ASSERT_TRUE(this->files.writeDictionary(this->path, trashedAgent));
    this->backend.refuse();
    EXPECT_EQ(this->trash.moveToTrash(this->path), std::nullopt);
    EXPECT_EQ(this->files.readDictionary(this->path), trashedAgent);
}

TYPED_TEST(TrashContract, TakesNoFolder) {
    this->backend.putFolder("bundle.app");
    EXPECT_EQ(this->trash.moveToTrash(this->backend.path("bundle.app")), std::nullopt);
    EXPECT_TRUE(this->files.exists(this->backend.path("bundle.app")));
}

TYPED_TEST(TrashContract, TakesNothingWhereNothingIs) {
    EXPECT_EQ(this->trash.moveToTrash(this->path), std::nullopt);
}

class QtTrashTest : public testing::Test {
  protected:
    RealTrash backend;
};

TEST_F(QtTrashTest, RemembersWhereTheFileWas) {
    writeBytes(backend.path("agent.plist"), "x");
    const auto place = backend.trash().moveToTrash(backend.path("agent.plist"));
    ASSERT_TRUE(place);
    EXPECT_EQ(std::filesystem::status(backend.path("home/data/Trash")).permissions(),
              std::filesystem::perms::owner_all);
    const std::filesystem::path file(*place);
    const auto info =
        file.parent_path().parent_path() / "info" / (file.filename().string() + ".trashinfo");
    EXPECT_THAT(bytesOf(info.string()), HasSubstr("\nPath=" + backend.path("agent.plist") + "\n"));
}

TEST_F(QtTrashTest, LeavesTheFileWhereTheTrashMayNotBeWritten) {
    writeBytes(backend.path("agent.plist"), "x");
    ASSERT_TRUE(std::filesystem::create_directories(backend.path("home/data/Trash")));
    TemporaryFolder::forbidWriting(backend.path("home/data/Trash"));
    EXPECT_EQ(backend.trash().moveToTrash(backend.path("agent.plist")), std::nullopt);
    EXPECT_EQ(bytesOf(backend.path("agent.plist")), "x");
}

TEST_F(QtTrashTest, TakesALinkAndNotItsTarget) {
    writeBytes(backend.path("target"), "x");
    backend.putFolder("bundle.app");
    for (const char* target : {"target", "bundle.app"}) {
        std::filesystem::create_symlink(target, backend.path("link"));
        const auto place = backend.trash().moveToTrash(backend.path("link"));
        ASSERT_TRUE(place) << target;
        EXPECT_EQ(std::filesystem::read_symlink(*place), target);
        EXPECT_FALSE(std::filesystem::is_symlink(backend.path("link")));
        EXPECT_TRUE(std::filesystem::exists(backend.path(target)));
    }
}

TEST_F(QtTrashTest, TakesNoPathThatItCannotSpell) {
    writeBytes(backend.path("a"), "x");
    writeBytes(backend.path("\xff"), "x");
    writeBytes(backend.path("\ufffd"), "x");
    EXPECT_EQ(backend.trash().moveToTrash(backend.path("a") + "\0b"s), std::nullopt);
    EXPECT_EQ(backend.trash().moveToTrash(backend.path("\xff")), std::nullopt);
    EXPECT_EQ(bytesOf(backend.path("a")), "x");
    EXPECT_EQ(bytesOf(backend.path("\xff")), "x");
    EXPECT_EQ(bytesOf(backend.path("\ufffd")), "x");
}

} // namespace

} // namespace frimbolate::test
