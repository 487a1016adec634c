// The interface for the panels in which the user chooses a file or folder, shown as sheets on the
// main window.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

struct OpenPanel {
    bool canChooseFiles = true;
    bool canChooseDirectories = false;
    bool resolvesAliases = true;
    bool canCreateDirectories = false;
    std::string prompt; ///< title of the button that accepts
    std::string message;
    /// File name extensions without the dot; empty allows every file. A bundle ("app", "workflow")
    /// with one of the extensions counts as a file; no other folder does.
    std::vector<std::string> allowedFileTypes;
    std::optional<std::string> directory; ///< the first folder shown; the panel's default if unset
    /// The entry of the first folder that is selected initially, if it exists, and the proposed
    /// name of a new folder.
    std::string suggestedName;
};

struct SavePanel {
    std::string nameFieldStringValue;
    std::string prompt;
    std::string message;
    bool canCreateDirectories = true;
    std::optional<std::string> directory;
};

/// The answer of a save panel.
struct SaveLocation {
    std::string path;                 ///< absolute
    std::string nameFieldStringValue; ///< the file name as the panel's name field shows it
};

class FilePanels {
  public:
    /// Receives the absolute path chosen, or nothing when the panel was cancelled.
    using OpenCompletion = std::function<void(std::optional<std::string>)>;
    using SaveCompletion = std::function<void(std::optional<SaveLocation>)>;

    virtual ~FilePanels() = default;
    /// Both return at once; the completion runs exactly once, later on the same thread.
    virtual void open(const OpenPanel& panel, OpenCompletion completion) = 0;
    virtual void save(const SavePanel& panel, SaveCompletion completion) = 0;
};

} // namespace frimbolate
