// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <ostream>
#include <streambuf>
#include <string_view>

namespace tamo::test {

/// Diverts a stream for its lifetime into a fixed buffer; allocates nothing, so that it works where allocations fail.
///
/// Switches off the flush after every output, which standard error has set, so that asked-for flushes can be counted.
class StreamCapture {
  public:
    explicit StreamCapture(std::ostream& stream)
        : _stream(stream), _before(stream.rdbuf(&_buffer)), _flags(stream.flags()) {
        _stream.unsetf(std::ios_base::unitbuf);
    }
    StreamCapture(StreamCapture const&) = delete;
    StreamCapture& operator=(StreamCapture const&) = delete;
    ~StreamCapture() {
        _stream.rdbuf(_before);
        _stream.flags(_flags);
    }

    /// Returns what was written; past the buffer's size the stream goes bad instead.
    [[nodiscard]] std::string_view text() const { return _buffer.text(); }
    /// Returns how often the stream was flushed.
    [[nodiscard]] int flushes() const { return _buffer.flushCount; }

  private:
    class Buffer : public std::streambuf {
      public:
        Buffer() { setp(_chars.data(), _chars.data() + _chars.size()); }
        [[nodiscard]] std::string_view text() const {
            return {pbase(), static_cast<std::string_view::size_type>(pptr() - pbase())};
        }
        int flushCount = 0;

      protected:
        int sync() override {
            ++flushCount;
            return 0;
        }

      private:
        std::array<char, 8192> _chars;
    };

    std::ostream& _stream;
    Buffer _buffer;
    std::streambuf* _before;
    std::ios_base::fmtflags _flags;
};

} // namespace tamo::test
