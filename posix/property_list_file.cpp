#include "posix/property_list_file.h"

#include "core/named_error.h"
#include "plist/limits.h"
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "posix/atomic_file.h"
#include "posix/file_descriptor.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace frimbolate {

namespace {

constexpr const char* tooLarge = "it is over 16 MiB";

PropertyListFile refused(FileCondition condition, std::string reason) {
    PropertyListFile file;
    file.condition = condition;
    file.reason = std::move(reason);
    return file;
}

/// Reads until the end or past the size limit, whatever size the file claims; nothing on an error.
std::optional<std::string> readBytes(int file) {
    std::string bytes;
    std::array<char, 65536> buffer{};
    while (bytes.size() <= maximumPlistBytes) {
        const ssize_t size = ::read(file, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0)
            return std::nullopt;
        if (size == 0)
            break;
        bytes.append(buffer.data(), static_cast<std::size_t>(size));
    }
    return bytes;
}

PropertyListFile parsed(const std::string& bytes) {
    try {
        Value value = readPropertyList(bytes);
        if (auto* dictionary = value.dictionary())
            return {.condition = FileCondition::read,
                    .dictionary = std::move(*dictionary),
                    .reason = {}};
        PropertyListFile other = refused(FileCondition::damaged, "it holds no dictionary, but: " +
                                                                     std::string(value.kind()));
        other.isOtherValue = true;
        return other;
    } catch (const NamedError& error) {
        return refused(FileCondition::damaged, error.reason());
    }
}

PropertyListFile contentOf(int file, const struct stat& status, std::string* content,
                           const std::string& known) {
    if (!S_ISREG(status.st_mode))
        return refused(FileCondition::inaccessible, "it is not a regular file");
    if (static_cast<std::uint64_t>(status.st_size) > maximumPlistBytes)
        return refused(FileCondition::damaged, tooLarge);
    auto bytes = readBytes(file);
    if (!bytes)
        return refused(FileCondition::inaccessible, errnoMessage());
    if (bytes->size() > maximumPlistBytes)
        return refused(FileCondition::damaged, tooLarge);
    // Half of a file is not a damaged one, which the caller may set aside.
    if (bytes->size() < static_cast<std::uint64_t>(status.st_size))
        return refused(FileCondition::inaccessible, "it became shorter while it was read");
    if (!known.empty() && *bytes == known)
        return refused(FileCondition::unchanged, {});
    PropertyListFile result = parsed(*bytes);
    if (content)
        *content = std::move(*bytes);
    return result;
}

PropertyListFile readFileUnless(const std::string& known, const std::string& path,
                                std::string* bytes) {
    if (path.find('\0') != std::string::npos)
        return refused(FileCondition::missing, "its path holds a NUL");
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!file)
        return refused(errno == ENOENT ? FileCondition::missing : FileCondition::inaccessible,
                       errnoMessage());
    struct stat status {};
    if (::fstat(file.number(), &status) != 0)
        return refused(FileCondition::inaccessible, errnoMessage());
    PropertyListFile result = contentOf(file.number(), status, bytes, known);
    result.mode = status.st_mode & 07777;
    result.owner = status.st_uid;
    return result;
}

} // namespace

PropertyListFile readPropertyListFile(const std::string& path, std::string* bytes) {
    return readFileUnless({}, path, bytes);
}

PropertyListFile readChangedPropertyListFile(const std::string& path, std::string& known) {
    std::string bytes;
    PropertyListFile file = readFileUnless(known, path, &bytes);
    if (file.condition == FileCondition::read)
        known = std::move(bytes);
    else if (file.condition != FileCondition::unchanged)
        known.clear();
    return file;
}

std::optional<std::string> writePropertyListFile(const std::string& path,
                                                 const Dictionary& dictionary, mode_t newFileMode,
                                                 mode_t keptMode) {
    try {
        return writeFileAtomically(path, xmlPropertyList(dictionary), newFileMode, keptMode);
    } catch (const NamedError& error) {
        if (error.name() == tooLargeContent)
            return error.reason();
        throw;
    }
}

} // namespace frimbolate
