// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OmeText.h"

#include "../Error.h"
#include "../GridGeometry.h"
#include "../bytes/parseNumber.h"
#include "../quoted.h"
#include "XmlTags.h"

#include <algorithm>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void throwSpread(fs::path const& path, std::string const& other) {
    throw Error(path, "expected a volume in one file, found one that is spread over several files, " + quoted(other) +
                          " among them; convert them into one file");
}

std::string attribute(XmlTag const& tag, char const* name) {
    auto const found = tag.attributes.find(name);
    return found == tag.attributes.end() ? std::string() : found->second;
}

// Reads the tags of a document one by one.
class OmeReader {
  public:
    OmeReader(std::string const& description, fs::path const& path) : _tags(description), _path(path) {}

    std::optional<std::vector<OmeImage>> read() {
        XmlTag tag;
        if (!_tags.next(tag) || tag.name != "OME") {
            return std::nullopt;
        }
        _uuid = attribute(tag, "UUID");
        bool isComplete = false;
        while (_tags.next(tag)) {
            if (!tag.isEnd) {
                take(tag);
            }
            isComplete = tag.isEnd && tag.name == "OME";
        }
        if (!isComplete || _tags.isDamaged() || _images.empty()) {
            throwDamaged();
        }
        return std::move(_images);
    }

  private:
    [[noreturn]] void throwDamaged() const {
        throw Error(_path, "expected an OME description of an image, found one that is damaged");
    }

    void take(XmlTag const& tag) {
        if (tag.name == "BinaryOnly") {
            throwSpread(_path, attribute(tag, "MetadataFile"));
        } else if (tag.name == "Image") {
            _id = attribute(tag, "ID");
            _name = attribute(tag, "Name");
        } else if (tag.name == "Pixels") {
            takePixels(tag);
        } else if (tag.name == "TiffData" && !_images.empty()) {
            takeTiffData(tag);
        } else if (tag.name == "UUID" && !_images.empty() && !_images.back().data.empty()) {
            takeFile(tag);
        }
    }

    [[nodiscard]] std::int64_t count(XmlTag const& tag, char const* name, std::int64_t least) const {
        auto const number = parseCount(attribute(tag, name));
        if (!number || *number < least) {
            throw Error(_path, std::string("expected a number of at least ") + std::to_string(least) + " as " + name +
                                   " in the OME description, found " + quoted(attribute(tag, name)));
        }
        return *number;
    }
    [[nodiscard]] std::int64_t countOr0(XmlTag const& tag, char const* name) const {
        return tag.attributes.count(name) == 0 ? 0 : count(tag, name, 0);
    }

    void takePixels(XmlTag const& tag) {
        OmeImage image;
        image.id = _id;
        image.name = _name;
        image.width = count(tag, "SizeX", 1);
        image.height = count(tag, "SizeY", 1);
        image.slices = count(tag, "SizeZ", 1);
        image.channels = count(tag, "SizeC", 1);
        image.frames = count(tag, "SizeT", 1);
        std::string const order = attribute(tag, "DimensionOrder");
        std::string sorted = order;
        std::sort(sorted.begin(), sorted.end());
        if (sorted != "CTXYZ" || order.compare(0, 2, "XY") != 0) {
            throw Error(_path, "expected an order of axes such as XYZCT as DimensionOrder in the OME description, "
                               "found " +
                                   quoted(order));
        }
        image.order = order.substr(2);
        std::size_t axis = 0;
        for (std::string const name : {"PhysicalSizeX", "PhysicalSizeY", "PhysicalSizeZ"}) {
            std::string unit = attribute(tag, (name + "Unit").c_str());
            unit = unit.empty() ? "\xC2\xB5m" : unit;
            double const millimetres = millimetresPer(unit);
            auto const size = parsePositive(attribute(tag, name.c_str()));
            if (size && millimetres > 0) {
                image.spacing[axis] = *size * millimetres;
            }
            image.unit = axis == 0 && size ? unit : image.unit;
            ++axis;
        }
        _images.push_back(std::move(image));
    }

    void takeTiffData(XmlTag const& tag) {
        OmeTiffData data;
        data.firstZ = countOr0(tag, "FirstZ");
        data.firstChannel = countOr0(tag, "FirstC");
        data.firstFrame = countOr0(tag, "FirstT");
        data.page = countOr0(tag, "IFD");
        if (tag.attributes.count("PlaneCount") != 0) {
            data.planes = count(tag, "PlaneCount", 0);
        } else if (tag.attributes.count("IFD") != 0) {
            data.planes = 1;
        }
        _images.back().data.push_back(std::move(data));
    }

    // A file that was renamed keeps its UUID; one without a UUID is known by its name.
    void takeFile(XmlTag const& tag) {
        std::string const file = attribute(tag, "FileName");
        bool const isThis =
            !_uuid.empty() ? tag.text == _uuid || file == _path.filename() : file.empty() || file == _path.filename();
        if (!isThis) {
            _images.back().data.back().otherFile = file.empty() ? tag.text : file;
        }
    }

    XmlTags _tags;
    fs::path const& _path;
    std::string _uuid;
    std::string _id;
    std::string _name;
    std::vector<OmeImage> _images;
};

// A plane's place along z, channels and frames.
struct Plane {
    std::int64_t z = 0;
    std::int64_t channel = 0;
    std::int64_t frame = 0;
};

// Goes on to the next plane in the image's order; returns false after the last.
bool advance(Plane& plane, OmeImage const& image) {
    for (char const axis : image.order) {
        std::int64_t& at = axis == 'Z' ? plane.z : axis == 'C' ? plane.channel : plane.frame;
        std::int64_t const size = axis == 'Z' ? image.slices : axis == 'C' ? image.channels : image.frames;
        if (++at < size) {
            return true;
        }
        at = 0;
    }
    return false;
}

} // namespace

std::optional<std::vector<OmeImage>> parseOmeText(std::string const& description, fs::path const& path) {
    return OmeReader(description, path).read();
}

std::vector<std::int64_t> pagesOf(OmeImage const& image, std::int64_t channel, std::int64_t frame, std::int64_t pages,
                                  fs::path const& path) {
    std::vector<OmeTiffData> const all = image.data.empty() ? std::vector<OmeTiffData>(1) : image.data;
    for (OmeTiffData const& data : all) {
        if (!data.otherFile.empty()) {
            throwSpread(path, data.otherFile);
        }
    }
    auto const throwMissing = [&](std::int64_t slice) {
        throw Error(path, "expected a page for each slice as its OME description says, found none for slice " +
                              std::to_string(slice) + " of " + std::to_string(image.slices) +
                              "; the file is incomplete");
    };
    if (image.slices > pages) {
        throwMissing(pages);
    }
    std::vector<std::int64_t> found(static_cast<std::size_t>(image.slices), -1);
    for (OmeTiffData const& data : all) {
        Plane plane{data.firstZ, data.firstChannel, data.firstFrame};
        if (plane.z >= image.slices || plane.channel >= image.channels || plane.frame >= image.frames) {
            throw Error(path, "expected planes inside the volume in the OME description, found one outside of it");
        }
        std::int64_t const last = data.planes ? std::min(data.page + *data.planes, pages) : pages;
        for (std::int64_t page = data.page; page < last; ++page) {
            if (plane.channel == channel && plane.frame == frame) {
                found[static_cast<std::size_t>(plane.z)] = page;
            }
            if (!advance(plane, image)) {
                break;
            }
        }
    }
    auto const missing = std::find(found.begin(), found.end(), -1);
    if (missing != found.end()) {
        throwMissing(missing - found.begin());
    }
    return found;
}

} // namespace tamo::volume
