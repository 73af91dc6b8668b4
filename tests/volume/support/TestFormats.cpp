// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TestFormats.h"

std::vector<TestFormat> const& testFormats() {
    static std::vector<TestFormat> const kFormats = [] {
        std::vector<TestFormat> all;
        for (auto const& formats : {niftiFormats(), mghFormats(), npyFormats(), vtkFormats(), vtiFormats(),
                                    metaImageFormats(), nrrdFormats(), tiffFormats(), sliceFormats(), dicomFormats()}) {
            all.insert(all.end(), formats.begin(), formats.end());
        }
        return all;
    }();
    return kFormats;
}
