// Makes one call of this process fail.
#pragma once

#include "tests/faults/fault_control.h"

#include <string>
#include <string_view>

namespace frimbolate::test {

/// While this exists, the n-th call (from 1) of a function on a folder or what is below it fails.
/// One at a time.
class OneFault {
  public:
    OneFault(const std::string& folder, std::string_view function, FaultKind kind,
             std::uint32_t call = 1) {
        control_ = {};
        folder.copy(control_.watched.data(), control_.watched.size() - 1);
        function.copy(control_.only.data(), control_.only.size() - 1);
        control_.faults[0] = {call, kind};
        control_.armed = 1;
    }
    OneFault(const OneFault&) = delete;
    OneFault& operator=(const OneFault&) = delete;
    ~OneFault() { control_.armed = 0; }

    bool tookPlace() const { return control_.applied != 0; }

  private:
    FaultControl& control_ = *frimbolateFaultControl();
};

/// While this exists, changing or replacing a file is refused with EPERM, as that of an immutable
/// one.
class ImmutableFile {
  public:
    explicit ImmutableFile(const std::string& path) {
        control_ = {};
        path.copy(control_.guarded.data(), control_.guarded.size() - 1);
        control_.guards = 1;
        control_.armed = 1;
    }
    ImmutableFile(const ImmutableFile&) = delete;
    ImmutableFile& operator=(const ImmutableFile&) = delete;
    ~ImmutableFile() { control_.armed = 0; }

  private:
    FaultControl& control_ = *frimbolateFaultControl();
};

} // namespace frimbolate::test
