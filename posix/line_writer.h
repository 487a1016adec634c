// Lines for standard error, of which none may hold up the program. Knows no Qt.
//
// A terminal that was stopped with Ctrl+S, a full pipe and a full socket would all block an
// ordinary write. The descriptor is shared with the shell and must not be switched to O_NONBLOCK
// for all; pipes and terminals are opened a second time through /proc instead.
#pragma once

#include "posix/file_descriptor.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace frimbolate {

/// What stands in a log in the place of lines that it did not take.
std::string droppedLinesNotice(std::size_t count);

/// Never blocks: what cannot be written at once is dropped and counted, and the count is written as
/// soon as writing works again. A line of up to PIPE_BUF bytes goes out in one write, so lines of
/// several processes do not mix. A pipe without a reader raises SIGPIPE; see surviveFailedWrites().
class LineWriter {
  public:
    /// \param file stays the caller's, open for as long as this lives; negative takes no line
    explicit LineWriter(int file);
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;
    /// Tries once more to write how many lines were dropped.
    ~LineWriter();

    /// \param text of the line, without the line break that ends it
    void write(std::string_view text);

    /// Lines dropped that no notice has told of yet.
    std::size_t dropped() const { return dropped_; }

  private:
    enum class Kind { plain, socket, shared };

    bool finishLastLine();
    bool tellDropped();
    bool put(std::string_view bytes);
    ssize_t writeSome(std::string_view bytes) const;

    int file_;
    Kind kind_ = Kind::plain;
    FileDescriptor reopened_{-1}; ///< the same pipe or terminal, in non-blocking mode
    std::string unfinished_;      ///< rest of a line of which a part is out already
    std::size_t dropped_ = 0;
};

} // namespace frimbolate
