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
    // Of neighbours, which are often equal, each has a table of its own: to count in the same place twice in a row, the
    // machine would have to wait for itself.
    void add(T const* row, std::size_t count) {
        std::size_t x = 0;
        for (; x + kTables <= count; x += kTables) {
            for (std::size_t i = 0; i < kTables; ++i) {
                ++_counts[i * kNumbers + index(row[x + i])];
            }
        }
        for (; x < count; ++x) {
            ++_counts[index(row[x])];
        }
    }

    [[nodiscard]] std::optional<std::vector<ValueCount>> counts() const {
        std::vector<ValueCount> counts;
        for (std::size_t number = 0; number < kNumbers; ++number) {
            std::uint64_t voxels = 0;
            for (std::size_t i = 0; i < kTables; ++i) {
                voxels += _counts[i * kNumbers + number];
            }
            if (voxels > 0) {
                counts.push_back({static_cast<double>(static_cast<T>(number)), voxels});
            }
        }
        return counts;
    }

  private:
    static constexpr std::size_t kTables = sizeof(T) == 1 ? 4 : 2;
    static constexpr std::size_t kNumbers = std::size_t{1} << (8 * sizeof(T));

    // Negative numbers stand behind the others.
    static std::size_t index(T value) { return static_cast<std::make_unsigned_t<T>>(value); }

    std::vector<std::uint64_t> _counts = std::vector<std::uint64_t>(kTables * kNumbers);
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
        if constexpr (sizeof(T) <= 2) {
            _counter.add(row, static_cast<std::size_t>(count));
        } else {
            std::for_each_n(row, count, [this](T value) { add(value); });
        }
    }

    [[nodiscard]] VoxelStatistics finish() const {
        VoxelStatistics statistics = _statistics;
        statistics.values = _counter.counts();
        if constexpr (sizeof(T) <= 2) {
            auto const [min, max] =
                std::minmax_element(statistics.values->begin(), statistics.values->end(),
                                    [](ValueCount const& a, ValueCount const& b) { return a.value < b.value; });
            if (min != statistics.values->end()) {
                statistics.range = {min->value, max->value};
            }
            return statistics;
        }
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
    // Counts the pairs of a[i] and b[i] that are not both background. Without branches, and in numbers as narrow as
    // they may be, so that the compiler takes many at a time.
    template <typename T> void add(T const* a, T const* b, std::size_t count, T background) {
        constexpr std::size_t kPiece = std::size_t{1} << 16U;
        for (std::size_t first = 0; first < count; first += kPiece) {
            std::uint32_t pairs = 0;
            std::uint32_t equal = 0;
            std::uint32_t oneApart = 0;
            for (std::size_t i = first; i < std::min(count, first + kPiece); ++i) {
                auto const isWanted =
                    static_cast<std::uint32_t>(a[i] != background) | static_cast<std::uint32_t>(b[i] != background);
                pairs += isWanted;
                equal += isWanted & static_cast<std::uint32_t>(a[i] == b[i]);
                oneApart += isWanted & static_cast<std::uint32_t>(areOneApart(a[i], b[i]));
            }
            _pairs += pairs;
            _equal += equal;
            _oneApart += oneApart;
        }
    }

    [[nodiscard]] NeighbourShares shares() const {
        auto const share = [](std::uint64_t part, std::uint64_t whole, double none) {
            return whole == 0 ? none : static_cast<double>(part) / static_cast<double>(whole);
        };
        return {share(_equal, _pairs, 1), share(_oneApart, _pairs - _equal, 0)};
    }

  private:
    template <typename T> static bool areOneApart(T a, T b) {
        if constexpr (std::is_integral_v<T>) {
            // As unsigned numbers, whose difference does not overflow.
            using U = std::make_unsigned_t<T>;
            U const larger = static_cast<U>(std::max(a, b));
            U const smaller = static_cast<U>(std::min(a, b));
            return static_cast<U>(larger - smaller) == 1;
        } else {
            return std::abs(a - b) == 1;
        }
    }

    std::uint64_t _pairs = 0;
    std::uint64_t _equal = 0;
    std::uint64_t _oneApart = 0;
};

// Returns the stored number that means a value which occurs. Whole numbers are those stored, as a rule.
template <typename T> T storedNumber(double value, VolumeHeader const& header) {
    double const stored = (value - header.intercept) / header.slope;
    double const whole = std::round(stored);
    bool const isWhole = std::is_integral_v<T> || header.slope * whole + header.intercept == value;
    return static_cast<T>(isWhole ? whole : stored);
}

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
    return visitStoredType(volume, [&](auto type) {
        using T = decltype(type);
        PairCounter pairs;
        // The rows that the next row's voxels touch: the one before it, and a slice of those before.
        std::vector<T> before(width * static_cast<std::size_t>(volume.size()[1]));
        auto const background = storedNumber<T>(mostFrequent, volume.header);
        forEachRow<T>(
            volume,
            [&](T const* row, std::int64_t y, std::int64_t z) {
                T* const below = before.data() + static_cast<std::size_t>(y) * width;
                pairs.add(row, row + 1, width - 1, background);
                if (y > 0) {
                    pairs.add(row, below - width, width, background);
                }
                if (z > 0) {
                    pairs.add(row, below, width, background);
                }
                std::copy_n(row, width, below);
            },
            progress);
        return pairs.shares();
    });
}

} // namespace tamo::volume
