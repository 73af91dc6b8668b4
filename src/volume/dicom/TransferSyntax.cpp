// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TransferSyntax.h"

#include <array>

namespace tamo::volume {

namespace {

struct Known {
    // What follows "1.2.840.10008.1.2".
    char const* suffix;
    char const* name;
    FrameEncoding encoding;
};

// In the order of the registry of UIDs. The retired processes of JPEG are those that no decoder in use knows.
constexpr std::array kKnown{
    Known{"", "implicit little endian", FrameEncoding::Native},
    Known{".1", "explicit little endian", FrameEncoding::Native},
    Known{".1.98", "encapsulated uncompressed", FrameEncoding::Unsupported},
    Known{".1.99", "deflated", FrameEncoding::Deflated},
    Known{".2", "explicit big endian", FrameEncoding::Native},
    Known{".4.50", "JPEG baseline", FrameEncoding::Jpeg},
    Known{".4.51", "JPEG extended", FrameEncoding::Jpeg},
    Known{".4.53", "JPEG spectral selection", FrameEncoding::Jpeg},
    Known{".4.55", "JPEG progressive", FrameEncoding::Jpeg},
    Known{".4.57", "JPEG lossless", FrameEncoding::Jpeg},
    Known{".4.70", "JPEG lossless, first-order prediction", FrameEncoding::Jpeg},
    Known{".4.80", "JPEG-LS lossless", FrameEncoding::JpegLs},
    Known{".4.81", "JPEG-LS near-lossless", FrameEncoding::JpegLs},
    Known{".4.90", "JPEG 2000 lossless", FrameEncoding::Jpeg2000},
    Known{".4.91", "JPEG 2000", FrameEncoding::Jpeg2000},
    Known{".4.92", "JPEG 2000 multi-component, lossless", FrameEncoding::Unsupported},
    Known{".4.93", "JPEG 2000 multi-component", FrameEncoding::Unsupported},
    Known{".4.94", "JPIP referenced", FrameEncoding::Unsupported},
    Known{".4.95", "JPIP referenced, deflated", FrameEncoding::Unsupported},
    Known{".4.100", "MPEG-2 main level", FrameEncoding::Unsupported},
    Known{".4.101", "MPEG-2 high level", FrameEncoding::Unsupported},
    Known{".4.102", "MPEG-4 AVC/H.264 level 4.1", FrameEncoding::Unsupported},
    Known{".4.103", "MPEG-4 AVC/H.264 level 4.1, BD", FrameEncoding::Unsupported},
    Known{".4.104", "MPEG-4 AVC/H.264 level 4.2, 2D", FrameEncoding::Unsupported},
    Known{".4.105", "MPEG-4 AVC/H.264 level 4.2, 3D", FrameEncoding::Unsupported},
    Known{".4.106", "MPEG-4 AVC/H.264 stereo", FrameEncoding::Unsupported},
    Known{".4.107", "HEVC/H.265 main", FrameEncoding::Unsupported},
    Known{".4.108", "HEVC/H.265 main 10", FrameEncoding::Unsupported},
    Known{".4.110", "JPEG XL lossless", FrameEncoding::Unsupported},
    Known{".4.111", "JPEG XL recompressed JPEG", FrameEncoding::Unsupported},
    Known{".4.112", "JPEG XL", FrameEncoding::Unsupported},
    Known{".4.201", "high-throughput JPEG 2000, lossless", FrameEncoding::Unsupported},
    Known{".4.202", "high-throughput JPEG 2000, lossless, by resolution", FrameEncoding::Unsupported},
    Known{".4.203", "high-throughput JPEG 2000", FrameEncoding::Unsupported},
    Known{".4.204", "high-throughput JPEG 2000, JPIP referenced", FrameEncoding::Unsupported},
    Known{".4.205", "high-throughput JPEG 2000, JPIP referenced, deflated", FrameEncoding::Unsupported},
    Known{".5", "RLE", FrameEncoding::Rle},
    Known{".6.1", "MIME encapsulation", FrameEncoding::Unsupported},
    Known{".6.2", "XML", FrameEncoding::Unsupported},
    Known{".7.1", "SMPTE ST 2110-20 progressive", FrameEncoding::Unsupported},
    Known{".7.2", "SMPTE ST 2110-20 interlaced", FrameEncoding::Unsupported},
    Known{".7.3", "SMPTE ST 2110-30", FrameEncoding::Unsupported},
    Known{".8.1", "deflated frames", FrameEncoding::Unsupported},
};

} // namespace

TransferSyntax transferSyntax(std::string const& uid) {
    TransferSyntax syntax;
    syntax.uid = uid;
    syntax.name = "transfer syntax " + uid;
    std::string const root = "1.2.840.10008.1.2";
    for (Known const& known : kKnown) {
        if (uid == root + known.suffix) {
            syntax.name = known.name;
            syntax.encoding = known.encoding;
        }
    }
    // A scanner's private syntax of the 1990s: all is implicit little endian, except for the pixels.
    if (uid == "1.2.840.113619.5.2") {
        syntax.name = "implicit little endian with big-endian pixels";
        syntax.encoding = FrameEncoding::Native;
        syntax.hasBigEndianPixels = true;
    }
    syntax.isImplicit = uid == root || uid == "1.2.840.113619.5.2";
    syntax.isBigEndian = uid == root + ".2";
    syntax.hasBigEndianPixels = syntax.hasBigEndianPixels || syntax.isBigEndian;
    return syntax;
}

} // namespace tamo::volume
