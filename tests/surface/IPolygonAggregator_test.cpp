// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/IPolygonAggregator.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

// Overrides no more than it has to.
class Minimal : public IPolygonAggregator {
  public:
    explicit Minimal(bool* isDestroyed = nullptr) : _isDestroyed(isDestroyed) {}
    Minimal(Minimal const&) = default;
    Minimal& operator=(Minimal const&) = default;
    ~Minimal() override {
        if (_isDestroyed != nullptr) {
            *_isDestroyed = true;
        }
    }

    void fetch(GLObject& /*object*/, GLCoord3f const& /*offset*/) override { ++fetchesWithOffset; }
    void fetch(GLObject& /*object*/) override { ++fetches; }

    int fetchesWithOffset = 0;
    int fetches = 0;

  private:
    bool* _isDestroyed;
};

TEST(IPolygonAggregator, StartAndFinishDoNothingUnlessOverridden) {
    Minimal receiver;
    IPolygonAggregator& base = receiver;
    base.start();
    base.finish();
    EXPECT_EQ(receiver.fetches + receiver.fetchesWithOffset, 0);
}

TEST(IPolygonAggregator, TheTwoFetchesAreApart) {
    Minimal receiver;
    IPolygonAggregator& base = receiver;
    GLObject object;
    base.fetch(object, GLCoord3f(1, 2, 3));
    EXPECT_EQ(receiver.fetchesWithOffset, 1);
    EXPECT_EQ(receiver.fetches, 0);
    base.fetch(object);
    EXPECT_EQ(receiver.fetches, 1);
}

TEST(IPolygonAggregator, IsDestroyedThroughItsBase) {
    bool isDestroyed = false;
    std::unique_ptr<IPolygonAggregator> receiver = std::make_unique<Minimal>(&isDestroyed);
    receiver.reset();
    EXPECT_TRUE(isDestroyed);
}

TEST(IPolygonAggregator, HoldsNothingButItsVirtualTable) {
    EXPECT_EQ(sizeof(IPolygonAggregator), sizeof(void*));
    EXPECT_TRUE(std::is_abstract_v<IPolygonAggregator>);
    EXPECT_TRUE(std::is_copy_constructible_v<Minimal>);
    EXPECT_TRUE(std::is_copy_assignable_v<Minimal>);
}

} // namespace
