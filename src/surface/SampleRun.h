// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tamo {

/// Reads eight neighbouring bytes, the first into the least significant.
inline std::uint64_t loadEight(unsigned char const* bytes) {
    std::uint64_t value = 0;
    std::memcpy(&value, bytes, sizeof(value));
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    value = __builtin_bswap64(value);
#endif
    return value;
}

/// Packs eight bytes of 0 or 1 into one, the least significant first.
constexpr std::uint64_t packEight(std::uint64_t bytes) {
    // The factor moves each byte to a bit of its own in the product's top byte, and no sum carries into it.
    return (bytes * 0x0102040810204080U) >> 56U;
}

/// Eight samples, each `Distance` bytes behind the one before, as the bytes of a word; of each, its lowest bit. Bytes
/// between them are loaded, but do not count; nothing before the first or behind the last is read.
///
/// Loads that start 7 bytes apart meet every sample at a byte of its own, so that no sample has to be shifted. That
/// leaves them in another order: sample i stands at byte `place(i)`.
template <unsigned int Distance> struct SampleRun {
    static_assert(Distance % 7 != 0, "samples a multiple of the loads' distance apart would all meet the same byte");

    static constexpr unsigned int kLast = kTileSide - 1;

    static constexpr unsigned int place(unsigned int i) { return i < kLast ? Distance * i % kLast : kLast; }

    static std::uint64_t load(unsigned char const* first) {
        if constexpr (Distance == 1) {
            return loadEight(first) & 0x0101010101010101U;
        }
        std::uint64_t samples = 0;
        for (unsigned int part = 0; part < Distance; ++part) {
            samples |= loadEight(first + std::size_t{kLast} * part) & mask(part);
        }
        return samples;
    }

  private:
    /// Returns the bytes that the samples take in a load; the last sample ends the last load.
    static constexpr std::uint64_t mask(unsigned int part) {
        std::uint64_t bytes = 0;
        for (unsigned int i = 0; i <= kLast; ++i) {
            if (i < kLast ? Distance * i / kLast == part : part + 1 == Distance) {
                bytes |= std::uint64_t{1} << (kTileSide * place(i));
            }
        }
        return bytes;
    }
};

/// Returns the tile whose lanes are samples of a run and whose planes are `planes` such runs, `rise` apart; the lanes
/// are in the run's order.
template <unsigned int Distance>
BitTile stackRuns(unsigned char const* first, std::ptrdiff_t rise, unsigned int planes) {
    BitTile bits = SampleRun<Distance>::load(first);
    for (unsigned int j = 1; j < planes; ++j) {
        bits |= SampleRun<Distance>::load(first + j * rise) << j;
    }
    return bits;
}

/// Returns the tile whose planes are samples of a run and whose lanes are `lanes` such runs, `sideways` apart; the
/// planes are in the run's order.
template <unsigned int Distance>
BitTile packRuns(unsigned char const* first, std::ptrdiff_t sideways, unsigned int lanes) {
    BitTile bits = 0;
    for (unsigned int lane = 0; lane < lanes; ++lane) {
        bits |= packEight(SampleRun<Distance>::load(first + lane * sideways)) << (kTileSide * lane);
    }
    return bits;
}

/// Puts the lanes of a tile from a run's order into that of the samples, or of the samples from last to first.
template <unsigned int Distance> constexpr BitTile sortedLanes(BitTile tile, bool isBackwards) {
    if (Distance == 1 && !isBackwards) {
        return tile;
    }
    BitTile forwards = 0;
    BitTile backwards = 0;
    for (unsigned int i = 0; i < kTileSide; ++i) {
        BitTile const lane = laneOf(tile, SampleRun<Distance>::place(i));
        forwards |= lane << (kTileSide * i);
        backwards |= lane << (kTileSide * (kTileSide - 1 - i));
    }
    return isBackwards ? backwards : forwards;
}

/// Puts the planes of a tile into the samples' order, likewise.
template <unsigned int Distance> constexpr BitTile sortedPlanes(BitTile tile, bool isBackwards) {
    if (Distance == 1 && !isBackwards) {
        return tile;
    }
    constexpr BitTile kPlane = 0x0101010101010101U;
    BitTile forwards = 0;
    BitTile backwards = 0;
    for (unsigned int i = 0; i < kTileSide; ++i) {
        BitTile const plane = tile >> SampleRun<Distance>::place(i) & kPlane;
        forwards |= plane << i;
        backwards |= plane << (kTileSide - 1 - i);
    }
    return isBackwards ? backwards : forwards;
}

} // namespace tamo
