// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/TransferSyntax.h"

#include "volume/support/DicomWriter.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::FrameEncoding;
using tamo::volume::transferSyntax;

TEST(TransferSyntax, AgreesWithTheLibraryOnByteOrderAndTypes) {
    for (E_TransferSyntax const known : {EXS_LittleEndianImplicit, EXS_LittleEndianExplicit, EXS_BigEndianExplicit,
                                         EXS_DeflatedLittleEndianExplicit, EXS_JPEGLSLossless, EXS_RLELossless}) {
        DcmXfer const expected(known);
        auto const syntax = transferSyntax(expected.getXferID());
        EXPECT_EQ(syntax.isBigEndian, expected.getByteOrder() == EBO_BigEndian);
        EXPECT_EQ(syntax.isImplicit, expected.isImplicitVR());
        EXPECT_NE(syntax.encoding, FrameEncoding::Unsupported);
        EXPECT_EQ(syntax.encoding == FrameEncoding::Native || syntax.encoding == FrameEncoding::Deflated,
                  !expected.isEncapsulated());
    }
}

TEST(TransferSyntax, IsNamedWhetherItCanBeDecodedOrNot) {
    EXPECT_EQ(transferSyntax("1.2.840.10008.1.2.4.110").name, "JPEG XL lossless");
    EXPECT_EQ(transferSyntax("1.2.840.10008.1.2.4.110").encoding, FrameEncoding::Unsupported);
    EXPECT_EQ(transferSyntax("1.2.3").name, "transfer syntax 1.2.3");
    EXPECT_EQ(transferSyntax("1.2.3").encoding, FrameEncoding::Unsupported);
}

} // namespace
