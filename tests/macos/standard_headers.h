// Precompiled: what nearly every source of the modules without Qt gets through core/value.h and
// platform/services.h.
#include "tests/macos/missing_names.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>
