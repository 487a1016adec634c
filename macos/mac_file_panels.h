// Implements FilePanels with the panels of macOS, as sheets of the main window.
//
// Inside the sandbox only these panels extend the program's access to what the user chooses.
#pragma once

#include "platform/file_panels.h"

#include <cstdint>
#include <functional>

namespace frimbolate {

/// Shows each panel at once; the caller sees to it that no other sheet is shown. The entry that an
/// open panel should select at first is not selected: the platform's panel cannot.
class MacFilePanels : public FilePanels {
  public:
    /// The main window's NSView; asked for each panel, since the toolkit may replace it.
    using View = std::function<std::uintptr_t()>;

    explicit MacFilePanels(View view) : view_(std::move(view)) {}

    void open(const OpenPanel& panel, OpenCompletion completion) override;
    void save(const SavePanel& panel, SaveCompletion completion) override;

  private:
    View view_;
};

} // namespace frimbolate
