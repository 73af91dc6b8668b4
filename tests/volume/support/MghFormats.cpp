// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "MghBytes.h"
#include "TestFormats.h"
#include "gzipped.h"

#include "support/files/fileContent.h"

namespace {

namespace fs = std::filesystem;

// The trailer that may follow is left out: where it ends cannot be known.
std::string mghFile(Phantom const& phantom) {
    auto const voxels = voxelBytes(phantom, /*isBigEndian=*/true);
    return mghHeader(phantom, {}) + std::string(voxels.begin(), voxels.end());
}

} // namespace

std::vector<TestFormat> mghFormats() {
    return {{"Mgh", "a.mgh",
             [](Phantom const& phantom, fs::path const& folder) { writeFile(folder / "a.mgh", mghFile(phantom)); }},
            {"Mgz", "a.mgz", [](Phantom const& phantom, fs::path const& folder) {
                 writeFile(folder / "a.mgz", gzipped(mghFile(phantom)));
             }}};
}
