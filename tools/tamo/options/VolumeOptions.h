// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "OptionList.h"
#include "volume/RawLayout.h"
#include "volume/VolumeSource.h"

#include <string>
#include <vector>

namespace tamo::tool {

/// Names what `VolumeOptions` reads, for the help.
std::string volumeFormatsHelp();

/// The options that say where a volume is, which of several, and what its file does not say.
class VolumeOptions {
  public:
    explicit VolumeOptions(OptionList const& options);

    /// Throws `UsageError` for values that no volume can have.
    [[nodiscard]] volume::VolumeSource read() const;

  private:
    [[nodiscard]] volume::RawLayout readLayout() const;
    /// Reads a number counted from 0, or nothing where the option is not given.
    [[nodiscard]] static std::optional<std::int64_t> readIndex(std::string const& option, std::string const& text);

    std::string _volume;
    std::string _dims;
    std::string _type;
    std::string _header;
    bool _isBigEndian = false;
    std::string _spacing;
    std::string _orientation;
    std::string _frame;
    std::string _channel;
    std::string _series;
    std::string _segment;
};

} // namespace tamo::tool
