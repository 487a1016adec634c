// Writes lines to standard error without ever blocking the program.
//
// A terminal stopped with Ctrl+S, a full pipe and a full socket block an ordinary write. The
// descriptor shares its flags with the shell, so O_NONBLOCK must not be set on it; pipes and
// terminals are opened a second time through /proc instead.
#pragma once

#include "posix/file_descriptor.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace frimbolate {

/// The line that a log gets in place of dropped lines.
std::string droppedLinesNotice(std::size_t count);

/// Never blocks: a line that cannot be written at once is dropped and counted, and the count is
/// written as soon as writing works again. A line of up to PIPE_BUF bytes takes one write, so lines
/// of several processes do not mix. A pipe without a reader raises SIGPIPE; see
/// surviveFailedWrites().
class LineWriter {
  public:
    /// \param file owned by the caller and open as long as this object exists; negative drops every
    ///             line
    explicit LineWriter(int file);
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;
    /// Tries once more to write the count of dropped lines.
    ~LineWriter();

    /// \param text of the line, without its line break
    void write(std::string_view text);

    /// The number of dropped lines that no notice has reported yet.
    std::size_t dropped() const { return dropped_; }

  private:
    enum class Kind { plain, socket, shared };

    bool finishLastLine();
    bool writeDroppedNotice();
    bool writeOrKeep(std::string_view bytes);
    ssize_t writeSome(std::string_view bytes) const;

    int file_;
    Kind kind_ = Kind::plain;
    FileDescriptor reopened_{-1}; ///< the same pipe or terminal, in non-blocking mode
    std::string unfinished_;      ///< rest of a partly written line
    std::size_t dropped_ = 0;
};

} // namespace frimbolate
