// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelStatistics.h"

#include "forEachRow.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>
#include <unordered_map>

namespace tamo::volume {

namespace {

// Counts how often each number of a type of at most two bytes occurs.
template <typename T> class TableCounter {
  public:
    void add(T value) { ++_counts[index(value)]; }

    [[nodiscard]] std::optional<std::vector<ValueCount>> counts() const {
        std::vector<ValueCount> counts;
        for (std::size_t i = 0; i < _counts.size(); ++i) {
            if (_counts[i] > 0) {
                counts.push_back({static_cast<double>(static_cast<T>(i)), _counts[i]});
            }
        }
        return counts;
    }

  private:
    // Negative numbers stand behind the others.
    static std::size_t index(T value) { return static_cast<std::make_unsigned_t<T>>(value); }

    std::vector<std::uint64_t> _counts = std::vector<std::uint64_t>(std::size_t{1} << (8 * sizeof(T)));
};

// Counts likewise for wider types, and gives up where there are too many.
template <typename T> class MapCounter {
  public:
    void add(T value) {
        if (_isFull) {
            return;
        }
        // In volumes that have few values, the next voxel is mostly as the last one.
        if (_last == nullptr || value != _lastValue) {
            if (_counts.size() == VoxelStatistics::kMostValues && _counts.count(value) == 0) {
                _isFull = true;
                _counts.clear();
                return;
            }
            // Pointers to the elements of a map of this kind stay valid.
            _last = &_counts[value];
            _lastValue = value;
        }
        ++*_last;
    }

    [[nodiscard]] std::optional<std::vector<ValueCount>> counts() const {
        if (_isFull) {
            return {};
        }
        std::vector<ValueCount> counts;
        counts.reserve(_counts.size());
        for (auto const& [value, voxels] : _counts) {
            counts.push_back({static_cast<double>(value), voxels});
        }
        return counts;
    }

  private:
    std::unordered_map<T, std::uint64_t> _counts;
    std::uint64_t* _last = nullptr;
    T _lastValue{};
    bool _isFull = false;
};

template <typename T> using Counter = std::conditional_t<sizeof(T) <= 2, TableCounter<T>, MapCounter<T>>;

// Gathers the statistics of stored numbers.
template <typename T> class Gatherer {
  public:
    void add(T const* row, std::int64_t count) {
        std::for_each_n(row, count, [this](T value) { add(value); });
    }

    [[nodiscard]] VoxelStatistics finish() const {
        VoxelStatistics statistics = _statistics;
        statistics.values = _counter.counts();
        if (_min <= _max) {
            statistics.range = {static_cast<double>(_min), static_cast<double>(_max)};
        }
        return statistics;
    }

  private:
    void add(T value) {
        if constexpr (std::is_floating_point_v<T>) {
            if (!std::isfinite(value)) {
                ++(std::isnan(value) ? _statistics.nan
                   : value > 0       ? _statistics.positiveInfinite
                                     : _statistics.negativeInfinite);
                return;
            }
            _statistics.areWhole = _statistics.areWhole && value == std::floor(value);
            // The two zeros are one value.
            value = value == 0 ? T{0} : value;
        }
        _min = std::min(_min, value);
        _max = std::max(_max, value);
        _counter.add(value);
    }

    VoxelStatistics _statistics;
    Counter<T> _counter;
    T _min = std::numeric_limits<T>::max();
    T _max = std::numeric_limits<T>::lowest();
};

// Turns statistics of stored numbers into those of values.
void scale(VoxelStatistics& statistics, VolumeHeader const& header) {
    auto const scaled = [&header](double stored) { return header.slope * stored + header.intercept; };
    if (statistics.range) {
        auto const [min, max] = std::minmax({scaled(statistics.range->min), scaled(statistics.range->max)});
        statistics.range = {min, max};
    }
    if (header.slope < 0) {
        std::swap(statistics.positiveInfinite, statistics.negativeInfinite);
    }
    if (statistics.values) {
        std::vector<ValueCount>& values = *statistics.values;
        for (ValueCount& count : values) {
            count.value = scaled(count.value);
        }
        std::sort(values.begin(), values.end(),
                  [](ValueCount const& a, ValueCount const& b) { return a.value < b.value; });
    }
}

// Counts pairs of neighbours.
class PairCounter {
  public:
    template <typename T> void add(T a, T b) {
        ++_pairs;
        _equal += static_cast<std::uint64_t>(a == b);
        if constexpr (std::is_integral_v<T>) {
            // As unsigned numbers, whose difference does not overflow.
            using U = std::make_unsigned_t<T>;
            U const apart =
                static_cast<U>(a < b ? static_cast<U>(b) - static_cast<U>(a) : static_cast<U>(a) - static_cast<U>(b));
            _oneApart += static_cast<std::uint64_t>(apart == 1);
        } else {
            _oneApart += static_cast<std::uint64_t>(std::abs(a - b) == 1);
        }
    }

    [[nodiscard]] NeighbourShares shares() const {
        auto const share = [](std::uint64_t part, std::uint64_t whole, double none) {
            return whole == 0 ? none : static_cast<double>(part) / static_cast<double>(whole);
        };
        return {share(_equal, _pairs, 1), share(_oneApart, _pairs - _equal, 0)};
    }

  private:
    std::uint64_t _pairs = 0;
    std::uint64_t _equal = 0;
    std::uint64_t _oneApart = 0;
};

} // namespace

VoxelStatistics computeStatistics(Volume const& volume, Progress const& progress) {
    std::int64_t const width = volume.size()[0];
    VoxelStatistics statistics = visitStoredType(volume, [&](auto type) {
        Gatherer<decltype(type)> gatherer;
        forEachRow<decltype(type)>(
            volume, [&](auto const* row, std::int64_t, std::int64_t) { gatherer.add(row, width); }, progress);
        return gatherer.finish();
    });
    scale(statistics, volume.header);
    return statistics;
}

NeighbourShares computeNeighbourShares(Volume const& volume, double mostFrequent, Progress const& progress) {
    auto const width = static_cast<std::size_t>(volume.size()[0]);
    VolumeHeader const& header = volume.header;
    return visitStoredType(volume, [&](auto type) {
        using T = decltype(type);
        PairCounter pairs;
        // The rows that the next row's voxels touch: the one before it, and a slice of those before.
        std::vector<T> before(width * static_cast<std::size_t>(volume.size()[1]));
        auto const isBackground = [&](T stored) {
            return header.slope * static_cast<double>(stored) + header.intercept == mostFrequent;
        };
        forEachRow<T>(
            volume,
            [&](T const* row, std::int64_t y, std::int64_t z) {
                T* const below = before.data() + static_cast<std::size_t>(y) * width;
                T const* const beside = y > 0 ? below - width : nullptr;
                for (std::size_t x = 0; x < width; ++x) {
                    bool const isHere = !isBackground(row[x]);
                    auto const meet = [&](T neighbour) {
                        if (isHere || !isBackground(neighbour)) {
                            pairs.add(row[x], neighbour);
                        }
                    };
                    if (x > 0) {
                        meet(row[x - 1]);
                    }
                    if (beside != nullptr) {
                        meet(beside[x]);
                    }
                    if (z > 0) {
                        meet(below[x]);
                    }
                }
                std::copy_n(row, width, below);
            },
            progress);
        return pairs.shares();
    });
}

} // namespace tamo::volume
