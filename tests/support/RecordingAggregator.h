// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/Emission.h"
#include "support/MarkedList.h"

#include <tamo/surface/IPolygonAggregator.h>

#include <string>

namespace tamo::test {

/// Keeps what a scan of a marked list hands over.
class RecordingAggregator : public IPolygonAggregator {
  public:
    void start() override { _calls += 's'; }
    void finish() override { _calls += 'f'; }

    void fetch(GLObject& object, GLCoord3f const& offset) override {
        if (_calls != "s") {
            _calls += 'x';
        }
        emissions.push_back({markOf(object), offset});
        lastObject = &object;
    }

    void fetch(GLObject& /*object*/) override { _calls += 'x'; }

    /// Returns whether one `start` came before and one `finish` after every `fetch`, each of those with an offset.
    [[nodiscard]] bool wasDrivenInOrder() const { return _calls == "sf"; }

    Emissions emissions;
    GLObject* lastObject = nullptr;

  private:
    std::string _calls;
};

} // namespace tamo::test
