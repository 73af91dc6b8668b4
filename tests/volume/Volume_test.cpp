// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/Volume.h"

#include "volume/support/makeVolume.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::Volume;

TEST(Volume, KeepsItsVoxelsAsLongAsACopyLives) {
    std::weak_ptr<void const> memory;
    {
        Volume copy;
        {
            Volume const volume = makeVolume<std::int16_t>({2, 3, 4}, [](auto, auto, auto) { return std::int16_t{7}; });
            memory = volume.memory;
            copy = volume;
        }
        EXPECT_FALSE(memory.expired());
        EXPECT_EQ(*reinterpret_cast<std::int16_t const*>(copy.row(2, 3)), 7);
    }
    EXPECT_TRUE(memory.expired());
}

TEST(Volume, OfABoxHasTheBoxsSizeBytesAndOrigin) {
    Volume volume = makeVolume<std::int16_t>({2, 3, 4}, [](auto, auto, auto) { return std::int16_t{0}; });
    volume.header.size = {10, 10, 10};
    volume.box = {{1, 2, 3}, {2, 4, 6}};
    volume.header.geometry.spacing = {1, 10, 100};
    volume.header.geometry.origin = {5, 0, 0};
    EXPECT_EQ(volume.size(), (tamo::volume::Size3{2, 3, 4}));
    EXPECT_EQ(volume.bytes(), 48U);
    EXPECT_EQ(volume.origin(), (tamo::Vector3{6, 20, 300}));
}

} // namespace
