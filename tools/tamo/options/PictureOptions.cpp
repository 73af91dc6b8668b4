// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "PictureOptions.h"

#include "../terminal/UsageError.h"
#include "OptionValues.h"

#include <cmath>

namespace tamo::tool {

PictureOptions::PictureOptions(OptionList const& options, Defaults const& defaults)
    : _size(defaults.size), _view(defaults.view) {
    options.add("--size", _size, "Pixels of the picture", "WxH", OptionList::Value::HasDefault);
    options.add("--view", _view, defaults.viewHelp, "AZIMUTH,ELEVATION", OptionList::Value::HasDefault);
}

picture::PictureSize PictureOptions::readSize() const {
    auto const size = parseWholes("--size", _size, 'x', 2, 1, picture::kMaxPictureSide,
                                  "WxH, two whole numbers from 1 to " + std::to_string(picture::kMaxPictureSide));
    return {size[0], size[1]};
}

picture::View PictureOptions::readView() const {
    std::string const expected = "AZIMUTH,ELEVATION, two numbers of degrees, the second from -90 to 90";
    auto const view = parseNumbers("--view", _view, ',', 2, expected);
    if (std::abs(view[1]) > 90) {
        throw UsageError("--view " + _view + ": expected " + expected);
    }
    return {view[0], view[1]};
}

} // namespace tamo::tool
