// Makes calls of this process fail, as a sandbox or a broken disk would. The functions stand in
// this program before those of the C library.
#pragma once

#include <string>

namespace frimbolate::test {

/// Refuses to create a file with a temporary name beside another (EPERM), while this exists. The
/// files of other folders can be created.
class RefusedCreation {
  public:
    RefusedCreation();
    RefusedCreation(const RefusedCreation&) = delete;
    RefusedCreation& operator=(const RefusedCreation&) = delete;
    ~RefusedCreation();
};

/// Refuses to open this folder itself (EPERM), while this exists.
class RefusedFolder {
  public:
    explicit RefusedFolder(const std::string& folder);
    RefusedFolder(const RefusedFolder&) = delete;
    RefusedFolder& operator=(const RefusedFolder&) = delete;
    ~RefusedFolder();
};

/// Makes fsync() fail (EIO) from its given call on, the first being 1, while this exists.
class FailingFlush {
  public:
    explicit FailingFlush(int first, int last = 1000);
    FailingFlush(const FailingFlush&) = delete;
    FailingFlush& operator=(const FailingFlush&) = delete;
    ~FailingFlush();
};

/// Makes acl_get_fd() fail with an error, while this exists. ENOTSUP stands for a file system that
/// keeps no access control lists.
class UnreadableAccessLists {
  public:
    explicit UnreadableAccessLists(int error);
    UnreadableAccessLists(const UnreadableAccessLists&) = delete;
    UnreadableAccessLists& operator=(const UnreadableAccessLists&) = delete;
    ~UnreadableAccessLists();
};

} // namespace frimbolate::test
