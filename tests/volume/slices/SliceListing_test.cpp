// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/SliceListing.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::Error;
using tamo::volume::listFolder;
using tamo::volume::listTree;
using tamo::volume::noteOfOthers;
using tamo::volume::PictureFormat;
using tamo::volume::SliceListing;

using Paths = std::vector<fs::path>;

class Listing : public testing::Test {
  protected:
    void touch(std::string const& name) const { writeFile(_folder / name, "x"); }

    TemporaryFolder _folder;
};

TEST_F(Listing, HasEveryFileByItsKindAndInOrder) {
    for (char const* const name : {"s10.png", "s9.PNG", "a.jpg", "b.tif", "notes.txt", ".s11.png"}) {
        touch(name);
    }
    fs::create_directory(_folder / "folder.png");
    SliceListing const listing = listFolder(_folder.path());
    EXPECT_EQ(listing.pictures.size(), 3U);
    EXPECT_EQ(listing.pictures.at(PictureFormat::Png), (Paths{_folder / "s9.PNG", _folder / "s10.png"}));
    EXPECT_EQ(listing.others, (Paths{_folder / ".s11.png", _folder / "notes.txt"}));
    EXPECT_EQ(listing.folders, Paths{_folder / "folder.png"});
    EXPECT_TRUE(listing.dicomFiles.empty());
}

TEST_F(Listing, KeepsSlicesThatAreBrokenLinks) {
    fs::create_symlink(_folder / "nowhere.png", _folder / "s1.png");
    fs::create_symlink(_folder / "s2.png", _folder / "s2.png");
    EXPECT_EQ(listFolder(_folder.path()).pictures.at(PictureFormat::Png),
              (Paths{_folder / "s1.png", _folder / "s2.png"}));
}

TEST_F(Listing, TakesNoPipeForASlice) {
    ASSERT_EQ(mkfifo((_folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink(_folder / "pipe", _folder / "s1.png");
    EXPECT_EQ(listFolder(_folder.path()).others, (Paths{_folder / "pipe", _folder / "s1.png"}));
}

TEST_F(Listing, OfAFolderThatMayNotBeEnteredIsRefused) {
    EXPECT_THROW(listFolder(_folder / "missing"), Error);
    EXPECT_THROW(listTree(_folder / "missing", {}), Error);
    fs::create_directories(_folder / "a" / "locked");
    fs::permissions(_folder / "a" / "locked", fs::perms::none);
    if (geteuid() != 0) {
        EXPECT_THROW(listTree(_folder / "a", {}), Error);
    }
    fs::permissions(_folder / "a" / "locked", fs::perms::owner_all);
}

TEST_F(Listing, OfATreeEntersEachFolderOnce) {
    fs::create_directories(_folder / "a" / "b");
    touch("a/b/2");
    touch("a/1");
    fs::create_directory_symlink(_folder.path(), _folder / "a" / "b" / "up");
    fs::create_directory_symlink(_folder / "a" / "b" / "self", _folder / "a" / "b" / "self");
    EXPECT_EQ(listTree(_folder.path(), {}), (Paths{_folder / "a" / "1", _folder / "a" / "b" / "2"}));
    EXPECT_THROW(listTree(_folder.path(), [](double) { return false; }), tamo::volume::Cancelled);
}

// A listing of so many slices of PNG and the others.
SliceListing listingOf(int slices, Paths const& jpegs) {
    SliceListing listing;
    for (int i = 0; i < slices; ++i) {
        listing.pictures[PictureFormat::Png].push_back("s" + std::to_string(i) + ".png");
    }
    if (!jpegs.empty()) {
        listing.pictures[PictureFormat::Jpeg] = jpegs;
    }
    return listing;
}

TEST(Preview, AloneOfItsFormatIsNoSlice) {
    SliceListing listing = listingOf(10, {"p.jpg"});
    setPreviewApart(listing);
    EXPECT_EQ(listing.pictures.size(), 1U);
    EXPECT_EQ(listing.pictures.at(PictureFormat::Png).size(), 10U);
    EXPECT_EQ(listing.others, Paths{"p.jpg"});
}

TEST(Preview, OfAScannerIsKnownByItsName) {
    SliceListing listing = listingOf(10, {});
    listing.pictures[PictureFormat::Png].emplace_back("s_spr.png");
    setPreviewApart(listing);
    EXPECT_EQ(listing.pictures.at(PictureFormat::Png).size(), 10U);
    EXPECT_EQ(listing.others, Paths{"s_spr.png"});
}

TEST(Preview, StandsBesideDicomFiles) {
    SliceListing listing = listingOf(0, {"p.jpg"});
    listing.dicomFiles = Paths(10, "a.dcm");
    setPreviewApart(listing);
    EXPECT_TRUE(listing.pictures.empty());
}

TEST(Preview, StandsAloneBesideFewDicomFilesOrAboveFolders) {
    SliceListing listing = listingOf(0, {"p.jpg"});
    listing.dicomFiles = Paths(2, "a.dcm");
    setPreviewApart(listing);
    EXPECT_EQ(listing.others, Paths{"p.jpg"});
    listing = listingOf(0, {"p.jpg"});
    listing.folders = {"slices"};
    setPreviewApart(listing);
    EXPECT_EQ(listing.others, Paths{"p.jpg"});
    listing = listingOf(0, {"p.jpg"});
    setPreviewApart(listing);
    EXPECT_TRUE(listing.others.empty());
}

TEST(Preview, IsNoneBesideFewSlicesOrOtherPreviews) {
    for (SliceListing listing : {listingOf(9, {"p.jpg"}), listingOf(20, {"p.jpg", "q.jpg"}), listingOf(11, {})}) {
        setPreviewApart(listing);
        EXPECT_TRUE(listing.others.empty());
    }
}

TEST(NoteOfOthers, NamesUpToThree) {
    EXPECT_EQ(noteOfOthers({}), "");
    EXPECT_EQ(noteOfOthers({"f/a"}), "a is no slice and was left out");
    EXPECT_EQ(noteOfOthers({"f/a", "f/b", "f/c"}), "a, b, c are no slices and were left out");
    EXPECT_EQ(noteOfOthers({"a", "b", "c", "d", "e"}), "a, b, c and 2 more are no slices and were left out");
}

} // namespace
