// The services of the desktop, each as a small interface, and a struct of references to all of
// them.
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

/// The program's own sheets. The form model holds their content.
enum class Sheet { welcomeWindow, preferencesWindow, executeScriptWindow };

class Sheets {
  public:
    virtual ~Sheets() = default;
    /// Shows the sheet on the main window, after any sheet that is shown already. Returns at once.
    virtual void begin(Sheet sheet) = 0;
    /// Closes the sheet; does nothing when it is not shown.
    virtual void end(Sheet sheet) = 0;
    /// Gives the keyboard focus to a control of the sheet, named by its outlet.
    virtual void makeFirstResponder(Sheet sheet, std::string_view outlet) = 0;
};

/// Files and property lists. Paths are absolute and UTF-8.
class Files {
  public:
    virtual ~Files() = default;
    virtual bool exists(const std::string& path) = 0;
    /// Whether the user may write to this file or folder; false where it does not exist.
    virtual bool isWritable(const std::string& path) = 0;
    /// Removes an item. Returns whether nothing is there afterwards, also where nothing was before;
    /// a failure leaves it in place.
    virtual bool remove(const std::string& path) = 0;
    /// The dictionary of a property list of any form; nothing where the file cannot be read, is
    /// over 16 MiB, damaged, nested too deeply or no dictionary. The caller informs the user; the
    /// log gets the reason why the content was rejected, with its line.
    virtual std::optional<Dictionary> readDictionary(const std::string& path) = 0;
    /// Writes an XML property list. Afterwards the file is either complete and new or unchanged to
    /// the byte. Returns whether it was written.
    /// \throws NamedError "Unwritable content" for a text or date that not every reader would
    ///         return unchanged
    virtual bool writeDictionary(const std::string& path, const Dictionary& dictionary) = 0;
    /// The whole content of the file that writeDictionary() writes; UTF-8. Writes nothing.
    /// \throws NamedError as writeDictionary() does
    virtual std::string propertyListText(const Dictionary& dictionary) = 0;
};

/// The desktop's trash, from which the user can restore a file.
class Trash {
  public:
    virtual ~Trash() = default;
    /// Moves one file, or one link but not its target; never a folder, since that could be a whole
    /// bundle. Returns the new path, or nothing when the item stays in place.
    virtual std::optional<std::string> moveToTrash(const std::string& path) = 0;
};

/// Scoped access to a folder that the user granted once.
class FolderAccess {
  public:
    virtual ~FolderAccess() = default;
    /// A bookmark that resolves to the folder also after a restart.
    /// \throws NamedError when none can be created
    virtual Data createBookmark(const std::string& folder) = 0;
    /// The folder's path, or nothing when the bookmark cannot be resolved.
    virtual std::optional<std::string> resolve(const Data& bookmark) = 0;
    /// Begins or ends scoped access; without a folder both do nothing.
    virtual void begin(const std::optional<std::string>& folder) = 0;
    virtual void end(const std::optional<std::string>& folder) = 0;
    /// A new bookmark of a folder whose bookmark was stale when it was last resolved, to be stored
    /// in its place; nothing where it was not, or where none can be created. Call it while access
    /// lasts.
    virtual std::optional<Data> renewedBookmark(const std::string& folder) = 0;
};

/// The user's settings: a key/value store that outlives the process.
class Defaults {
  public:
    virtual ~Defaults() = default;
    virtual std::optional<Value> object(std::string_view key) = 0;
    virtual void set(std::string_view key, Value value) = 0;
    virtual void remove(std::string_view key) = 0;
    virtual std::vector<std::string> keys() = 0;
    /// Reads what other processes wrote, and writes what is not on disk yet. Failures are logged
    /// only.
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
    /// Opens the desktop's terminal; a failure is not reported.
    virtual void openTerminal() = 0;
    /// Shows a file, selected, in the desktop's file manager; a failure is not reported.
    virtual void showFile(const std::string& path) = 0;
    /// Starts another instance beside the running one; a failure is not reported.
    virtual void launchNewInstance() = 0;
    /// The short (login) name of the user, such as "maya".
    virtual std::string userName() = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;
    /// The current time in the user's time zone.
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
    /// Quits the program after the call has returned.
    virtual void terminate() = 0;
    /// Shows an error as the desktop shows errors.
    virtual void presentError(const std::string& text) = 0;
};

/// All services. Each must outlive every object that was given this struct or a reference to it.
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
