#include "posix/atomic_file.h"
#include "posix/symbolic_links.h"
#include "tests/support/file_status.h"
#include "tests/support/rows.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace frimbolate::test {

namespace {

struct LinkRow {
    const char* name;
    LinkContext context;
    bool followed;
};

class MayFollowLink : public testing::TestWithParam<LinkRow> {};

TEST_P(MayFollowLink, AsTheKernelDoes) {
    EXPECT_EQ(mayFollowLink(GetParam().context), GetParam().followed);
}

const LinkRow links[] = {{"AnothersInOpenStickyFolder", {1, 2, 3, 01777}, false},
                         {"AnothersForRootToo", {0, 2, 3, 01777}, false},
                         {"RootsInAnothersFolder", {1, 0, 3, 01777}, false},
                         {"OwnInOpenStickyFolder", {1, 1, 3, 01777}, true},
                         {"OfTheFoldersOwner", {1, 3, 3, 01777}, true},
                         {"InOwnFolder", {1, 2, 1, 01777}, false},
                         {"InStickyFolderOfAGroup", {1, 2, 3, 01775}, true},
                         {"InOpenFolderWithoutStickyBit", {1, 2, 3, 0777}, true},
                         {"InOrdinaryFolder", {1, 2, 3, 0755}, true},
                         {"OpenToWriteAlone", {1, 2, 3, S_IFDIR | 01702}, false}};
INSTANTIATE_TEST_SUITE_P(Rows, MayFollowLink, testing::ValuesIn(links), NamedAfterRow());

class SymbolicLinks : public testing::Test {
  protected:
    SymbolicLinks() {
        std::filesystem::create_directory(shared);
        std::filesystem::create_directory(folder / "private");
        writeBytes(target, "before");
        EXPECT_EQ(::chmod(shared.c_str(), 01777), 0);
        EXPECT_EQ(::chmod((folder / "private").c_str(), 0755), 0);
    }
    /// Makes a link and gives it to another user where the test may change owners.
    /// \returns whether it belongs to the other user
    static bool putLink(const std::string& text, const std::string& path) {
        std::filesystem::create_symlink(text, path);
        return ::lchown(path.c_str(), anotherUser, anotherUser) == 0;
    }
    void expectRefusedIf(bool given, const std::string& path) {
        const auto reason = writeFileAtomically(path, "after");
        EXPECT_EQ(reason.value_or(""),
                  given ? "it is a link of another user in a folder that everybody may write to"
                        : "");
        EXPECT_EQ(bytesOf(target), given ? "before" : "after");
        EXPECT_TRUE(std::filesystem::is_symlink(path));
    }

    TemporaryFolder folder;
    std::string shared = folder / "open";
    std::string target = folder / "target";
};

TEST_F(SymbolicLinks, OfAnotherUserAreNotFollowedInASharedFolder) {
    expectRefusedIf(putLink(target, shared + "/link"), shared + "/link");
}

TEST_F(SymbolicLinks, OfAnotherUserAreNotFollowedFromALinkEither) {
    const bool given = putLink("../target", shared + "/link");
    std::filesystem::create_symlink("../open/link", folder / "private/link");
    expectRefusedIf(given, folder / "private/link");
}

TEST_F(SymbolicLinks, OfTheUserAreFollowedInASharedFolder) {
    std::filesystem::create_symlink(target, shared + "/link");
    expectRefusedIf(false, shared + "/link");
}

TEST_F(SymbolicLinks, OfAnotherUserAreFollowedElsewhere) {
    putLink(target, folder / "private/link");
    expectRefusedIf(false, folder / "private/link");
}

TEST_F(SymbolicLinks, LeadToWhatIsNotThereYet) {
    putLink("../gone/file", folder / "private/link");
    const auto resolved = resolveLinks(folder / "private/link");
    EXPECT_EQ(resolved.place.folder, folder / "private/../gone/");
    EXPECT_EQ(resolved.place.name, "file");
    EXPECT_EQ(resolved.rejectionReason, "");
}

} // namespace

} // namespace frimbolate::test
