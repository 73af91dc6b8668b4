// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <ostream>
#include <sstream>
#include <string>

namespace tamo::test {

/// Diverts a stream for its lifetime into a string of any length.
class TextCapture {
  public:
    explicit TextCapture(std::ostream& stream) : _stream(stream), _before(stream.rdbuf(_text.rdbuf())) {}
    TextCapture(TextCapture const&) = delete;
    TextCapture& operator=(TextCapture const&) = delete;
    ~TextCapture() { _stream.rdbuf(_before); }

    [[nodiscard]] std::string text() const { return _text.str(); }

  private:
    std::ostream& _stream;
    std::ostringstream _text;
    std::streambuf* _before;
};

} // namespace tamo::test
