#include "tests/random_user/memory_use.h"

#include <QMetaObject>
#include <QObject>
#include <QSet>
#include <QWidget>

#include <atomic>
#include <mutex>

#if defined(__SANITIZE_ADDRESS__)
#define FRIMBOLATE_COUNTS_ALLOCATIONS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define FRIMBOLATE_COUNTS_ALLOCATIONS
#endif
#endif
#ifdef FRIMBOLATE_COUNTS_ALLOCATIONS
#include <sanitizer/allocator_interface.h>
#else
#include <malloc.h>
#endif

// The toolkit's table of functions that it calls for each object that is made and destroyed. Tools
// that inspect a running program rely on it; no public header declares it.
extern quintptr Q_CORE_EXPORT qtHookData[];

namespace frimbolate::test {

namespace {

constexpr int addObject = 3, removeObject = 4; // indexes in that table

std::mutex guard; // objects are made on other threads, too
QSet<QObject*>& livingObjects() {
    // Never destroyed: the toolkit's plugins destroy objects at the very end of the process.
    static auto& objects = *new QSet<QObject*>;
    return objects;
}

void objectMade(QObject* object) {
    const std::lock_guard lock(guard);
    livingObjects().insert(object);
}

void objectDestroyed(QObject* object) {
    const std::lock_guard lock(guard);
    livingObjects().remove(object);
}

#ifdef FRIMBOLATE_COUNTS_ALLOCATIONS
std::atomic<long> blocks = 0;
void allocated(const volatile void*, std::size_t) { ++blocks; }
void freed(const volatile void* block) { blocks -= block != nullptr; }
#endif

/// The class, and the name and the parent's class where the class alone says little.
std::string kindOf(const QObject& object) {
    std::string kind = object.metaObject()->className();
    // The toolkit makes it once, when a window is first asked for its desktop.
    if (const auto* widget = qobject_cast<const QWidget*>(&object);
        widget && widget->windowType() == Qt::Desktop)
        return "desktop";
    if (kind == "QWidget" || kind == "QObject")
        kind.append(" ")
            .append(object.objectName().toStdString())
            .append(" of ")
            .append(object.parent() ? object.parent()->metaObject()->className() : "nothing");
    return kind;
}

std::size_t allocatedBytes() {
#ifdef FRIMBOLATE_COUNTS_ALLOCATIONS
    return __sanitizer_get_current_allocated_bytes();
#else
    return ::mallinfo2().uordblks;
#endif
}

} // namespace

void countObjects() {
    livingObjects();
#ifdef FRIMBOLATE_COUNTS_ALLOCATIONS
    __sanitizer_install_malloc_and_free_hooks(allocated, freed);
#endif
    qtHookData[addObject] = reinterpret_cast<quintptr>(&objectMade);
    qtHookData[removeObject] = reinterpret_cast<quintptr>(&objectDestroyed);
}

MemoryUse memoryInUse() {
    MemoryUse result;
    result.bytes = allocatedBytes();
#ifdef FRIMBOLATE_COUNTS_ALLOCATIONS
    result.blocks = blocks;
#endif
    const std::lock_guard lock(guard);
    for (const QObject* object : livingObjects())
        ++result.objects[kindOf(*object)];
    return result;
}

/// The threads of a pool end when they had nothing to do for a while. The system's side of a window
/// is made when the window is first shown, and kept as long as the window.
bool isOfSystem(const std::string& name) {
    return name == "QThreadPoolThread" || name.starts_with("QEventDispatcher") ||
           name == "QWidgetWindow" || name == "desktop";
}

std::string growth(const MemoryUse& before, const MemoryUse& after) {
    constexpr std::size_t mostBytes = 8 << 20;
    constexpr long mostBlocks = 4000;
    std::string result;
    for (const auto& [name, count] : after.objects) {
        const auto known = before.objects.find(name);
        const int more = count - (known == before.objects.end() ? 0 : known->second);
        if (more > 0 && !isOfSystem(name))
            result.append(std::to_string(more)).append(" more ").append(name).append("; ");
    }
    if (after.bytes > before.bytes + mostBytes)
        result.append(std::to_string(after.bytes - before.bytes)).append(" more bytes; ");
    if (after.blocks > before.blocks + mostBlocks)
        result.append(std::to_string(after.blocks - before.blocks)).append(" more blocks; ");
    return result;
}

} // namespace frimbolate::test
