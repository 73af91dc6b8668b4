// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <map>
#include <utility>

// Two cells that share a face share its four samples. Where the outline that a cell leaves on a face follows from these
// samples alone, and the two cells run along it in opposite directions, no surface has an open edge at a face.

namespace {

// Twice a position, so that midpoints are whole.
using Point = std::array<int, 3>;
using Edge = std::pair<Point, Point>;
// Every undirected edge, its lower end first, with how much more often it is run upwards than downwards.
using Outline = std::map<Edge, int>;

void run(Outline& outline, Point const& from, Point const& to) {
    Edge const edge = from < to ? Edge(from, to) : Edge(to, from);
    int& count = outline[edge];
    count += from < to ? 1 : -1;
    if (count == 0) {
        outline.erase(edge);
    }
}

Point doubled(GLVec3f const& position) {
    return {static_cast<int>(position.x * 2), static_cast<int>(position.y * 2), static_cast<int>(position.z * 2)};
}

// Returns what is left of all polygon edges of a cell once opposite ones have cancelled.
Outline outlineOf(GLObject const& object) {
    Outline outline;
    for (GLPolygon const* polygon : object) {
        for (unsigned int i = 0; i < polygon->size(); ++i) {
            run(outline, doubled(polygon->vertex(i)), doubled(polygon->vertex((i + 1) % polygon->size())));
        }
    }
    return outline;
}

bool isOnFace(Edge const& edge, std::size_t axis, int side) {
    return edge.first.at(axis) == 2 * side && edge.second.at(axis) == 2 * side;
}

// Returns the part of an outline on one face, as seen in the face: the axis that leads out of it is set to 0.
Outline faceOf(Outline const& outline, std::size_t axis, int side) {
    Outline face;
    for (auto const& [edge, count] : outline) {
        if (isOnFace(edge, axis, side)) {
            Edge flat = edge;
            flat.first.at(axis) = 0;
            flat.second.at(axis) = 0;
            face[flat] = count;
        }
    }
    return face;
}

// Returns the four samples of a face as bits, in the order of the corner numbers.
unsigned int samplesOf(unsigned int configuration, std::size_t axis, int side) {
    unsigned int samples = 0;
    unsigned int place = 0;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        if (static_cast<int>(corner >> axis & 1U) == side) {
            samples |= (configuration >> corner & 1U) << place++;
        }
    }
    return samples;
}

Outline reversed(Outline outline) {
    for (auto& entry : outline) {
        entry.second = -entry.second;
    }
    return outline;
}

class CellFaces : public testing::Test {
  protected:
    void SetUp() override { GLObjectListForNeighborhood(Neighborhood::N14II, _list); }

    GLObjectList _list;
};

TEST_F(CellFaces, OutlineFollowsFromTheFourSamplesAndCancelsWithTheNeighbor) {
    unsigned int faces = 0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::map<unsigned int, Outline> outlines;
        for (unsigned int configuration = 0; configuration < 256; ++configuration) {
            Outline const outline = outlineOf(*_list[configuration]);
            for (int side = 0; side < 2; ++side) {
                // The upper face of a cell is the lower face of the next one, seen from the other side.
                Outline face = faceOf(outline, axis, side);
                face = side == 0 ? face : reversed(face);
                Outline const& known = outlines.emplace(samplesOf(configuration, axis, side), face).first->second;
                EXPECT_EQ(face, known) << "configuration " << configuration << ", axis " << axis << ", side " << side;
                ++faces;
            }
        }
        EXPECT_EQ(outlines.size(), 16U);
    }
    EXPECT_EQ(faces, 256U * 3U * 2U);
}

TEST_F(CellFaces, OutlineSeparatesForegroundFromBackground) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        Outline const outline = outlineOf(*_list[configuration]);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            for (int side = 0; side < 2; ++side) {
                unsigned int const samples = samplesOf(configuration, axis, side);
                EXPECT_EQ(faceOf(outline, axis, side).empty(), samples == 0 || samples == 15)
                    << "configuration " << configuration << ", axis " << axis << ", side " << side;
            }
        }
    }
}

TEST_F(CellFaces, InsideTheCellEveryEdgeIsMetByItsReverse) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        for (auto const& [edge, count] : outlineOf(*_list[configuration])) {
            bool isOnAnyFace = false;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                isOnAnyFace = isOnAnyFace || isOnFace(edge, axis, 0) || isOnFace(edge, axis, 1);
            }
            EXPECT_TRUE(isOnAnyFace) << "configuration " << configuration;
            EXPECT_EQ(std::abs(count), 1) << "configuration " << configuration;
        }
    }
}

TEST_F(CellFaces, ComplementTurnsTheOutlineAround) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        EXPECT_EQ(outlineOf(*_list[configuration]), reversed(outlineOf(*_list[255 - configuration])))
            << "configuration " << configuration;
    }
}

} // namespace
