// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/Digest.h"

#include <tamo/conn/GLConn.h>
#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <ostream>

// The lists bit for bit, as every compiler makes them at every level of optimisation. Where a digest changes on
// purpose, the slow builder says whether the new list is the right one.

namespace {

using tamo::test::Digest;

struct ListCase {
    char const* name;
    Neighborhood::NHConfig config;
    std::uint64_t digest;

    friend std::ostream& operator<<(std::ostream& out, ListCase const& listCase) { return out << listCase.name; }
};

std::uint64_t digestOf(GLObjectList const& list) {
    Digest digest;
    digest.add(list);
    return digest.value();
}

std::string nameOf(testing::TestParamInfo<ListCase> const& listCase) { return listCase.param.name; }

class ListDigest : public testing::TestWithParam<ListCase> {};

TEST_P(ListDigest, IsTheSameEverywhere) {
    GLObjectList list;
    GLObjectListForNeighborhood(GetParam().config, list);
    EXPECT_EQ(digestOf(list), GetParam().digest);
}

INSTANTIATE_TEST_SUITE_P(NamedSystems, ListDigest,
                         testing::Values(ListCase{"N6", Neighborhood::N6, 0x86fbc4b4c74a6f6fU},
                                         ListCase{"N8", Neighborhood::N8, 0x57b9446805cf7c62U},
                                         ListCase{"N12", Neighborhood::N12, 0x57b9446805cf7c62U},
                                         ListCase{"N26", Neighborhood::N26, 0xa8cbf6d9007235ebU},
                                         ListCase{"N14I", Neighborhood::N14I, 0x1f117af96d480e1aU},
                                         ListCase{"N14II", Neighborhood::N14II, 0x57b9446805cf7c62U}),
                         nameOf);

class LinkNormalListDigest : public testing::TestWithParam<ListCase> {};

TEST_P(LinkNormalListDigest, IsTheSameEverywhere) {
    GLObjectList list;
    GLConn().wrapLocal(GetParam().config, &list, /*recomputeNormals=*/false);
    EXPECT_EQ(digestOf(list), GetParam().digest);
}

INSTANTIATE_TEST_SUITE_P(SystemsByCases, LinkNormalListDigest,
                         testing::Values(ListCase{"N6", Neighborhood::N6, 0xd33b6fd747cc6df2U},
                                         ListCase{"N26", Neighborhood::N26, 0xfe5aba06870f977aU},
                                         ListCase{"N14I", Neighborhood::N14I, 0xa5a0692a3e89dffeU}),
                         nameOf);

} // namespace
