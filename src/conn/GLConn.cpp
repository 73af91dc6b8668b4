// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CaseHandler.h"

#include <tamo/conn/GLConn.h>

#include <algorithm>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

using tamo::appendOwned;
using tamo::isInside;
using tamo::kConfigurationCount;
using tamo::kFullCell;

// The order within a list counts: where an entry and its complement are both listed, the later one wins.

// Three corners of one face.
unsigned char const GLConn::_case7[24] = {0x07, 0x0b, 0x0d, 0x0e, 0x70, 0xd0, 0xb0, 0xe0, 0xa8, 0x8a, 0xa2, 0x2a,
                                          0x54, 0x51, 0x15, 0x45, 0xc4, 0x4c, 0xc8, 0x8c, 0x31, 0x13, 0x23, 0x32};
// A corner, one of its neighbours along an edge and one along a face diagonal, those two on a space diagonal.
unsigned char const GLConn::_case25[24] = {0x19, 0x91, 0x98, 0x89, 0x64, 0x26, 0x62, 0x46, 0x34, 0x38, 0x1c, 0x2c,
                                           0x43, 0x83, 0xc2, 0xc1, 0x1a, 0x4a, 0x52, 0x58, 0x25, 0x85, 0xa4, 0xa1};
// Four corners on a path of three edges that turns out of the plane, in complementary pairs.
unsigned char const GLConn::_case27[24] = {0x1b, 0xe4, 0x1d, 0xe2, 0x27, 0xd8, 0x2e, 0xd1, 0x35, 0xca, 0x3a, 0xc5,
                                           0x47, 0xb8, 0x4e, 0xb1, 0x53, 0xac, 0x5c, 0xa3, 0x72, 0x8d, 0x74, 0x8b};
// Corner 0 and two others, pairwise on face diagonals.
unsigned char const GLConn::_case41[3] = {0x29, 0x49, 0x61};
// The same with one or two corners more; they share the code of the three.
unsigned char const GLConn::_case75[9] = {0x4b, 0x59, 0x63, 0x39, 0x2d, 0x65, 0x6b, 0x6d, 0x79};

float const GLConn::_epsilon = 1e-6F;

namespace {

// Writes texts as they are: the base, width and locale that the stream's owner has set neither show in them nor change.
void writeTexts(std::ostream& stream, std::initializer_list<std::string_view> texts) {
    for (std::string_view const text : texts) {
        stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
}

} // namespace

GLConn::GLConn(Neighborhood::NHConfig config) : _caseLut(kConfigurationCount) {
    _fgObjects.reserve(4);
    _bgObjects.reserve(4);
    setupConn(config);
}

GLConn::~GLConn() = default;

bool GLConn::setupConn(Neighborhood::NHConfig config) {
    try {
        if (!setupNeighborhood(config) || !setupProp()) {
            return false;
        }
        _caseLut.assign(kConfigurationCount, kDefaultCase);
        auto const write = [this](unsigned int shape, unsigned int code) {
            _caseLut[shape] = code;
            _caseLut[kFullCell - shape] = code | kInverted;
        };
        auto const writeAll = [&write](auto const& shapes, unsigned int code) {
            std::for_each(std::begin(shapes), std::end(shapes), [&](unsigned int shape) { write(shape, code); });
        };
        for (unsigned int corner = 0; corner < tamo::kCornerCount; ++corner) {
            write(1U << corner, kPixelCase);
        }
        writeAll(_case7, kCase7);
        writeAll(_case25, kCase25);
        writeAll(_case27, kCase27);
        writeAll(_case41, kCase41);
        writeAll(_case75, kCase41);
        // A link's type is its case code.
        for (unsigned int i = 0; i < getConnSize(); ++i) {
            write(getConn(i), getVInfo(i) & kTypeInfo);
        }
    } catch (TamoException const& exception) {
        std::cerr << "cought exception:\"" << exception.what() << '"' << std::endl;
    }
    return true;
}

void GLConn::printCaseLut(int i) {
    auto const name = [](unsigned int code) {
        switch (code) {
        case kDefaultCase:
            return "default";
        case kEdgeCase:
            return "Edge";
        case kFaceDiagonalCase:
            return "FDiag";
        case kSpaceDiagonalCase:
            return "SDiag";
        case kPixelCase:
            return "Pixel";
        case kCase7:
            return "Case 7";
        case kCase25:
            return "Case25";
        case kCase27:
            return "Case27";
        case kCase41:
            return "Case41";
        default:
            return "invalid";
        }
    };
    unsigned int const word = _caseLut[static_cast<std::size_t>(i)];
    constexpr unsigned int kConnBit = 0x400;
    writeTexts(std::cout, {"caselut[", std::to_string(i), "]:", name(word & kCodeBits),
                           (word & kConnBit) != 0 ? " Conn" : "", (word & kForegroundInfo) != 0 ? " FgConn" : "",
                           (word & kBackgroundInfo) != 0 ? " BgConn" : "", (word & kInverted) != 0 ? " inv" : ""});
}

unsigned int GLConn::getPolygonDesc(GLPolygonDesc& desc, unsigned char fg, unsigned char bg) {
    desc.count = 0;
    unsigned int vinfo = 0;
    unsigned int const both = fg | bg;
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        unsigned int const info = getVInfo(i);
        unsigned char const link = getConn(i);
        if ((info & kBothInfo) != kBothInfo || !isInside(link, both) || isInside(link, fg) || isInside(link, bg)) {
            continue;
        }
        bool const startsInForeground = isInside(1U << getP0ofConn(i), fg);
        desc.addVertex(static_cast<unsigned char>(i), getNormal(i, startsInForeground));
        vinfo |= info;
    }
    return vinfo;
}

void GLConn::wrapLocal(Neighborhood::NHConfig config, GLObjectList* list, bool recomputeNormals) {
    setupConn(config);
    if (!setupProp()) {
        return;
    }
    list->clear();
    list->reserve(kConfigurationCount);
    GLPolygonDesc desc(_mid, static_cast<unsigned char>(getConnSize()));
    for (unsigned int configuration = 0; configuration < kFullCell; ++configuration) {
        GLObject& object = appendOwned(*list, std::make_unique<GLObject>());
        getFgObjects(static_cast<unsigned char>(configuration), _fgObjects);
        getBgObjects(static_cast<unsigned char>(configuration), _bgObjects);
        for (unsigned char const fg : _fgObjects) {
            for (unsigned char const bg : _bgObjects) {
                unsigned int const vinfo = getPolygonDesc(desc, fg, bg);
                if (desc.count > 0) {
                    sortCCW(&object, desc, vinfo, fg, bg);
                } else {
                    writeTexts(std::cerr, {"conf:", std::to_string(configuration), " no polygon created!"});
                    std::cerr << std::endl;
                }
            }
        }
        if (recomputeNormals) {
            std::for_each(object.begin(), object.end(), [](GLPolygon* polygon) { polygon->setNormals(); });
        }
    }
    // The full cell has no background to be separated from.
    appendOwned(*list, std::make_unique<GLObject>());
}

bool GLConn::sortCCW(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg) {
    unsigned int word = _caseLut[fg];
    bool inv = (word & kInverted) != 0;
    // The complement of a listed shape is that case only where the other component is the shape itself.
    if (inv && fg + bg != static_cast<int>(kFullCell)) {
        word = _caseLut[bg];
        inv = false;
    }
    desc.fan = true;
    desc.strip = false;
    if (word == 0) {
        word = _caseLut[bg];
    }
    bool const sdiag = (vinfo & kSpaceDiagonalInfo) != 0;
    switch (word & kCodeBits) {
    case kEdgeCase:
        return handleCEdge(obj, desc, vinfo, fg, bg, inv, sdiag);
    case kFaceDiagonalCase:
        return sdiag ? handleCEdge(obj, desc, vinfo, fg, bg, inv, sdiag)
                     : handleCFDiag(obj, desc, vinfo, fg, bg, inv, sdiag);
    case kSpaceDiagonalCase:
        return handleCSDiag(obj, desc, vinfo, fg, bg, inv, sdiag);
    case kPixelCase:
        return handlePixel(obj, desc, vinfo, fg, bg, inv, sdiag);
    case kCase7:
        return handleC7(obj, desc, vinfo, fg, bg, inv, sdiag);
    case kCase25:
        return handleC25(obj, desc, vinfo, fg, bg, inv, sdiag);
    case kCase27:
        return handleC27(obj, desc, vinfo, fg, bg, inv, sdiag);
    case kCase41:
        return sdiag ? handleC41(obj, desc, vinfo, fg, bg, inv, sdiag)
                     : handleDefault(obj, desc, vinfo, fg, bg, inv, sdiag);
    default:
        return handleDefault(obj, desc, vinfo, fg, bg, inv, sdiag);
    }
}
