// The metadata that a replaced file keeps. Each test compares before and after, so it also holds
// where the file system keeps no lists or attributes or the user may not change the owner.
#include "posix/atomic_file.h"
#include "tests/posix/failing_calls.h"
#include "tests/support/file_status.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <memory>
#include <sys/acl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <type_traits>
#include <utility>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

struct FreeList {
    void operator()(acl_t list) const { ::acl_free(list); }
};
using List = std::unique_ptr<std::remove_pointer_t<acl_t>, FreeList>;

bool setList(const std::string& path, const char* text, acl_type_t type = ACL_TYPE_ACCESS) {
    const List list(::acl_from_text(text));
    return list && ::acl_set_file(path.c_str(), type, list.get()) == 0;
}

std::string listText(const List& list) {
    char* text = list ? ::acl_to_text(list.get(), nullptr) : nullptr;
    if (!text)
        return "";
    const std::string result = text;
    ::acl_free(text);
    return result;
}
std::string listText(const char* list) { return listText(List(::acl_from_text(list))); }

/// The access control list of a file, made from its mode where it has none. Empty where the file
/// system keeps no lists.
std::string listOf(const std::string& path) {
    return listText(List(::acl_get_file(path.c_str(), ACL_TYPE_ACCESS)));
}

std::map<std::string, std::string> attributesOf(const std::string& path) {
    std::string names(65536, '\0');
    const auto size = ::listxattr(path.c_str(), names.data(), names.size());
    names.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    std::map<std::string, std::string> result;
    for (std::size_t start = 0; start < names.size(); start += std::strlen(&names[start]) + 1) {
        std::string value(65536, '\0');
        const auto length = ::getxattr(path.c_str(), &names[start], value.data(), value.size());
        value.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
        result[&names[start]] = value;
    }
    return result;
}

struct stat statusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status;
}

class FileMetadata : public testing::Test {
  protected:
    FileMetadata() { writeBytes(file, "before"); }
    void write() {
        EXPECT_EQ(writeFileAtomically(file, "after"), std::nullopt);
        EXPECT_EQ(bytesOf(file), "after");
    }
    void expectSameListAfterWriting() {
        const auto list = listOf(file);
        const auto mode = statusOf(file).st_mode;
        write();
        EXPECT_EQ(listOf(file), list);
        EXPECT_EQ(statusOf(file).st_mode, mode);
    }

    TemporaryFolder folder;
    std::string file = folder / "a.plist";
};

TEST_F(FileMetadata, TheModeKeepsOnlyTheBitsThatItMay) {
    constexpr mode_t keptMode = 07755;
    for (const mode_t mode : {mode_t{0666}, mode_t{0620}, mode_t{0600}, mode_t{0711}}) {
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        EXPECT_EQ(writeFileAtomically(file, "after", 0644, keptMode), std::nullopt);
        EXPECT_EQ(statusOf(file).st_mode & 07777, mode & keptMode);
    }
    ASSERT_TRUE(setList(file, "u::rw,u:4321:rw,g::rw,m::rw,o::rw"));
    EXPECT_EQ(writeFileAtomically(file, "after", 0644, keptMode), std::nullopt);
    EXPECT_EQ(listOf(file), listText("u::rw,u:4321:rw,g::rw,m::r,o::r"))
        << "the mask holds for the named user and the group";
}

TEST_F(FileMetadata, TheListStays) {
    for (const char* list :
         {"u::rw-,u:12345:r--,g::r--,g:12346:rwx,m::rwx,o::---",
          "u::r--,u:12345:---,g::rw-,m::rw-,o::r--", "u::rw-,g::r--,g:12346:rwx,m::r--,o::r--"}) {
        setList(file, list);
        expectSameListAfterWriting();
    }
}

TEST_F(FileMetadata, TheFolderHandsNoListDown) {
    setList(folder.path(), "u::rwx,u:12345:rwx,g::r-x,m::rwx,o::r-x", ACL_TYPE_DEFAULT);
    for (const mode_t mode : {0600U, 0664U, 0777U}) {
        setList(file, "u::rw-,g::r--,o::---"); // none beyond the mode
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        expectSameListAfterWriting();
    }
}

TEST_F(FileMetadata, AnotherOwnerWidensNoRights) {
    const char* list = "u::r--,u:12346:rw-,g::rw-,m::rw-,o::r--";
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
    const bool isGiven = ::chown(file.c_str(), anotherUser, anotherUser) == 0;
    const bool isListed = setList(file, list);
    const auto before = listOf(file);
    const OrdinaryUser user;
    write();
    const bool isNarrowed = isGiven && isListed;
    EXPECT_EQ(listOf(file),
              isNarrowed ? listText("u::r--,u:12346:rw-,g::---,m::r--,o::r--") : before);
    EXPECT_EQ(statusOf(file).st_uid, ::geteuid());
}

TEST_F(FileMetadata, AttributesOfTheOldContentDoNotStay) {
    // Only the administrator may set these.
    ::setxattr(file.c_str(), "trusted.frimbolate", "x", 1, 0);
    const auto attributes = attributesOf(file);
    ::setxattr(file.c_str(), "trusted.overlay.frimbolate", "x", 1, 0);
    write();
    EXPECT_EQ(attributesOf(file), attributes);
}

TEST(FileMetadataOfOrdinaryUser, AttributesStay) {
    const OrdinaryUser user;
    const TemporaryFolder folder;
    const std::string file = folder / "a.plist";
    writeBytes(file, "before");
    const std::string values[] = {"tag", "", "a\0b"s, std::string(2000, 'x')};
    int number = 0;
    for (const auto& value : values)
        ::setxattr(file.c_str(), ("user.frimbolate." + std::to_string(++number)).c_str(),
                   value.data(), value.size(), 0);
    // 0444: writing attributes needs the right to write, which the owner lacks here.
    for (const mode_t mode : {0644U, 0444U}) {
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        const auto attributes = attributesOf(file);
        EXPECT_EQ(writeFileAtomically(file, "after"), std::nullopt);
        EXPECT_EQ(attributesOf(file), attributes);
        EXPECT_EQ(statusOf(file).st_mode & 07777, mode);
    }
}

TEST(FileMetadataOfOrdinaryUser, RightsThatCannotBeReadAreTheOwnersAlone) {
    const OrdinaryUser user;
    const TemporaryFolder folder;
    const std::string file = folder / "a.plist";
    writeBytes(file, "before");
    setList(folder.path(), "u::rwx,u:12345:rwx,g::r-x,m::rwx,o::r-x", ACL_TYPE_DEFAULT);
    ASSERT_EQ(::chmod(file.c_str(), 0266), 0);
    EXPECT_EQ(writeFileAtomically(file, "after"), std::nullopt);
    EXPECT_EQ(statusOf(file).st_mode & 07777, 0200U);
}

TEST(FileMetadataWithoutLists, TheModeTellsAllRightsWhereTheFileSystemKeepsNoLists) {
    const TemporaryFolder folder;
    const std::string file = folder / "a.plist";
    writeBytes(file, "before");
    ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
    for (const auto& [error, mode] : {std::pair(ENOTSUP, 0644U), std::pair(EACCES, 0600U)}) {
        const UnreadableAccessLists lists(error);
        EXPECT_EQ(writeFileAtomically(file, "after"), std::nullopt);
        EXPECT_EQ(statusOf(file).st_mode & 07777, mode);
    }
    // A fault can be gone the next time: it costs no rights.
    const UnreadableAccessLists lists(EIO);
    EXPECT_NE(writeFileAtomically(file, "last"), std::nullopt);
    EXPECT_EQ(bytesOf(file), "after");
}

} // namespace

} // namespace frimbolate::test
