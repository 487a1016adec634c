// The application of the benchmarks that show widgets.
#pragma once

namespace frimbolate {

/// Constructs the application, without a display, once. Never destroyed.
void startToolkit();

} // namespace frimbolate
