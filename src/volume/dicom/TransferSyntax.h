// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace tamo::volume {

/// How the pixels of a DICOM file are encoded.
enum class FrameEncoding {
    Native,
    /// The whole dataset is one deflate stream; the pixels within it are native.
    Deflated,
    Rle,
    Jpeg,
    JpegLs,
    Jpeg2000,
    /// Known by name, but nothing here decodes it.
    Unsupported,
};

/// Describes a transfer syntax: how a file's elements and pixels are written.
struct TransferSyntax {
    std::string uid;
    /// As people call it: "JPEG 2000, lossless".
    std::string name;
    FrameEncoding encoding = FrameEncoding::Unsupported;
    /// Elements do not say what type they are of.
    bool isImplicit = false;
    bool isBigEndian = false;
    bool hasBigEndianPixels = false;
};

/// Returns the syntax of a UID; one that is unknown is named by its UID and unsupported.
TransferSyntax transferSyntax(std::string const& uid);

} // namespace tamo::volume
