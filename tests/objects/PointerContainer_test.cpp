// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/objects/GLObjectList.h>
#include <tamo/objects/PointerContainer.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

std::vector<int> deleted;

// Writes its number down when it is deleted.
struct Probe {
    explicit Probe(int n) : number(n) {}
    ~Probe() { deleted.push_back(number); }
    int number;
};

using Container = Vb::PointerContainer<std::vector<Probe*>>;

static_assert(sizeof(Container) == sizeof(std::vector<Probe*>));
static_assert(std::is_same_v<decltype(std::declval<Container const&>().size()), unsigned int>);
static_assert(!std::is_polymorphic_v<Container>);
static_assert(std::is_convertible_v<int, Container>);

class PointerContainerTest : public testing::Test {
  protected:
    void SetUp() override { deleted.clear(); }

    // Holds probes 0 to n - 1.
    static std::unique_ptr<Container> filled(int n) {
        auto container = std::make_unique<Container>();
        for (int i = 0; i < n; ++i) {
            container->push_back(new Probe(i));
        }
        return container;
    }
};

TEST_F(PointerContainerTest, StartsWithNullSlots) {
    EXPECT_EQ(Container().size(), 0U);
    EXPECT_EQ(Container(0).size(), 0U);
    Container const three = 3;
    ASSERT_EQ(three.size(), 3U);
    for (Probe const* slot : three) {
        EXPECT_EQ(slot, nullptr);
    }
}

TEST_F(PointerContainerTest, NegativeSizeIsRefused) { EXPECT_THROW(Container(-1), std::length_error); }

TEST_F(PointerContainerTest, DestructionDeletesFirstToLastAndSkipsNull) {
    auto container = filled(2);
    container->push_back(nullptr);
    container->push_back(new Probe(2));
    container.reset();
    EXPECT_EQ(deleted, (std::vector<int>{0, 1, 2}));
}

TEST_F(PointerContainerTest, SlotsAreReadAndStoredInOrder) {
    auto container = filled(3);
    Container const& constant = *container;
    EXPECT_EQ(constant[1]->number, 1);
    EXPECT_EQ(container->end() - container->begin(), 3);
    EXPECT_EQ(constant.end() - constant.begin(), 3);
    EXPECT_EQ(&*constant.begin(), &constant[0]);
    EXPECT_EQ(&*container->begin(), &(*container)[0]);
    delete (*container)[1];
    (*container)[1] = new Probe(7);
    EXPECT_EQ(constant[1]->number, 7);
    EXPECT_EQ(deleted, std::vector<int>{1});
}

TEST_F(PointerContainerTest, CopyAndAssignmentShareThePointers) {
    auto container = filled(2);
    {
        // Of containers that share their objects only one may be destroyed: the others live in storage of their own
        // and are emptied slot by slot.
        Container copy(*container);
        Container assigned;
        assigned.push_back(new Probe(8));
        Probe const* const dropped = assigned[0];
        assigned = *container;
        EXPECT_TRUE(deleted.empty());
        ASSERT_EQ(copy.size(), 2U);
        ASSERT_EQ(assigned.size(), 2U);
        for (unsigned int i = 0; i < 2; ++i) {
            EXPECT_EQ(copy[i], (*container)[i]);
            EXPECT_EQ(assigned[i], (*container)[i]);
            copy[i] = nullptr;
            assigned[i] = nullptr;
        }
        delete dropped;
    }
    EXPECT_EQ(deleted, std::vector<int>{8});
    container.reset();
    EXPECT_EQ(deleted, (std::vector<int>{8, 0, 1}));
}

TEST_F(PointerContainerTest, AssignedToItselfKeepsItsObjects) {
    auto container = filled(3);
    Container const& same = *container;
    EXPECT_EQ(&(*container = same), container.get());
    EXPECT_TRUE(deleted.empty());
    ASSERT_EQ(container->size(), 3U);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ((*container)[i]->number, static_cast<int>(i));
    }
}

TEST_F(PointerContainerTest, EraseDeletesOneAndReturnsItsPlace) {
    auto container = filled(3);
    auto next = container->erase(container->begin() + 1);
    EXPECT_EQ(deleted, std::vector<int>{1});
    EXPECT_EQ(next - container->begin(), 1);
    EXPECT_EQ((*next)->number, 2);
    next = container->erase(next);
    EXPECT_EQ(next, container->end());
    EXPECT_EQ(container->size(), 1U);
    container->push_back(nullptr);
    next = container->erase(container->begin() + 1);
    EXPECT_EQ(next, container->end());
    EXPECT_EQ(deleted, (std::vector<int>{1, 2}));
}

TEST_F(PointerContainerTest, EraseFromTheFrontMovesTheRestForward) {
    auto container = filled(4);
    auto next = container->erase(container->begin());
    EXPECT_EQ(next, container->begin());
    EXPECT_EQ(deleted, std::vector<int>{0});
    ASSERT_EQ(container->size(), 3U);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ((*container)[i]->number, static_cast<int>(i) + 1);
    }
    next = container->erase(container->begin(), container->begin() + 2);
    EXPECT_EQ(next, container->begin());
    EXPECT_EQ((*next)->number, 3);
    EXPECT_EQ(deleted, (std::vector<int>{0, 1, 2}));
}

TEST_F(PointerContainerTest, EraseOfARangeDeletesItAndReturnsItsFirstPlace) {
    auto container = filled(5);
    delete (*container)[2];
    (*container)[2] = nullptr;
    deleted.clear();
    auto const next = container->erase(container->begin() + 1, container->begin() + 4);
    EXPECT_EQ(deleted, (std::vector<int>{1, 3}));
    EXPECT_EQ(next - container->begin(), 1);
    ASSERT_EQ(container->size(), 2U);
    EXPECT_EQ((*container)[1]->number, 4);
}

TEST_F(PointerContainerTest, EraseOfAnEmptyRangeDeletesNothing) {
    auto container = filled(3);
    auto const place = container->begin() + 2;
    EXPECT_EQ(container->erase(place, place), place);
    EXPECT_EQ(container->erase(container->end(), container->end()), container->end());
    EXPECT_TRUE(deleted.empty());
    EXPECT_EQ(container->size(), 3U);
}

TEST_F(PointerContainerTest, ClearDeletesAllAndKeepsTheStorage) {
    auto container = filled(3);
    Probe* const* const storage = &(*container)[0];
    container->clear();
    EXPECT_EQ(deleted, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(container->size(), 0U);
    for (int i = 0; i < 3; ++i) {
        container->push_back(nullptr);
    }
    EXPECT_EQ(&(*container)[0], storage);
}

TEST_F(PointerContainerTest, ReserveMakesRoomWithoutSlots) {
    Container container;
    container.reserve(256);
    EXPECT_EQ(container.size(), 0U);
    container.push_back(nullptr);
    Probe* const* const storage = &container[0];
    for (int i = 1; i < 256; ++i) {
        container.push_back(nullptr);
    }
    EXPECT_EQ(&container[0], storage);
}

TEST_F(PointerContainerTest, ClearAndResizeGiveNullSlots) {
    auto container = filled(3);
    container->clear();
    container->resize(256);
    ASSERT_EQ(container->size(), 256U);
    for (Probe const* slot : std::as_const(*container)) {
        EXPECT_EQ(slot, nullptr);
    }
}

TEST_F(PointerContainerTest, ResizeDeletesEverythingAndLeavesSurvivingSlotsAlone) {
    auto grown = filled(2);
    grown->resize(3);
    EXPECT_EQ(deleted, (std::vector<int>{0, 1}));
    EXPECT_NE((*grown)[0], nullptr);
    EXPECT_NE((*grown)[1], nullptr);
    EXPECT_EQ((*grown)[2], nullptr);
    (*grown)[0] = nullptr;
    (*grown)[1] = nullptr;

    auto shrunk = filled(3);
    deleted.clear();
    shrunk->resize(1);
    EXPECT_EQ(deleted, (std::vector<int>{0, 1, 2}));
    ASSERT_EQ(shrunk->size(), 1U);
    EXPECT_NE((*shrunk)[0], nullptr);
    (*shrunk)[0] = nullptr;
}

TEST(PointerContainerDeathTest, IndexPastTheEndStopsTheProgram) {
    GLObjectList list;
    list.resize(256);
    GLObjectList const& constant = list;
    EXPECT_DEATH(static_cast<void>(list[256]), "");
    EXPECT_DEATH(static_cast<void>(constant[256]), "");
    GLObject object;
    EXPECT_DEATH(static_cast<void>(object[0]), "");
}

} // namespace
