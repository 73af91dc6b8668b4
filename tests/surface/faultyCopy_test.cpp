// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/memory/FailingNew.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <iostream>
#include <ostream>
#include <sstream>

using namespace tamo::test;

// Takes the place of the library's own: a copy that has lost a slot. The scan guards against such a copy. As in
// the library, the base's copy constructor would share the objects. NOLINTNEXTLINE(bugprone-copy-constructor-init)
GLObjectList::GLObjectList(GLObjectList const& other, float /*scale*/)
    : Vb::PointerContainer<std::vector<GLObject*>>(0) {
    for (unsigned int i = 1; i < other.size(); ++i) {
        push_back(new GLObject());
    }
}

namespace {

// Collects what is written to it, and takes note of how many blocks were allocated when the first character came.
class WatchingBuffer : public std::stringbuf {
  public:
    std::ptrdiff_t blocksAtFirst = -1;

  protected:
    std::streamsize xsputn(char const* text, std::streamsize size) override {
        watch();
        return std::stringbuf::xsputn(text, size);
    }
    int_type overflow(int_type character) override {
        watch();
        return std::stringbuf::overflow(character);
    }

  private:
    void watch() { blocksAtFirst = blocksAtFirst < 0 ? FailingNew::liveBlocks() : blocksAtFirst; }
};

TEST(FaultyCopy, IsDestroyedBeforeItsSizeIsTold) {
    GLObjectList list;
    makeMarkedList(list);
    unsigned char const voxels[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    RecordingAggregator receiver;
    WatchingBuffer messages;
    std::streambuf* const before = std::cerr.rdbuf(&messages);
    auto const flags = std::cerr.flags(std::ios_base::hex | std::ios_base::showbase);
    std::ptrdiff_t const blocks = FailingNew::liveBlocks();
    bool const result = wrapGlobal(voxels, {1, 2, 4}, 2, {0, 0, 0}, {2, 2, 2}, list, receiver);
    std::cerr.flags(flags);
    std::cerr.rdbuf(before);
    EXPECT_FALSE(result);
    EXPECT_EQ(messages.str(), "cList size mismatch: size=255\n");
    EXPECT_EQ(messages.blocksAtFirst, blocks);
    EXPECT_TRUE(receiver.wasDrivenInOrder());
    EXPECT_TRUE(receiver.emissions.empty());
}

} // namespace
