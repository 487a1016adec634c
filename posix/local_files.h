// The files of this computer.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class LocalFiles : public Files {
  public:
    /// \param log hears why a property list could not be written
    explicit LocalFiles(Log& log) : log_(log) {}

    /// Follows links: one that leads nowhere does not exist.
    bool exists(const std::string& path) override;
    bool isWritable(const std::string& path) override;
    /// Takes away one file, or one link but not what it leads to; never a folder, since that
    /// could be a whole bundle.
    bool remove(const std::string& path) override;
    std::optional<Dictionary> readDictionary(const std::string& path) override;
    bool writeDictionary(const std::string& path, const Dictionary& dictionary) override;

  private:
    Log& log_;
};

} // namespace frimbolate
