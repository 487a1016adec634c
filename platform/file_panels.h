// The panels in which a person points at a file or folder, shown as sheets on the main window.
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
    /// whose extension is among them counts as a file, no other folder does.
    std::vector<std::string> allowedFileTypes;
    std::optional<std::string> directory; ///< where the panel starts; its own default if not set
    /// The entry of the starting folder that is selected at first, where it is there, and the name
    /// that a new folder is proposed.
    std::string suggestedName;
};

struct SavePanel {
    std::string nameFieldStringValue;
    std::string prompt;
    std::string message;
    bool canCreateDirectories = true;
    std::optional<std::string> directory;
};

/// Where a save panel was answered to save.
struct SaveLocation {
    std::string path;                 ///< absolute
    std::string nameFieldStringValue; ///< the file name as it stands in the panel's name field
};

class FilePanels {
  public:
    /// The absolute path chosen, or nothing when the panel was cancelled.
    using OpenCompletion = std::function<void(std::optional<std::string>)>;
    using SaveCompletion = std::function<void(std::optional<SaveLocation>)>;

    virtual ~FilePanels() = default;
    /// Both return at once; the completion runs exactly once, later.
    virtual void open(const OpenPanel& panel, OpenCompletion completion) = 0;
    virtual void save(const SavePanel& panel, SaveCompletion completion) = 0;
};

} // namespace frimbolate
