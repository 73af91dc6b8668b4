// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomFolder.h"

#include "../Error.h"
#include "../formats/VolumeFormats.h"
#include "../letterCase.h"
#include "../listed.h"
#include "DicomText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <fstream>
#include <set>
#include <system_error>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

// "IM0017.dcm" becomes "im#.dcm": slices of a series share this.
std::string patternOf(fs::path const& path) {
    std::string pattern;
    for (char const letter : lowerCase(path.filename().string())) {
        if (letter < '0' || letter > '9') {
            pattern += letter;
        } else if (pattern.empty() || pattern.back() != '#') {
            pattern += '#';
        }
    }
    return pattern;
}

std::string endingOf(fs::path const& path) { return patternOf(path.extension()); }

// The first bytes of a file, at most those before and with the letters "DICM".
std::string startOf(fs::path const& path) {
    std::array<char, 132> bytes{};
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(file.gcount())};
}

// What the DICOM files of a folder have in common.
class Siblings {
  public:
    explicit Siblings(std::vector<fs::path> const& files) {
        for (fs::path const& file : files) {
            _patterns.insert(patternOf(file));
            _starts.insert(startOf(file));
            // An ending of digits is part of a UID that serves as a name.
            std::string const ending = endingOf(file);
            if (!ending.empty() && ending.find('#') == std::string::npos) {
                _endings.insert(ending);
            }
        }
    }

    // Whether a file that is no DICOM file seems to have been one.
    [[nodiscard]] bool seemsDamaged(fs::path const& file) const {
        std::string const name = file.filename().string();
        // What a Macintosh puts beside each file of a foreign disc.
        if (name.compare(0, 2, "._") == 0) {
            return false;
        }
        std::string const ending = endingOf(file);
        if (ending == ".dcm" || ending == ".ima" || ending == ".dicom" || _endings.count(ending) > 0 ||
            _patterns.count(patternOf(file)) > 0) {
            return true;
        }
        std::string const start = startOf(file);
        return !start.empty() && start.size() < 132 &&
               std::any_of(_starts.begin(), _starts.end(),
                           [&start](std::string const& other) { return other.compare(0, start.size(), start) == 0; });
    }

  private:
    std::set<std::string> _patterns;
    std::set<std::string> _endings;
    std::set<std::string> _starts;
};

std::string noteOf(fs::path const& folder, std::vector<fs::path> const& files, std::string const& one,
                   std::string const& many) {
    constexpr std::size_t kMostListed = 20;
    std::string const names = listed(files.size(), kMostListed, [&](std::size_t i) {
        return shownText(files[i].lexically_relative(folder).string(), "ISO_IR 192");
    });
    return files.size() == 1 ? "1 file " + one + " and was left out: " + names
                             : std::to_string(files.size()) + " files " + many + " and were left out: " + names;
}

// A file without pixels is a report or the like, unless others of its kind have them.
void checkBare(std::vector<DicomImage> const& bare, std::vector<DicomImage> const& images) {
    for (DicomImage const& image : bare) {
        bool const isLikeOthers =
            !image.sopClass.empty() && std::any_of(images.begin(), images.end(), [&image](DicomImage const& other) {
                return other.sopClass == image.sopClass;
            });
        if (image.claimsPixels || isLikeOthers) {
            throw Error(image.path, "expected pixels, found none; the file is damaged or truncated");
        }
    }
}

} // namespace

DicomFolder readDicomFolder(fs::path const& folder, std::vector<fs::path> const& files, Progress const& progress) {
    DicomFolder result;
    std::vector<fs::path> found;
    std::vector<fs::path> strays;
    for (fs::path const& file : files) {
        errno = 0;
        // A link to nothing is a stray, or the name of a slice that is lost.
        if (!std::ifstream(file) && !(errno == ENOENT && fs::is_symlink(file))) {
            throw Error(file, "expected a file that can be read: " + std::generic_category().message(errno));
        }
        (isDicom(file) ? found : strays).push_back(file);
    }
    Siblings const siblings(found);
    for (fs::path const& stray : strays) {
        if (siblings.seemsDamaged(stray)) {
            throw Error(stray, "expected a DICOM slice like those beside it, found none; it is damaged or truncated");
        }
    }
    std::vector<DicomImage> bare;
    std::vector<fs::path> bareFiles;
    for (std::size_t i = 0; i < found.size(); ++i) {
        DicomImage image = readDicomImage(found[i]);
        if (image.hasPixels) {
            result.images.push_back(std::move(image));
        } else {
            bareFiles.push_back(found[i]);
            bare.push_back(std::move(image));
        }
        report(progress, static_cast<double>(i + 1) / static_cast<double>(found.size()));
    }
    checkBare(bare, result.images);
    if (!strays.empty()) {
        result.notes.push_back(noteOf(folder, strays, "is no DICOM file", "are no DICOM files"));
    }
    if (!bareFiles.empty()) {
        result.notes.push_back(noteOf(folder, bareFiles, "holds no pixels", "hold no pixels"));
    }
    return result;
}

} // namespace tamo::volume
