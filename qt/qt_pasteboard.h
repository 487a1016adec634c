// Implements Pasteboard with the desktop's clipboard. Needs a QGuiApplication.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class QtPasteboard : public Pasteboard {
  public:
    void clearContents() override;
    void setString(const std::string& text) override;
};

} // namespace frimbolate
