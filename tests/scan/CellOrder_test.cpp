// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/scan/CellOrder.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using namespace tamo::scan;

using Columns = std::vector<std::pair<std::int64_t, std::int64_t>>;

// Writes the order down block by block, for the samples 0 to lastX and 0 to lastY.
Columns columnsOfFiveBlocks(std::int64_t lastX, std::int64_t lastY) {
    Columns columns;
    for (std::int64_t y = 0; y < lastY; ++y) {
        for (std::int64_t x = 0; x < lastX; ++x) {
            columns.emplace_back(x, y);
        }
    }
    for (std::int64_t x = 0; x < lastX; ++x) {
        columns.emplace_back(x, lastY);
    }
    for (std::int64_t y = 0; y < lastY; ++y) {
        columns.emplace_back(lastX, y);
    }
    for (std::int64_t x = 0; x < lastX; ++x) {
        columns.emplace_back(x, -1);
    }
    for (std::int64_t y = 0; y < lastY; ++y) {
        columns.emplace_back(-1, y);
    }
    return columns;
}

TEST(CellOrder, RowsAreThoseOfTheFirstFiveBlocks) {
    for (std::int64_t sizeX = 1; sizeX < 6; ++sizeX) {
        for (std::int64_t sizeY = 1; sizeY < 6; ++sizeY) {
            Columns columns;
            forEachRow({sizeX, sizeY, 3}, [&](CellRow row, std::int64_t count, auto /*corners*/) {
                for (std::int64_t i = 0; i < count; ++i) {
                    columns.emplace_back(row.column(i).x, row.column(i).y);
                }
            });
            EXPECT_EQ(columns, columnsOfFiveBlocks(sizeX - 1, sizeY - 1));
        }
    }
}

TEST(CellOrder, ARowsCornersAreThoseInTheGrid) {
    forEachRow({4, 5, 3}, [](CellRow row, std::int64_t count, auto corners) {
        for (std::int64_t i = 0; i < count; ++i) {
            for (unsigned int corner = 0; corner < 4; ++corner) {
                std::int64_t const x = row.column(i).x + (corner & 1U);
                std::int64_t const y = row.column(i).y + (corner >> 1U);
                EXPECT_EQ((corners.value >> corner & 1U) != 0, x >= 0 && y >= 0 && x < 4 && y < 5);
            }
        }
    });
}

TEST(CellOrder, CornerColumnsAreThoseOfTheSixth) {
    Columns columns;
    for (CellColumn const& column : cornerColumns({4, 7, 2})) {
        columns.emplace_back(column.x, column.y);
    }
    EXPECT_EQ(columns, (Columns{{-1, -1}, {-1, 6}, {3, -1}, {3, 6}}));
}

} // namespace
