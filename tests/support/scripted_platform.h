// A desktop that a test scripts: questions wait for the test's answer, files are kept in memory,
// faults are switches, and one journal lists every effect in order.
#pragma once

#include "platform/services.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace frimbolate::test {

/// Effects as plain lines: "log: …", "alert: …", "open panel: …", "write: …", "begin: …" …
class Journal {
  public:
    void add(const std::string& kind, const std::string& text) {
        lines_.push_back(kind + ": " + text);
    }
    const std::vector<std::string>& lines() const { return lines_; }
    /// The texts of one kind of effect, such as all "log" lines.
    std::vector<std::string> texts(const std::string& kind) const;
    std::size_t count(const std::string& kind) const { return texts(kind).size(); }
    void clear() { lines_.clear(); }

  private:
    std::vector<std::string> lines_;
};

/// Files in memory. The journal must outlive it.
class ScriptedFiles : public Files {
  public:
    explicit ScriptedFiles(Journal& journal) : journal_(journal) {}

    bool exists(const std::string& path) override;
    bool isWritable(const std::string& path) override;
    bool remove(const std::string& path) override;
    std::optional<Dictionary> readDictionary(const std::string& path) override;
    bool writeDictionary(const std::string& path, const Dictionary& dictionary) override;
    std::string propertyListText(const Dictionary& dictionary) override;

    /// The files by path; std::nullopt for a file that is no property list.
    std::map<std::string, std::optional<Dictionary>> contents;
    std::set<std::string> folders;
    // Faults
    std::set<std::string> readOnly; ///< files and folders that may not be written
    bool diskIsFull = false;        ///< a write leaves everything as it was and returns false
    bool removalFails = false;
    bool contentIsUnwritable = false; ///< a write throws NamedError "Unwritable content"

  private:
    Journal& journal_;
};

/// A file that is moved here stays in ScriptedFiles::contents, under its path in the trash. Journal
/// and files must outlive it.
class ScriptedTrash : public Trash {
  public:
    static constexpr const char* folder = "/Users/maya/.Trash";

    ScriptedTrash(Journal& journal, ScriptedFiles& files) : journal_(journal), files_(files) {}

    std::optional<std::string> moveToTrash(const std::string& path) override;

    bool refuses = false;

  private:
    Journal& journal_;
    ScriptedFiles& files_;
};

/// Preferences in memory. The journal must outlive it.
class ScriptedDefaults : public Defaults {
  public:
    explicit ScriptedDefaults(Journal& journal) : journal_(journal) {}

    std::optional<Value> object(std::string_view key) override;
    void set(std::string_view key, Value value) override;
    void remove(std::string_view key) override;
    std::vector<std::string> keys() override;
    void synchronize() override { journal_.add("synchronize", "defaults"); }

    Dictionary contents;
    std::vector<std::string> reads; ///< the keys read, in order; reading is not in the journal

  private:
    Journal& journal_;
};

/// Makes bookmarks and counts accesses. The journal must outlive it.
class ScriptedFolderAccess : public FolderAccess {
  public:
    explicit ScriptedFolderAccess(Journal& journal) : journal_(journal) {}

    Data createBookmark(const std::string& folder) override;
    std::optional<std::string> resolve(const Data& bookmark) override;
    void begin(const std::optional<std::string>& folder) override;
    void end(const std::optional<std::string>& folder) override;
    std::optional<Data> renewedBookmark(const std::string& folder) override;

    bool creationFails = false;
    bool resolutionFails = false;
    std::optional<Data> renewed; ///< of a stale bookmark
    int begun = 0;               ///< accesses begun and not ended yet

  private:
    Journal& journal_;
};

/// The bookmark that the scripted desktop makes for a folder.
Data bookmarkOf(const std::string& folder);

/// A question that waits for the test's answer.
struct Question {
    struct AlertQuestion {
        Alert alert;
        Alerts::Completion completion;
    };
    struct OpenQuestion {
        OpenPanel panel;
        FilePanels::OpenCompletion completion;
    };
    struct SaveQuestion {
        SavePanel panel;
        FilePanels::SaveCompletion completion;
    };
    std::variant<AlertQuestion, OpenQuestion, SaveQuestion> what;
};

/// Services that stand in for the scripted ones. A null pointer replaces none.
struct OwnServices {
    Sheets* sheets = nullptr;
    FilePanels* filePanels = nullptr;
    Files* files = nullptr;
};

class ScriptedPlatform : public Alerts,
                         public Sheets,
                         public FilePanels,
                         public Pasteboard,
                         public Workspace,
                         public Clock,
                         public Log,
                         public Application {
  public:
    ScriptedPlatform();
    /// Fails the running test if a question is left unanswered.
    ~ScriptedPlatform() override;

    /// The services refer to this object and to those of the test, which must outlive them.
    Services services(const OwnServices& own = {});

    Journal journal;
    ScriptedFiles files{journal};
    ScriptedTrash trash{journal, files};
    ScriptedDefaults defaults{journal};
    ScriptedFolderAccess folderAccess{journal};
    LocalDateTime time{2026, 11, 21, 9, 41, 7};
    std::string user = "maya";
    std::string pasteboard = "earlier content";
    std::set<Sheet> shownSheets;

    // The questions that wait for an answer, the oldest first. Each of these fails the running test
    // when there is no question or the oldest is of another kind.
    bool isAsking() const { return !questions_.empty(); }
    Alert shownAlert();
    OpenPanel shownOpenPanel();
    SavePanel shownSavePanel();
    /// Answers the oldest question, an alert, by the title of a button.
    void press(const std::string& button, int suppressionState = 0);
    void choose(const std::string& path);
    void saveAs(const std::string& path, const std::string& nameField);
    /// With the last component of the path in the name field.
    void saveAs(const std::string& path);
    void cancelPanel();
    /// Drops the questions that a test leaves unanswered because it is about the asking alone.
    void abandonQuestions() { questions_.clear(); }

    // The services
    using Alerts::show;
    void show(const Alert& alert, Alerts::Completion completion) override;
    void begin(Sheet sheet) override;
    void end(Sheet sheet) override;
    void makeFirstResponder(Sheet sheet, std::string_view outlet) override;
    void open(const OpenPanel& panel, OpenCompletion completion) override;
    void save(const SavePanel& panel, SaveCompletion completion) override;
    void clearContents() override;
    void setString(const std::string& text) override;
    void openTerminal() override { journal.add("workspace", "terminal"); }
    void showFile(const std::string& path) override { journal.add("workspace", "show " + path); }
    void launchNewInstance() override { journal.add("workspace", "new instance"); }
    std::string userName() override { return user; }
    LocalDateTime now() override { return time; }
    void line(const std::string& text) override { journal.add("log", text); }
    void terminate() override { journal.add("application", "terminate"); }
    void presentError(const std::string& text) override { journal.add("error", text); }

  private:
    template <typename Kind>
    Kind* first(const char* expected);
    template <typename Kind>
    std::optional<Kind> take(const char* expected);

    std::deque<Question> questions_;
};

} // namespace frimbolate::test
