// Ownership of the answers of an X server.
#pragma once

#include <cstdlib>
#include <memory>

namespace frimbolate {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply that xcb allocated with malloc(); empty where the request failed.
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, FreeMemory>;

} // namespace frimbolate
