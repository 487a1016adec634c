// Preferences that several processes share through one file.
#include "plist/xml_writer.h"
#include "posix/plist_defaults.h"
#include "tests/support/recording_log.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <sys/wait.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int changes = 60;

std::string keyOf(int program, int number) {
    return std::to_string(program) + "." + std::to_string(number);
}

/// Child processes that start at the same moment.
class Programs {
  public:
    /// \param run called in each child with its number; returns whether it succeeded
    template <typename Run>
    Programs(int count, Run run) {
        std::array<int, 2> start{};
        if (::pipe(start.data()) != 0)
            throw std::runtime_error("no pipe can be made");
        for (int program = 0; program < count; ++program)
            if (const pid_t child = ::fork(); child > 0) {
                children_.push_back(child);
            } else if (child == 0) {
                char nothing = 0;
                ::close(start[1]);
                // Returns when the parent closes the last writing end.
                static_cast<void>(!::read(start[0], &nothing, 1));
                ::_exit(run(program) ? 0 : 1);
            }
        ::close(start[0]);
        ::close(start[1]);
    }
    /// Waits for all of them and returns how many succeeded.
    int wait() {
        int well = 0;
        for (const pid_t child : children_) {
            int status = -1;
            if (::waitpid(child, &status, 0) == child && WIFEXITED(status))
                well += WEXITSTATUS(status) == 0;
        }
        return well;
    }

  private:
    std::vector<pid_t> children_;
};

class SharedDefaults : public testing::Test {
  protected:
    /// The values that the next start of the program reads.
    Dictionary onDisk() const {
        RecordingLog unheard;
        PlistDefaults defaults(path, unheard);
        Dictionary content;
        for (const auto& key : defaults.keys())
            content[key] = *defaults.object(key);
        return content;
    }
    void put(const Dictionary& dictionary) const { writeBytes(path, xmlPropertyList(dictionary)); }
    /// Several programs each set keys of their own; the file must hold all of them in the end.
    void expectNothingLost(int programs) const {
        const auto run = [this](int program) {
            RecordingLog heard;
            // So many tries that no program gives up on a slow disk.
            PlistDefaults defaults(path, heard, {.tries = 1'000'000});
            for (int i = 0; i < changes; ++i)
                defaults.set(keyOf(program, i), i);
            return heard.lines.empty();
        };
        const int well = Programs(programs, run).wait();
        EXPECT_EQ(well, programs);
        Dictionary expected;
        for (int program = 0; program < programs; ++program)
            for (int i = 0; i < changes; ++i)
                expected[keyOf(program, i)] = i;
        EXPECT_EQ(onDisk(), expected);
    }

    TemporaryFolder folder;
    RecordingLog log;
    std::string path = folder / "settings.plist";
    std::string lockPath = path + ".lock";
};

// Programs that run at the same time

TEST_F(SharedDefaults, TwoProgramsLoseNothing) {
    expectNothingLost(2);
    EXPECT_THAT(folder.names(), ElementsAre("settings.plist", "settings.plist.lock"));
}

TEST_F(SharedDefaults, ADamagedFileIsSetAsideByOneProgramAlone) {
    for (int round = 1; round <= 20; ++round) {
        writeBytes(path, "rubbish");
        const int well = Programs(4, [this](int program) {
                             RecordingLog unheard;
                             PlistDefaults defaults(path, unheard, {.tries = 1'000'000});
                             defaults.set(keyOf(program, 0), 1);
                             return true;
                         }).wait();
        EXPECT_EQ(well, 4);
        EXPECT_EQ(onDisk(), (Dictionary{{"0.0", 1}, {"1.0", 1}, {"2.0", 1}, {"3.0", 1}}));
        const std::string aside = "settings.damaged-" + std::to_string(round) + ".plist";
        EXPECT_EQ(bytesOf(folder / aside), "rubbish");
        // The file, its lock, and one damaged file per round
        EXPECT_EQ(folder.names().size(), static_cast<std::size_t>(2 + round));
    }
}

// Another program holds the lock and changes the file before it releases it

class HeldDefaults : public SharedDefaults {
  protected:
    /// Takes the lock for the other program. When the tested one waits, the other one calls
    /// change() and releases the lock.
    FileLock::Patience patienceUntil(std::function<void()> change) {
        lock.emplace(lockPath, FileLock::Patience{.tries = 1});
        EXPECT_EQ(lock->state(), FileLock::State::held);
        return {.tries = 2, .pause = [this, change] {
                    change();
                    lock.reset();
                }};
    }

    std::optional<FileLock> lock;
};

TEST_F(HeldDefaults, KeepsWhatTheOtherWroteMeanwhile) {
    put({{"a", 1}});
    PlistDefaults defaults(path, log, patienceUntil([this] { put({{"a", 2}, {"b", 2}}); }));
    defaults.set("c", 3);
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 2}, {"b", 2}, {"c", 3}}));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(HeldDefaults, SetsNoGoodFileAside) {
    writeBytes(path, "rubbish");
    PlistDefaults defaults(path, log, patienceUntil([this] { put({{"a", 1}}); }));
    EXPECT_EQ(defaults.object("a"), Value(1));
    EXPECT_THAT(folder.names(), ElementsAre("settings.plist", "settings.plist.lock"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(HeldDefaults, TakesALockFileThatIsMadeAnew) {
    PlistDefaults defaults(path, log,
                           {.tries = 2, .pause = [this] { std::filesystem::remove(lockPath); }});
    lock.emplace(lockPath, FileLock::Patience{.tries = 1});
    defaults.set("a", 1);
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}}));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(HeldDefaults, WaitsOnceLogsOnceAndWritesLater) {
    int pauses = 0;
    PlistDefaults defaults(path, log, {.tries = 5, .pause = [&] { ++pauses; }});
    lock.emplace(lockPath, FileLock::Patience{.tries = 1});
    defaults.set("a", 1);
    EXPECT_EQ(pauses, 4);
    defaults.set("b", 2);
    defaults.synchronize();
    EXPECT_EQ(pauses, 4);
    EXPECT_THAT(log.lines, ElementsAre("Could not write the preferences " + path +
                                       ": another program holds " + lockPath));
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(defaults.object("a"), Value(1));
    EXPECT_THAT(defaults.keys(), ElementsAre("a", "b"));

    lock.reset();
    defaults.synchronize();
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}, {"b", 2}}));

    lock.emplace(lockPath, FileLock::Patience{.tries = 1});
    defaults.set("c", 3);
    EXPECT_EQ(pauses, 8);
    EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(HeldDefaults, WritesAtTheEndWhatItCouldNotBefore) {
    {
        PlistDefaults defaults(path, log, {.tries = 1});
        lock.emplace(lockPath, FileLock::Patience{.tries = 1});
        defaults.set("a", 1);
        lock.reset();
    }
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}}));
}

TEST_F(HeldDefaults, LeavesADamagedFileToTheOther) {
    writeBytes(path, "rubbish");
    lock.emplace(lockPath, FileLock::Patience{.tries = 1});
    PlistDefaults defaults(path, log, {.tries = 1});
    EXPECT_EQ(bytesOf(path), "rubbish");
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("another program holds")));
}

TEST_F(HeldDefaults, NeedsNoLockWhereThereIsNothingToWrite) {
    put({{"a", 1}});
    lock.emplace(lockPath, FileLock::Patience{.tries = 1});
    PlistDefaults defaults(path, log, {.tries = 1});
    defaults.set("a", 1);
    defaults.remove("b");
    defaults.synchronize();
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SharedDefaults, AreWrittenAlsoWhereNoLockCanBeHad) {
    std::filesystem::create_directory(lockPath);
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    defaults.set("b", 2);
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}, {"b", 2}}));
    EXPECT_THAT(log.lines, ElementsAre("The preferences " + path +
                                       " were written without a lock: Is a directory"));
}

// Changes by other programs

TEST_F(SharedDefaults, WhatIsWrittenIsOthersToChange) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    put({{"a", 2}});
    defaults.set("b", 1);
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 2}, {"b", 1}}));
}

TEST_F(SharedDefaults, WhatWasThereAlreadyIsOthersToChange) {
    put({{"a", 1}});
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    defaults.remove("c");
    put({{"a", 2}, {"c", 3}});
    defaults.synchronize();
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 2}, {"c", 3}}));
}

TEST_F(SharedDefaults, AResetRemovesWhatAnotherProgramWrote) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    put({{"a", 1}, {"b", 2}});
    for (const auto& key : defaults.keys())
        defaults.remove(key);
    defaults.synchronize();
    EXPECT_EQ(bytesOf(path), xmlPropertyList({}));
}

TEST_F(SharedDefaults, AResetOfAnotherProgramIsAdopted) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    put({});
    defaults.synchronize();
    EXPECT_THAT(defaults.keys(), IsEmpty());
    defaults.set("b", 2);
    EXPECT_EQ(onDisk(), (Dictionary{{"b", 2}}));
}

// Missing and damaged files

TEST_F(SharedDefaults, AFileThatVanishedIsWrittenAnew) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    defaults.set("b", 2);
    std::filesystem::remove(path);
    EXPECT_THAT(defaults.keys(), ElementsAre("a", "b"));
    EXPECT_FALSE(std::filesystem::exists(path));
    defaults.set("b", 3);
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}, {"b", 3}}));
    defaults.set("c", 4);
    EXPECT_THAT(log.lines,
                ElementsAre("The preferences " + path + " were missing and are written anew"));
    std::filesystem::remove(path);
    defaults.synchronize();
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}, {"b", 3}, {"c", 4}}));
    EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(SharedDefaults, WhatWasRemovedMeanwhileStaysRemoved) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    std::filesystem::remove(path);
    defaults.remove("a");
    defaults.synchronize();
    EXPECT_THAT(defaults.keys(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(path));
    put({{"a", 2}});
    defaults.synchronize();
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 2}}));
}

TEST_F(SharedDefaults, WhatWasKnownReplacesADamagedFileAtOnce) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    writeBytes(path, "rubbish");
    defaults.synchronize();
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}}));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("are now " + folder.path())));
    // The value is written, so other programs may change it.
    put({{"a", 2}});
    defaults.synchronize();
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 2}}));
}

} // namespace

} // namespace frimbolate::test
