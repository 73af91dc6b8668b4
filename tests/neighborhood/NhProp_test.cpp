// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/neighborhood/NhProp.h>

#include "support/PrivateAccess.h"
#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace tamo::test {

struct NhPropHigherCorner {
    using Type = std::vector<unsigned char> NhProp::*;
    friend Type access(NhPropHigherCorner /*tag*/);
};
template struct PrivateAccess<NhPropHigherCorner, &NhProp::_p1>;

} // namespace tamo::test

namespace {

using namespace tamo::test;

// Opens what a derived builder sees.
struct OpenNhProp : NhProp {
    using NhProp::_mid;
};

OpenNhProp propertiesOf(unsigned int config) {
    OpenNhProp properties;
    properties.setupNeighborhood(static_cast<Neighborhood::NHConfig>(config));
    EXPECT_TRUE(properties.setupProp());
    return properties;
}

Plain3 plainOf(GLVec3f const& v) { return {v.x, v.y, v.z}; }

class NhPropOfSystem : public testing::TestWithParam<unsigned int> {};

TEST_P(NhPropOfSystem, InformationWordHoldsTypeAndMembership) {
    OpenNhProp const properties = propertiesOf(GetParam());
    PlainAdjacency const plain(GetParam());
    for (unsigned int link = 0; link < 28; ++link) {
        SCOPED_TRACE(link);
        unsigned int const membership =
            (plain.isForeground(link) ? 0x100U : 0) + (plain.isBackground(link) ? 0x200U : 0);
        EXPECT_EQ(properties.getVInfo(link), plainLinkType(link) + membership);
    }
}

TEST_P(NhPropOfSystem, GeometryIsThatOfTheCorners) {
    OpenNhProp const properties = propertiesOf(GetParam());
    for (unsigned int link = 0; link < 28; ++link) {
        SCOPED_TRACE(link);
        auto const [low, high] = plainLinks()[link];
        EXPECT_EQ(properties.getP0ofConn(link), low);
        EXPECT_EQ((properties.*access(NhPropHigherCorner()))[link], high);
        Plain3 const a = plainCorner(low);
        Plain3 const b = plainCorner(high);
        bool const isEdge = plainLinkType(link) == 1;
        EXPECT_TRUE(sameFloats(plainOf(properties._mid[link]), times(plus(a, b), 0.5F)));
        EXPECT_TRUE(sameFloats(plainOf(properties.getNormal(link, true)), isEdge ? minus(b, a) : unit(minus(b, a))));
        EXPECT_TRUE(sameFloats(plainOf(properties.getNormal(link, false)), isEdge ? minus(a, b) : unit(minus(a, b))));
    }
}

INSTANTIATE_TEST_SUITE_P(NamedSystems, NhPropOfSystem, testing::Values(1U, 4U, 6U, 7U, 9U, 17U, 3U, 0U),
                         testing::PrintToStringParamName());

TEST(NhProp, NamesTheMembershipOfALinkUnderEachSystem) {
    EXPECT_EQ(propertiesOf(Neighborhood::N6).getVInfo(0), 0x301U);
    EXPECT_EQ(propertiesOf(Neighborhood::N6).getVInfo(12), 0x202U);
    EXPECT_EQ(propertiesOf(Neighborhood::N6).getVInfo(24), 0x204U);
    EXPECT_EQ(propertiesOf(Neighborhood::N26).getVInfo(0), 0x301U);
    EXPECT_EQ(propertiesOf(Neighborhood::N26).getVInfo(12), 0x102U);
    EXPECT_EQ(propertiesOf(Neighborhood::N26).getVInfo(24), 0x104U);
    EXPECT_EQ(propertiesOf(Neighborhood::N14I).getVInfo(13), 0x302U);
    EXPECT_EQ(propertiesOf(Neighborhood::N14I).getVInfo(24), 0x304U);
    EXPECT_EQ(propertiesOf(Neighborhood::N14I).getVInfo(12), 0x002U);
}

TEST(NhProp, DirectionsHaveUnitLengthInSinglePrecision) {
    OpenNhProp const properties = propertiesOf(Neighborhood::N6);
    EXPECT_EQ(properties._mid[7], GLVec3f(0, 1, 0.5F));
    EXPECT_EQ(properties.getNormal(7, true), GLVec3f(0, 0, 1));
    EXPECT_EQ(properties.getNormal(7, false), GLVec3f(0, 0, -1));
    EXPECT_EQ(properties._mid[24], GLVec3f(0.5F, 0.5F, 0.5F));
    EXPECT_EQ(properties.getNormal(24, true), GLVec3f(0.57735026F, 0.57735026F, 0.57735026F));
    // Link 12 leads from corner 1 to corner 2.
    EXPECT_EQ(properties.getNormal(12, true), GLVec3f(-0.70710677F, 0.70710677F, 0));
}

TEST(NhProp, IsAllZeroBeforeSetUp) {
    OpenNhProp const properties;
    ASSERT_EQ(properties._mid.size(), 28U);
    for (unsigned int link = 0; link < 28; ++link) {
        EXPECT_EQ(properties._mid[link], GLVec3f());
        EXPECT_EQ(properties.getNormal(link, true), GLVec3f());
        EXPECT_EQ(properties.getNormal(link, false), GLVec3f());
        EXPECT_EQ(properties.getVInfo(link), 0U);
        EXPECT_EQ(properties.getP0ofConn(link), 0U);
    }
}

TEST(NhProp, SecondSetUpForgetsTheFirst) {
    OpenNhProp properties = propertiesOf(Neighborhood::N26);
    properties.setupNeighborhood(Neighborhood::N6);
    properties.setupProp();
    OpenNhProp const fresh = propertiesOf(Neighborhood::N6);
    for (unsigned int link = 0; link < 28; ++link) {
        EXPECT_EQ(properties.getVInfo(link), fresh.getVInfo(link));
        EXPECT_EQ(properties.getNormal(link, true), fresh.getNormal(link, true));
    }
}

TEST(NhProp, NumbersThatAreNoLinksAreSkipped) {
    struct WithStrays : OpenNhProp {
        WithStrays() {
            setupNeighborhood(N26);
            _fgConn.push_back(28);
            _bgConn.push_back(0xffffffffU);
        }
    };
    WithStrays properties;
    EXPECT_TRUE(properties.setupProp());
    EXPECT_EQ(properties.getVInfo(27), 0x104U);
    EXPECT_EQ(properties.getVInfo(0), 0x301U);
}

TEST(NhProp, CopiesHoldTheirOwnProperties) {
    OpenNhProp source = propertiesOf(Neighborhood::N26);
    OpenNhProp const copy = source;
    OpenNhProp assigned;
    assigned = source;
    source.setupNeighborhood(Neighborhood::N6);
    source.setupProp();
    for (OpenNhProp const* each : {&copy, static_cast<OpenNhProp const*>(&assigned)}) {
        EXPECT_STREQ(each->getName(), "N26");
        EXPECT_EQ(each->getVInfo(24), 0x104U);
        EXPECT_EQ(each->_mid, source._mid);
        EXPECT_EQ(each->getP0ofConn(7), 2U);
        EXPECT_EQ(each->getNormal(7, false), GLVec3f(0, 0, -1));
    }
}

template <typename Call> std::string thrownText(Call const& call) {
    try {
        call();
    } catch (char const* text) {
        return text;
    }
    return "nothing";
}

TEST(NhProp, WrongLinkNumberThrowsAPlainString) {
    OpenNhProp const properties = propertiesOf(Neighborhood::N6);
    for (unsigned int const link : {28U, 29U, 0xffffffffU}) {
        EXPECT_EQ(thrownText([&] { (void)properties.getP0ofConn(link); }), "NhProp::getP0ofConn: invald index:");
        EXPECT_EQ(thrownText([&] { (void)properties.getVInfo(link); }), "NhProp::getVInfo: invald index:");
        for (bool const up : {false, true}) {
            EXPECT_EQ(thrownText([&] { (void)properties.getNormal(link, up); }), "NhProp::getNormal: invald index:");
        }
    }
    EXPECT_EQ(thrownText([&] { (void)properties.getVInfo(27); }), "nothing");
}

TEST(NhProp, IsDestroyedThroughItsBase) { EXPECT_TRUE(std::has_virtual_destructor_v<NhProp>); }

} // namespace
