// The contract of each service, tested on the real one and on the scripted one of the scenarios, so
// that the scenarios can rely on the latter.
#include "core/named_error.h"
#include "posix/local_files.h"
#include "posix/path_folder_access.h"
#include "posix/plist_defaults.h"
#include "qt/qt_pasteboard.h"
#include "tests/support/recording_log.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/temporary_folder.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

using testing::ElementsAre;
using testing::IsEmpty;

const Dictionary agent = {{"Label", "com.frimbolate.Backup"},
                          {"Enabled", false},
                          {"Nice", -20},
                          {"ProgramArguments", Array{"/bin/sh", "-c", "a\rb & <c>"}}};

// The backends that the cases run on. Each has a folder for the files of the test.

class RealBackend {
  public:
    std::string path(const std::string& name) const { return folder_ / name; }
    std::string folder() const { return folder_.path(); }
    void putFolder(const std::string& name) { std::filesystem::create_directory(path(name)); }
    void removeFolder(const std::string& name) { std::filesystem::remove_all(path(name)); }
    void putGarbage(const std::string& name) { writeBytes(path(name), "rubbish"); }
    void forbidWriting(const std::string& path) { TemporaryFolder::forbidWriting(path); }
    template <typename Call>
    bool onFullDisk(Call call) {
        const FullDisk disk(20);
        return call();
    }

    Files& files() { return files_; }
    Defaults& defaults() { return defaults_; }
    FolderAccess& folderAccess() { return folderAccess_; }
    Pasteboard& pasteboard() { return pasteboard_; }
    std::string pasted() const { return QGuiApplication::clipboard()->text().toStdString(); }

  private:
    OrdinaryUser user_;
    TemporaryFolder folder_;
    RecordingLog log_;
    LocalFiles files_{log_};
    PlistDefaults defaults_{path("preferences.plist"), log_};
    PathFolderAccess folderAccess_;
    QtPasteboard pasteboard_;
};

class FakeBackend {
  public:
    FakeBackend() { platform_.files.folders.insert(folder()); }

    std::string path(const std::string& name) const { return folder() + "/" + name; }
    std::string folder() const { return "/Users/maya"; }
    void putFolder(const std::string& name) { platform_.files.folders.insert(path(name)); }
    void removeFolder(const std::string&) { platform_.folderAccess.resolutionFails = true; }
    void putGarbage(const std::string& name) { platform_.files.contents[path(name)] = {}; }
    void forbidWriting(const std::string& path) { platform_.files.readOnly.insert(path); }
    template <typename Call>
    bool onFullDisk(Call call) {
        platform_.files.diskIsFull = true;
        const bool result = call();
        platform_.files.diskIsFull = false;
        return result;
    }

    Files& files() { return platform_.files; }
    Defaults& defaults() { return platform_.defaults; }
    FolderAccess& folderAccess() { return platform_.folderAccess; }
    Pasteboard& pasteboard() { return platform_; }
    std::string pasted() const { return platform_.pasteboard; }

  private:
    ScriptedPlatform platform_;
};

template <typename Backend>
class FilesContract : public testing::Test {
  protected:
    Backend backend;
    Files& files = backend.files();
};
template <typename Backend>
class DefaultsContract : public testing::Test {
  protected:
    Backend backend;
    Defaults& defaults = backend.defaults();
};
template <typename Backend>
class FolderAccessContract : public testing::Test {
  protected:
    Backend backend;
    FolderAccess& access = backend.folderAccess();
};
template <typename Backend>
class PasteboardContract : public testing::Test {
  protected:
    Backend backend;
    Pasteboard& pasteboard = backend.pasteboard();
};

using Backends = testing::Types<RealBackend, FakeBackend>;
TYPED_TEST_SUITE(FilesContract, Backends);
TYPED_TEST_SUITE(DefaultsContract, Backends);
TYPED_TEST_SUITE(FolderAccessContract, Backends);
TYPED_TEST_SUITE(PasteboardContract, Backends);

// Files

TYPED_TEST(FilesContract, WhatIsNotThere) {
    const auto path = this->backend.path("a.plist");
    EXPECT_FALSE(this->files.exists(path));
    EXPECT_FALSE(this->files.isWritable(path));
    EXPECT_TRUE(this->files.remove(path));
    EXPECT_EQ(this->files.readDictionary(path), std::nullopt);
}

TYPED_TEST(FilesContract, ReadsWhatWasWritten) {
    for (const char* name : {"a.plist", "it's \"b\".plist", "line\nbreak", "😀", "e\u0301"}) {
        const auto path = this->backend.path(name);
        EXPECT_TRUE(this->files.writeDictionary(path, agent));
        EXPECT_TRUE(this->files.exists(path));
        EXPECT_TRUE(this->files.isWritable(path));
        EXPECT_EQ(this->files.readDictionary(path), agent);
    }
}

TYPED_TEST(FilesContract, WritesOverAnotherFile) {
    const auto path = this->backend.path("a.plist");
    this->backend.putGarbage("a.plist");
    EXPECT_TRUE(this->files.exists(path));
    EXPECT_EQ(this->files.readDictionary(path), std::nullopt);
    EXPECT_TRUE(this->files.writeDictionary(path, agent));
    EXPECT_TRUE(this->files.writeDictionary(path, {}));
    EXPECT_EQ(this->files.readDictionary(path), Dictionary{});
}

TYPED_TEST(FilesContract, Folders) {
    this->backend.putFolder("sub");
    const auto path = this->backend.path("sub");
    EXPECT_TRUE(this->files.exists(path));
    EXPECT_TRUE(this->files.isWritable(path));
    EXPECT_EQ(this->files.readDictionary(path), std::nullopt);
    EXPECT_FALSE(this->files.remove(path));
    EXPECT_TRUE(this->files.exists(path));
    EXPECT_TRUE(this->files.writeDictionary(path + "/a.plist", agent));
}

TYPED_TEST(FilesContract, RemovesAFile) {
    const auto path = this->backend.path("a.plist");
    EXPECT_TRUE(this->files.writeDictionary(path, agent));
    EXPECT_TRUE(this->files.remove(path));
    EXPECT_FALSE(this->files.exists(path));
    EXPECT_TRUE(this->files.remove(path)) << "it is gone";
}

TYPED_TEST(FilesContract, DoesNotMakeFolders) {
    EXPECT_FALSE(this->files.writeDictionary(this->backend.path("gone/a.plist"), agent));
    EXPECT_FALSE(this->files.exists(this->backend.path("gone")));
}

TYPED_TEST(FilesContract, ReadOnlyFolder) {
    const auto path = this->backend.path("a.plist");
    EXPECT_TRUE(this->files.writeDictionary(path, agent));
    this->backend.forbidWriting(this->backend.folder());
    EXPECT_FALSE(this->files.isWritable(this->backend.folder()));
    EXPECT_TRUE(this->files.isWritable(path));
    EXPECT_FALSE(this->files.writeDictionary(path, {}));
    EXPECT_FALSE(this->files.writeDictionary(this->backend.path("b.plist"), agent));
    EXPECT_EQ(this->files.readDictionary(path), agent);
}

TYPED_TEST(FilesContract, ReadOnlyFile) {
    const auto path = this->backend.path("a.plist");
    EXPECT_TRUE(this->files.writeDictionary(path, agent));
    this->backend.forbidWriting(path);
    EXPECT_FALSE(this->files.isWritable(path));
    EXPECT_EQ(this->files.readDictionary(path), agent);
}

TYPED_TEST(FilesContract, FullDisk) {
    const auto path = this->backend.path("a.plist");
    EXPECT_TRUE(this->files.writeDictionary(path, agent));
    EXPECT_FALSE(this->backend.onFullDisk([&] {
        return this->files.writeDictionary(path, {{"k", 1}});
    }));
    EXPECT_EQ(this->files.readDictionary(path), agent);
}

// Defaults

TYPED_TEST(DefaultsContract, IsEmptyAtFirst) {
    EXPECT_THAT(this->defaults.keys(), IsEmpty());
    EXPECT_EQ(this->defaults.object("a"), std::nullopt);
    this->defaults.remove("a");
    this->defaults.synchronize();
    EXPECT_THAT(this->defaults.keys(), IsEmpty());
}

TYPED_TEST(DefaultsContract, KeepsEveryKindAsItIs) {
    const Array values = {"text",
                          "",
                          true,
                          false,
                          1,
                          0,
                          -1.5,
                          std::numeric_limits<std::uint64_t>::max(),
                          Data{{0, 255}},
                          Date{981173106},
                          Value(Array{"a", Value(Array{})}),
                          Dictionary{{"k", 1}}};
    for (const Value& value : values) {
        this->defaults.set("key", value);
        EXPECT_EQ(this->defaults.object("key"), value);
        this->defaults.synchronize();
        EXPECT_EQ(this->defaults.object("key"), value);
    }
    EXPECT_THAT(this->defaults.keys(), ElementsAre("key"));
}

TYPED_TEST(DefaultsContract, SetsAndRemoves) {
    this->defaults.set("b", "2");
    this->defaults.set("a", "1");
    this->defaults.set("c", "3");
    EXPECT_THAT(this->defaults.keys(), ElementsAre("a", "b", "c"));
    this->defaults.remove("b");
    EXPECT_EQ(this->defaults.object("b"), std::nullopt);
    EXPECT_THAT(this->defaults.keys(), ElementsAre("a", "c"));
    for (const auto& key : this->defaults.keys())
        this->defaults.remove(key);
    this->defaults.synchronize();
    EXPECT_THAT(this->defaults.keys(), IsEmpty());
}

TYPED_TEST(DefaultsContract, KeysAreExact) {
    this->defaults.set("Key", "1");
    EXPECT_EQ(this->defaults.object("key"), std::nullopt);
    EXPECT_EQ(this->defaults.object("Key "), std::nullopt);
    EXPECT_EQ(this->defaults.object("Key"), Value("1"));
}

// Folder access

TYPED_TEST(FolderAccessContract, FindsTheFolderAgain) {
    for (const char* name : {"LaunchAgents", "it's \"this\"", "😀\n"}) {
        this->backend.putFolder(name);
        const auto path = this->backend.path(name);
        EXPECT_EQ(this->access.resolve(this->access.createBookmark(path)), path);
    }
}

TYPED_TEST(FolderAccessContract, AFolderThatIsGone) {
    this->backend.putFolder("sub");
    const auto bookmark = this->access.createBookmark(this->backend.path("sub"));
    this->backend.removeFolder("sub");
    EXPECT_EQ(this->access.resolve(bookmark), std::nullopt);
}

TYPED_TEST(FolderAccessContract, RenewsNoFreshBookmark) {
    this->backend.putFolder("sub");
    const auto path = this->backend.path("sub");
    ASSERT_EQ(this->access.resolve(this->access.createBookmark(path)), path);
    this->access.begin(path);
    EXPECT_EQ(this->access.renewedBookmark(path), std::nullopt);
    this->access.end(path);
}

TYPED_TEST(FolderAccessContract, BeginsAndEndsOnNothing) {
    const std::optional<std::string> nothing;
    EXPECT_NO_THROW(this->access.begin(nothing));
    EXPECT_NO_THROW(this->access.end(nothing));
    EXPECT_NO_THROW(this->access.begin(this->backend.folder()));
    EXPECT_NO_THROW(this->access.end(this->backend.folder()));
}

// Pasteboard

TYPED_TEST(PasteboardContract, HoldsTheTextThatWasSetLast) {
    this->pasteboard.setString("earlier");
    for (const std::string& text :
         {"launchctl load '/a b/é😀.plist'"s, "two\nlines\t"s, "'\"`$"s, "\r \r\n \n\r"s,
          "\u00a0 \u2028 \u2029 \u0085 \ufeff"s, "a\0\x01\x1b\x7f"s, " \n "s, ""s}) {
        this->pasteboard.clearContents();
        EXPECT_EQ(this->backend.pasted(), "");
        this->pasteboard.setString(text);
        EXPECT_EQ(this->backend.pasted(), text);
    }
}

} // namespace

} // namespace frimbolate::test
