// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/PlainDescriptor.h"

#include <tamo/conn/GLPolygonDesc.h>

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace tamo::test {

inline GLVec3f libraryOf(Plain3 v) { return {v.x, v.y, v.z}; }
inline Plain3 plainOf(GLVec3f const& v) { return {v.x, v.y, v.z}; }

/// Holds the same vertices in the library's descriptor and in the slow one.
struct Twins {
    explicit Twins(std::vector<Plain3> const& positions) : plainPoints(positions) {
        for (Plain3 const& point : positions) {
            points.push_back(libraryOf(point));
        }
    }
    Twins(Twins const&) = delete;
    Twins& operator=(Twins const&) = delete;
    ~Twins() = default;

    void add(unsigned int link, Plain3 normal) {
        desc.addVertex(static_cast<unsigned char>(link), libraryOf(normal));
        plain.add(link, normal);
    }

    void setFan(bool fan) {
        desc.fan = fan;
        plain.fan = fan;
    }

    void arrange(unsigned int first, unsigned int second, bool close, std::optional<Plain3> given = std::nullopt) {
        desc.arrange(static_cast<unsigned char>(first), static_cast<unsigned char>(second), close,
                     given ? std::optional<GLVec3f>(libraryOf(*given)) : std::nullopt);
        plain.arrange(first, second, close, given);
    }

    [[nodiscard]] std::vector<unsigned int> order() const {
        return {desc.conn.begin(), desc.conn.begin() + desc.count};
    }

    void expectEqual() const {
        EXPECT_EQ(order(), plain.links);
        EXPECT_EQ(std::vector<unsigned int>(desc.normalIndex.begin(), desc.normalIndex.begin() + desc.count),
                  plain.slots);
        EXPECT_EQ(desc.hasCentre, plain.hasCentre);
        EXPECT_EQ(desc.closed, plain.closed);
        EXPECT_EQ(desc.ccw, plain.ccw);
        EXPECT_EQ(desc.fan, plain.fan);
        EXPECT_EQ(desc.strip, plain.strip);
        EXPECT_TRUE(sameFloats(plainOf(desc.centre), plain.centre));
        EXPECT_TRUE(sameFloats(plainOf(desc.meanNormal), plain.meanNormal));
    }

    std::vector<Plain3> plainPoints;
    std::vector<GLVec3f> points;
    GLPolygonDesc desc{points, 28};
    PlainDescriptor plain{plainPoints};
};

} // namespace tamo::test
