// What the desktop gives, each as a small interface, and all of them in one struct of references.
#pragma once

#include "core/agent_form.h"
#include "core/value.h"
#include "platform/alerts.h"
#include "platform/file_panels.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// The program's own sheets; what they show stands in the form model.
enum class Sheet { welcomeWindow, preferencesWindow, executeScriptWindow };

class Sheets {
  public:
    virtual ~Sheets() = default;
    /// Shows the sheet on the main window, after any sheet that is up already. Returns at once.
    virtual void begin(Sheet sheet) = 0;
    /// Takes the sheet off the screen; harmless when it is not shown.
    virtual void end(Sheet sheet) = 0;
    /// Gives a control of the sheet, named by its outlet, the keyboard.
    virtual void makeFirstResponder(Sheet sheet, std::string_view outlet) = 0;
};

/// Files and property lists. Paths are absolute and UTF-8.
class Files {
  public:
    virtual ~Files() = default;
    virtual bool exists(const std::string& path) = 0;
    /// Whether the person may write to this file or folder; false where it does not exist.
    virtual bool isWritable(const std::string& path) = 0;
    /// Whether the item is gone; a failure leaves it in place.
    virtual bool remove(const std::string& path) = 0;
    /// The dictionary of a property list of any form; nothing where the file cannot be read, is
    /// over 16 MiB, damaged, nested too deeply or holds no dictionary. Who asked tells the user in
    /// words of its own; why a content was refused, with its line, is logged.
    virtual std::optional<Dictionary> readDictionary(const std::string& path) = 0;
    /// Writes an XML property list so that the file is either whole and new or, byte for byte, as
    /// it was. Returns whether it was written.
    /// \throws NamedError "Unwritable content" when a text or date has no form that every reader
    /// reads back.
    virtual bool writeDictionary(const std::string& path, const Dictionary& dictionary) = 0;
};

/// The desktop's trash, out of which the user can take a file back.
class Trash {
  public:
    virtual ~Trash() = default;
    /// Moves one file, or one link but not its target; never a folder, since that could be a whole
    /// bundle. Returns where it went, or nothing when it stays in place.
    virtual std::optional<std::string> moveToTrash(const std::string& path) = 0;
};

/// Scoped access to a folder that the person granted once.
class FolderAccess {
  public:
    virtual ~FolderAccess() = default;
    /// A bookmark that finds the folder again after a restart.
    /// \throws NamedError when none can be made.
    virtual Data createBookmark(const std::string& folder) = 0;
    /// The folder's path, or nothing when the bookmark cannot be resolved.
    virtual std::optional<std::string> resolve(const Data& bookmark) = 0;
    /// Begin and end scoped access; on nothing they do nothing.
    virtual void begin(const std::optional<std::string>& folder) = 0;
    virtual void end(const std::optional<std::string>& folder) = 0;
};

/// The person's settings: a key/value store that outlives the process.
class Defaults {
  public:
    virtual ~Defaults() = default;
    virtual std::optional<Value> object(std::string_view key) = 0;
    virtual void set(std::string_view key, Value value) = 0;
    virtual void remove(std::string_view key) = 0;
    virtual std::vector<std::string> keys() = 0;
    /// Reads what others wrote, and writes what is not on disk yet. Failures are logged only.
    virtual void synchronize() = 0;
};

class Pasteboard {
  public:
    virtual ~Pasteboard() = default;
    virtual void clearContents() = 0;
    virtual void setString(const std::string& text) = 0;
};

class Workspace {
  public:
    virtual ~Workspace() = default;
    /// Opens the desktop's terminal; a failure is not told.
    virtual void openTerminal() = 0;
    /// Starts the program once more, beside the running one; a failure is not told.
    virtual void launchNewInstance() = 0;
    /// The short (login) name of the person, such as "maya".
    virtual std::string userName() = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;
    virtual LocalDateTime now() = 0;
};

/// The system's log; one call is one entry. There are no levels.
class Log {
  public:
    virtual ~Log() = default;
    virtual void line(const std::string& text) = 0;
};

class Application {
  public:
    virtual ~Application() = default;
    /// Quits the program soon after the call returns.
    virtual void terminate() = 0;
    /// Shows an error the way the desktop shows any error.
    virtual void presentError(const std::string& text) = 0;
};

struct Services {
    Alerts& alerts;
    Sheets& sheets;
    FilePanels& filePanels;
    Files& files;
    FolderAccess& folderAccess;
    Defaults& defaults;
    Pasteboard& pasteboard;
    Workspace& workspace;
    Clock& clock;
    Log& log;
    Application& application;
    Trash& trash;
};

} // namespace frimbolate
