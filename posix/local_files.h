// Implements Files with the file system of this computer.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class LocalFiles : public Files {
  public:
    /// \param log gets the reason when a property list cannot be read or written; must outlive this
    explicit LocalFiles(Log& log) : log_(log) {}

    /// Follows links: a dangling link does not exist.
    bool exists(const std::string& path) override;
    /// Also true for a folder that only the sandbox refuses (see sandboxed_folder.h).
    bool isWritable(const std::string& path) override;
    /// Removes one file, or one link but not its target; never a folder, since that could be a
    /// whole bundle.
    bool remove(const std::string& path) override;
    std::optional<Dictionary> readDictionary(const std::string& path) override;
    /// An existing file loses the right of its group and of others to write it, with which launchd
    /// refuses an agent; else it keeps its rights.
    bool writeDictionary(const std::string& path, const Dictionary& dictionary) override;
    std::string propertyListText(const Dictionary& dictionary) override;

  private:
    Log& log_;
};

} // namespace frimbolate
