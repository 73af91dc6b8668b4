// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomTags.h"

#include "volume/support/DicomWriter.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::dicom::Element;
using tamo::volume::dicom::kElements;

TEST(DicomTags, HaveTheTypesOfTheDictionary) {
    for (Element const& element : kElements) {
        DcmTag const tag(static_cast<Uint16>(element.tag >> 16U), static_cast<Uint16>(element.tag & 0xFFFFU));
        std::string const type = DcmVR(tag.getEVR()).getValidVRName();
        // Padding is of the sign of the pixels.
        EXPECT_EQ(element.type, tag == DCM_PixelPaddingValue ? "US" : type) << std::hex << element.tag;
    }
}

TEST(DicomTags, StandOnce) {
    for (std::size_t i = 1; i < kElements.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_NE(kElements[i].tag, kElements[j].tag);
        }
    }
}

} // namespace
