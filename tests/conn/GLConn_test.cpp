// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/Digest.h"
#include "support/GLConnAccess.h"
#include "support/TextCapture.h"
#include "support/oracle/PlainBuilder.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <type_traits>

static_assert(std::is_convertible_v<Neighborhood::NHConfig, GLConn>);

namespace {

using namespace tamo::test;
using NHConfig = Neighborhood::NHConfig;

constexpr NHConfig kSystems[] = {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I};

std::uint64_t digestOf(GLObjectList const& list) {
    Digest digest;
    digest.add(list);
    return digest.value();
}

std::uint64_t wrapDigest(GLConn& conn, NHConfig config, bool recompute = true) {
    GLObjectList list;
    conn.wrapLocal(config, &list, recompute);
    EXPECT_EQ(list.size(), 256U);
    return digestOf(list);
}

std::uint64_t wrapDigest(GLConn&& conn, NHConfig config) { return wrapDigest(conn, config); }

TEST(GLConn, IsSetUpForTheSixNeighboursByDefault) {
    GLConn conn;
    EXPECT_STREQ(conn.getName(), "N6");
    EXPECT_EQ(conn.getFgConnSize(), 12U);
    EXPECT_EQ(conn.getVInfo(0), 0x301U);
    EXPECT_EQ(GLConnAccess::caseLut(conn)[1], 8U);
}

TEST(GLConn, SetUpAgainReplacesEverything) {
    GLConn conn(Neighborhood::N26);
    EXPECT_EQ(conn.getVInfo(24), 0x104U);
    GLConnAccess::caseLut(conn)[0] = 77;
    EXPECT_TRUE(conn.setupConn(Neighborhood::N14I));
    EXPECT_STREQ(conn.getName(), "N14I");
    EXPECT_EQ(conn.getVInfo(24), 0x304U);
    EXPECT_EQ(GLConnAccess::caseLut(conn)[0], 0U);
}

TEST(GLConn, ReportsALinkThatTwoTablesShareAndGoesOn) {
    GLConn conn(Neighborhood::N26);
    TextCapture const errors(std::cerr);
    EXPECT_TRUE(conn.setupConn(NHConfig{11}));
    EXPECT_EQ(errors.text(), "cought exception:\"GLConn::connect ERROR:connection already defined\"\n");
    // Name, properties and table are those of the last system that was set up.
    EXPECT_STREQ(conn.getName(), "N26");
    EXPECT_EQ(conn.getVInfo(24), 0x104U);
    EXPECT_EQ(GLConnAccess::caseLut(conn)[0x1b], 0x840U);
    EXPECT_EQ(conn.getFgConnSize(), 25U);
}

TEST(GLConn, ConstructionThatFailsLeavesAnEmptyTable) {
    TextCapture const errors(std::cerr);
    GLConn conn(NHConfig{13});
    EXPECT_EQ(errors.text(), "cought exception:\"GLConn::connect ERROR:connection already defined\"\n");
    EXPECT_EQ(GLConnAccess::caseLut(conn), std::vector<unsigned int>(256, 0U));
    EXPECT_STREQ(conn.getName(), "invalid");
    EXPECT_EQ(conn.getVInfo(0), 0U);
}

TEST(GLConn, WithoutATableEveryPairIsTheDefaultCase) {
    TextCapture const errors(std::cerr);
    GLObjectList list;
    GLConn(NHConfig{13}).wrapLocal(NHConfig{13}, &list, true);
    PlainBuilder const plain(13, /*hadTable=*/false);
    for (unsigned int configuration = 0; configuration < 255; ++configuration) {
        PlainCell const cell = plain.build(configuration, true);
        ASSERT_EQ(list[configuration]->size(), cell.polygons.size());
        for (unsigned int i = 0; i < cell.polygons.size(); ++i) {
            EXPECT_TRUE(samePolygon(*(*list[configuration])[i], cell.polygons[i])) << configuration;
        }
    }
}

TEST(GLConn, WrapLocalForgetsTheSystemBefore) {
    for (NHConfig const config : kSystems) {
        std::uint64_t const expected = wrapDigest(GLConn(config), config);
        GLConn reused;
        for (NHConfig const before : kSystems) {
            EXPECT_EQ(wrapDigest(GLConn(before), config), expected);
            wrapDigest(reused, before);
            EXPECT_EQ(wrapDigest(reused, config), expected);
            EXPECT_STREQ(reused.getName(), GLConn(config).getName());
        }
    }
}

TEST(GLConn, WrapLocalReplacesTheContentsOfTheList) {
    GLObjectList list;
    list.push_back(new GLObject());
    list.push_back(nullptr);
    GLConn conn;
    conn.wrapLocal(Neighborhood::N26, &list, true);
    std::uint64_t const once = digestOf(list);
    conn.wrapLocal(Neighborhood::N26, &list, true);
    EXPECT_EQ(list.size(), 256U);
    EXPECT_EQ(digestOf(list), once);
    EXPECT_EQ(list[0]->size(), 0U);
    EXPECT_EQ(list[255]->size(), 0U);
}

TEST(GLConn, EveryOtherConfigurationHasAPolygon) {
    for (NHConfig const config : kSystems) {
        GLObjectList list;
        TextCapture const errors(std::cerr);
        GLConn().wrapLocal(config, &list, true);
        for (unsigned int configuration = 1; configuration < 255; ++configuration) {
            EXPECT_GT(list[configuration]->size(), 0U) << configuration;
        }
        EXPECT_EQ(errors.text(), "");
    }
}

TEST(GLConn, ByCasesTheOtherSystemsHaveGapsButAFullList) {
    GLObjectList list;
    for (NHConfig const config : {NHConfig{8}, NHConfig{16}, Neighborhood::N14II, NHConfig{24}}) {
        TextCapture const errors(std::cerr);
        GLConn().wrapLocal(config, &list, true);
        EXPECT_EQ(list.size(), 256U);
        EXPECT_NE(errors.text().find("no vertex found\n"), std::string::npos);
    }
}

TEST(GLConn, RecomputedNormalsAreThoseOfThePolygons) {
    for (NHConfig const config : kSystems) {
        GLObjectList byLinks;
        GLObjectList byPolygons;
        GLConn().wrapLocal(config, &byLinks, false);
        GLConn().wrapLocal(config, &byPolygons, true);
        EXPECT_NE(digestOf(byLinks), digestOf(byPolygons));
        for (GLObject* object : byLinks) {
            for (GLPolygon* polygon : *object) {
                EXPECT_TRUE(polygon->setNormals());
                EXPECT_EQ(polygon->color(), GLVec3f());
            }
        }
        EXPECT_EQ(digestOf(byLinks), digestOf(byPolygons));
    }
}

TEST(GLConn, CopiesAreIndependent) {
    GLConn source(Neighborhood::N26);
    GLConnAccess::caseLut(source)[0] = 5;
    GLConn copy(source);
    GLConn assigned(Neighborhood::N14I);
    assigned = source;
    source.setupConn(Neighborhood::N6);
    for (GLConn* conn : {&copy, &assigned}) {
        EXPECT_STREQ(conn->getName(), "N26");
        EXPECT_EQ(conn->getVInfo(24), 0x104U);
        EXPECT_EQ(GLConnAccess::caseLut(*conn)[0], 5U);
        EXPECT_EQ(GLConnAccess::midpoints(*conn), GLConnAccess::midpoints(source));
        EXPECT_EQ(wrapDigest(*conn, Neighborhood::N14I), wrapDigest(source, Neighborhood::N14I));
    }
}

TEST(GLConn, CopyOutlivesItsSource) {
    GLObjectList list;
    {
        auto const source = std::make_unique<GLConn>(Neighborhood::N26);
        GLConn copy(*source);
        copy.wrapLocal(Neighborhood::N26, &list, true);
    }
    EXPECT_EQ(digestOf(list), wrapDigest(GLConn(), Neighborhood::N26));
}

TEST(GLConn, IsDestroyedThroughItsBase) {
    EXPECT_TRUE(std::has_virtual_destructor_v<GLConn>);
    EXPECT_TRUE((std::is_base_of_v<NhProp, GLConn>));
    std::unique_ptr<NhProp> const conn = std::make_unique<GLConn>();
    EXPECT_EQ(conn->getVInfo(0), 0x301U);
}

} // namespace
