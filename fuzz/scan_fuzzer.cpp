// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/RecordingAggregator.h"
#include "tests/support/oracle/plainWalk.h"
#include "tests/support/volumes/PlainVolume.h"

#include <cstdlib>

using namespace tamo;

// Returns a list whose objects carry their slot's number and count like no other, slots 0 and 255 included.
static GLObjectList const& objects() {
    static GLObjectList list;
    list.size() == 0 ? test::makeMarkedList(list, 256, 1) : void();
    return list;
}

static bool isSame(GLDataInfo const& a, GLDataInfo const& b) {
    return a.offset() == b.offset() && a.size() == b.size() && a.step() == b.step() && a.vertices() == b.vertices() &&
           a.primitives() == b.primitives() && a.triangles() == b.triangles();
}

// Builds a volume, its layout and a box of it from `bytes`, and stops the program where the library's scan and count
// differ from the plain walk's. Bytes of the volume that are no samples are neither 0 nor 1.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* bytes, std::size_t count) {
    constexpr std::array<std::size_t, 3> kOrders[] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    std::size_t read = 0;
    auto const number = [&](int low, int high) { return low + (read < count ? bytes[read++] : 0) % (high - low + 1); };
    test::VolumeLayout const layout{
        kOrders[number(0, 5)], {number(0, 1) == 1, number(0, 1) == 1, number(0, 1) == 1}, number(1, 9), number(0, 9)};
    int const step = number(1, 4);
    test::Triple samples{}, origin{}, extent{}, lower{}, size{};
    for (std::size_t axis = 0, room = 20000; axis < 3; ++axis) {
        // One side may pass all block sizes, if the others leave room for it.
        samples[axis] = std::min(number(1, 256) + number(0, 20), static_cast<int>(room));
        room /= static_cast<std::size_t>(samples[axis]);
        origin[axis] = number(-9, 9);
        extent[axis] = samples[axis] * step + number(0, step - 1);
        // The volume holds the box and the voxel at (0, 0, 0), to which the data pointer points.
        lower[axis] = std::min(origin[axis], 0);
        size[axis] = std::max(origin[axis] + extent[axis], 1) - lower[axis];
    }
    test::PlainVolume volume(lower, size, layout);
    for (int i = 0; i < samples[0] * samples[1] * samples[2]; ++i) {
        int const x = i % samples[0], y = i / samples[0] % samples[1], z = i / samples[0] / samples[1];
        // The bytes that are left are the voxels, eight a byte, again and again.
        int const value = count > read ? bytes[read + std::size_t(i) / 8 % (count - read)] >> i % 8 & 1 : 1;
        volume.at(origin[0] + x * step, origin[1] + y * step, origin[2] + z * step) = static_cast<unsigned char>(value);
    }
    plain::ScanArguments const a{volume.data(), volume.increments(), static_cast<unsigned int>(step),
                                 test::toVec3(origin), test::toVec3(extent)};
    test::RecordingAggregator seen, expected;
    plain::wrapGlobal(a, objects(), expected);
    GLDataInfo counted;
    bool const isAsExpected = wrapGlobal(a.data, a.increments, a.step, a.origin, a.extent, objects(), seen) &&
                              getGLDataInfo(a.data, a.increments, a.step, a.origin, a.extent, objects(), counted) &&
                              seen.wasDrivenInOrder() && seen.emissions == expected.emissions &&
                              isSame(counted, plain::getGLDataInfo(a, objects()));
    return isAsExpected ? 0 : (std::abort(), 1);
}
