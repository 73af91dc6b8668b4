// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tamo::scan {

/// Reads eight neighbouring bytes, the first into the least significant.
inline std::uint64_t loadEight(unsigned char const* bytes) {
    std::uint64_t value = 0;
    std::memcpy(&value, bytes, sizeof(value));
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    value = __builtin_bswap64(value);
#endif
    return value;
}

/// Eight samples in a row, a fixed `Distance` of bytes from one to the next, which are loaded together as the bytes of
/// a word. Nothing before the first or behind the last is read; bytes between them are, but do not count.
///
/// Loads that start 7 bytes apart meet every sample at a byte of its own, so that no sample has to be shifted. That
/// leaves them in another order, and so do falling addresses, as a load begins at the lowest.
template <unsigned int Distance> class NearRun {
    static_assert(Distance % 7 != 0, "samples a multiple of the loads' distance apart would all meet the same byte");

  public:
    /// `stride` is the address distance between samples: `Distance` or its negative.
    explicit NearRun(std::ptrdiff_t stride) : _isBackwards(stride < 0) {}

    /// Returns where a load starts, seen from the first sample.
    [[nodiscard]] std::ptrdiff_t start() const { return _isBackwards ? -std::ptrdiff_t{kLast} * Distance : 0; }

    /// Returns the samples in the order of their places, from the run that starts at `lowest`; of each, the lowest bit.
    [[nodiscard]] static std::uint64_t load(unsigned char const* lowest) {
        if constexpr (Distance == 1) {
            return loadEight(lowest) & 0x0101010101010101U;
        }
        std::uint64_t samples = 0;
        for (unsigned int part = 0; part < Distance; ++part) {
            samples |= loadEight(lowest + std::size_t{kLast} * part) & mask(part);
        }
        return samples;
    }

    /// Returns which byte of a load sample i is.
    [[nodiscard]] unsigned int place(unsigned int i) const { return placeFromLowest(_isBackwards ? kLast - i : i); }

    /// Puts the lanes of a tile into the samples' order.
    [[nodiscard]] BitTile sortedLanes(BitTile tile) const {
        return sorted(
            tile, [](BitTile from, unsigned int i) { return BitTile{laneOf(from, i)}; }, kTileSide);
    }

    /// Puts the planes of a tile into the samples' order.
    [[nodiscard]] BitTile sortedPlanes(BitTile tile) const {
        return sorted(
            tile, [](BitTile from, unsigned int i) { return from >> i & 0x0101010101010101U; }, 1);
    }

  private:
    static constexpr unsigned int kLast = kTileSide - 1;

    static constexpr unsigned int placeFromLowest(unsigned int i) { return i < kLast ? Distance * i % kLast : kLast; }

    // Returns the bytes that the samples take in a load; the last sample ends the last load.
    static constexpr std::uint64_t mask(unsigned int part) {
        std::uint64_t bytes = 0;
        for (unsigned int i = 0; i <= kLast; ++i) {
            if (i < kLast ? Distance * i / kLast == part : part + 1 == Distance) {
                bytes |= std::uint64_t{1} << (kTileSide * placeFromLowest(i));
            }
        }
        return bytes;
    }

    // Takes the parts of a tile that `part` finds, and puts them `distance` bits from each other. Both directions are
    // written out: moves by constants cost less than those by a table.
    template <typename Part> [[nodiscard]] BitTile sorted(BitTile tile, Part const& part, unsigned int distance) const {
        BitTile result = 0;
        if (_isBackwards) {
            for (unsigned int i = 0; i < kTileSide; ++i) {
                result |= part(tile, placeFromLowest(kLast - i)) << (distance * i);
            }
        } else if (Distance == 1) {
            result = tile;
        } else {
            for (unsigned int i = 0; i < kTileSide; ++i) {
                result |= part(tile, placeFromLowest(i)) << (distance * i);
            }
        }
        return result;
    }

    bool _isBackwards;
};

/// Eight samples in a row, any distance from one to the next: loaded one by one, in their own order.
class FarRun {
  public:
    explicit FarRun(std::ptrdiff_t stride) : _stride(stride) {}

    [[nodiscard]] static constexpr std::ptrdiff_t start() { return 0; }

    [[nodiscard]] std::uint64_t load(unsigned char const* first) const {
        std::uint64_t samples = 0;
        for (unsigned int i = 0; i < kTileSide; ++i) {
            samples |= std::uint64_t{first[i * _stride]} << (kTileSide * i);
        }
        return samples & 0x0101010101010101U;
    }

    [[nodiscard]] static constexpr unsigned int place(unsigned int i) { return i; }
    [[nodiscard]] static constexpr BitTile sortedLanes(BitTile tile) { return tile; }
    [[nodiscard]] static constexpr BitTile sortedPlanes(BitTile tile) { return tile; }

  private:
    std::ptrdiff_t _stride;
};

/// Returns the tile whose lanes are the places of a run's samples and whose planes are `planes` such runs, `rise`
/// apart, the lowest of which starts at `first`.
template <typename Run>
BitTile stackRuns(Run const& run, unsigned char const* first, std::ptrdiff_t rise, unsigned int planes) {
    BitTile bits = run.load(first);
    for (unsigned int j = 1; j < planes; ++j) {
        bits |= run.load(first + j * rise) << j;
    }
    return bits;
}

/// Returns the tile whose planes are the places of a run's samples and whose lanes are `lanes` such runs, `sideways`
/// apart, the first of which starts at `first`.
template <typename Run>
BitTile packRuns(Run const& run, unsigned char const* first, std::ptrdiff_t sideways, unsigned int lanes) {
    BitTile bits = 0;
    for (unsigned int lane = 0; lane < lanes; ++lane) {
        bits |= packEight(run.load(first + lane * sideways)) << (kTileSide * lane);
    }
    return bits;
}

} // namespace tamo::scan
