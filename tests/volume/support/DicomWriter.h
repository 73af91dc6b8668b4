// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Phantom.h"

#include <dcmtk/config/osconfig.h>
#include <dcmtk/dcmdata/dctk.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// Changes the dataset of slice z before it is saved.
using ChangeSlice = std::function<void(DcmDataset&, int)>;

/// Sets an element from text; numbers in decimal, several separated by backslashes.
void setElement(DcmItem& dataset, DcmTagKey const& tag, std::string const& value);

/// Fills in a slice of a phantom, of series number 3, "phantom", with one frame of 16-bit numbers.
void fillSlice(DcmDataset& dataset, Phantom const& phantom, int z);

/// Saves a dataset with the meta information of a file.
void saveDicom(DcmDataset& dataset, std::filesystem::path const& path, E_TransferSyntax syntax);

/// Writes the slices of a phantom as IM0000.dcm and so on.
void writeDicomSlices(Phantom const& phantom, std::filesystem::path const& folder, E_TransferSyntax syntax,
                      ChangeSlice const& change = {});

/// Takes the pixels' place with compressed frames of the caller's making, each in so many pieces.
void setFrames(DcmDataset& dataset, E_TransferSyntax syntax, std::vector<std::vector<unsigned char>> const& frames,
               std::size_t bytesPerPiece = 1U << 20U);

/// Makes a JPEG 2000 codestream of a picture of 16-bit numbers; without loss for a ratio of 1; with one precinct per
/// resolution, or with those of a side.
std::vector<unsigned char> encodeJpeg2000(std::vector<std::int16_t> const& values, int columns, int rows, float ratio,
                                          int precinctSide = 0);

/// Makes an enhanced multi-frame file of a phantom, in which each frame states its place.
void fillEnhanced(DcmDataset& dataset, Phantom const& phantom);

/// Writes a DICOMDIR that lists files below its folder, their parts separated by backslashes.
void writeDicomDirectory(std::filesystem::path const& path, std::vector<std::string> const& fileIds);
