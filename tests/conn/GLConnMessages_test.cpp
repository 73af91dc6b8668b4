// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/GLConnAccess.h"
#include "support/TextCapture.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <iostream>
#include <locale>

namespace {

using namespace tamo::test;

// Separates all digits of a number.
class SeparatedDigits : public std::numpunct<char> {
  protected:
    [[nodiscard]] char do_thousands_sep() const override { return '.'; }
    [[nodiscard]] std::string do_grouping() const override { return "\1"; }
};

// Gives a stream unusual settings for its lifetime.
class UnusualStream {
  public:
    explicit UnusualStream(std::ostream& stream)
        : _stream(stream), _before(stream.flags()), _fill(stream.fill('*')),
          _locale(stream.imbue(std::locale(std::locale::classic(), new SeparatedDigits))) {
        _stream << std::hex << std::showbase << std::uppercase << std::showpos << std::left << std::setw(40);
        _unusual = _stream.flags();
    }
    UnusualStream(UnusualStream const&) = delete;
    UnusualStream& operator=(UnusualStream const&) = delete;
    ~UnusualStream() {
        _stream.flags(_before);
        _stream.fill(_fill);
        _stream.width(0);
        _stream.imbue(_locale);
    }

    [[nodiscard]] bool isUntouched() const { return _stream.flags() == _unusual && _stream.width() == 40; }

  private:
    std::ostream& _stream;
    std::ios_base::fmtflags _before;
    std::ios_base::fmtflags _unusual{};
    char _fill;
    std::locale _locale;
};

TEST(GLConnMessages, CaseTableIsPrintedInDecimalWhateverTheStreamIsSetTo) {
    GLConn conn;
    TextCapture const capture(std::cout);
    UnusualStream const unusual(std::cout);
    GLConnAccess::printCaseLut(conn, 254);
    GLConnAccess::printCaseLut(conn, 27);
    EXPECT_EQ(capture.text(), "caselut[254]:Pixel invcaselut[27]:Case27 inv");
    EXPECT_TRUE(unusual.isUntouched());
}

TEST(GLConnMessages, PairWithoutLinkIsReportedInDecimalWhateverTheStreamIsSetTo) {
    // Where face diagonals alone connect the foreground, some pairs of components have no common link.
    GLObjectList list;
    TextCapture const capture(std::cerr);
    {
        UnusualStream const unusual(std::cerr);
        GLConn().wrapLocal(static_cast<Neighborhood::NHConfig>(2), &list, true);
        EXPECT_TRUE(unusual.isUntouched());
    }
    EXPECT_EQ(capture.text().find('*'), std::string::npos);
    EXPECT_NE(capture.text().find("conf:129 no polygon created!\n"), std::string::npos)
        << capture.text().substr(0, 200);
}

} // namespace
