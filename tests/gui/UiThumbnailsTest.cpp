#include "widgets/UiThumbnails.h"

#include "gui/PictureSamples.h"
#include "gui/UiDriver.h"
#include "unit/widgets/FakePictureFiles.h"
#include "widgets/UiPictureFile.h"

#include <gtest/gtest.h>

#include <thread>

namespace nesk::testing {
namespace {

using State = UiThumbnails::State;
using namespace std::chrono_literals;

constexpr int Side = 64;

class UiThumbnailsTest : public ::testing::Test {
protected:
    // Works until nothing is left to do.
    void Finish(UiThumbnails& of) const {
        EXPECT_TRUE(WaitUntil([&] {
            of.Work(100ms);
            return !of.IsBusy();
        }));
    }
    void Finish() { Finish(thumbnails); }

    wxSize SizeOf(const std::string& path, double scale = 1, wxSize box = wxSize(50, 50)) {
        const wxBitmap& bitmap = thumbnails.Bitmap(path, box, scale);
        return bitmap.IsOk() ? bitmap.GetSize() : wxSize(0, 0);
    }

    wxColour ColourOf(const std::string& path) {
        const wxImage image = thumbnails.Bitmap(path, wxSize(50, 50), 1).ConvertToImage();
        return {image.GetRed(1, 1), image.GetGreen(1, 1), image.GetBlue(1, 1)};
    }

    std::shared_ptr<FakePictureFiles> files = std::make_shared<FakePictureFiles>();
    UiThumbnails thumbnails{files, Side};
};

TEST_F(UiThumbnailsTest, APictureIsShrunkInProportion) {
    files->Write("C:\\a.png", PictureSample(200, 100));
    thumbnails.Want({"C:\\a.png"});
    EXPECT_EQ(thumbnails.StateOf("C:\\a.png"), State::Waiting);
    EXPECT_EQ(SizeOf("C:\\a.png"), wxSize(0, 0));
    Finish();
    EXPECT_EQ(thumbnails.StateOf("C:\\a.png"), State::Shown);
    EXPECT_EQ(SizeOf("C:\\a.png"), wxSize(50, 25));
    EXPECT_EQ(SizeOf("C:\\a.png", 1, wxSize(20, 20)), wxSize(20, 10)) << "the pane has become smaller";
    EXPECT_EQ(ColourOf("C:\\a.png"), *wxRED);
}

TEST_F(UiThumbnailsTest, ASmallPictureIsNotEnlarged) {
    files->Write("C:\\a.png", PictureSample(20, 10));
    thumbnails.Want({"C:\\a.png"});
    Finish();
    EXPECT_EQ(SizeOf("C:\\a.png"), wxSize(20, 10));
    EXPECT_EQ(SizeOf("C:\\a.png", 0.5), wxSize(10, 5)) << "on a screen that is drawn smaller";
}

TEST_F(UiThumbnailsTest, LargePicturesKeepTheirNaturalSize) {
    files->Write("C:\\a.jpg", PictureSample(1200, 600, *wxRED, wxBITMAP_TYPE_JPEG));
    files->Write("C:\\a.png", PictureSample(1200, 600));
    thumbnails.Want({"C:\\a.jpg", "C:\\a.png"});
    Finish();
    for (const char* path : {"C:\\a.jpg", "C:\\a.png"}) {
        EXPECT_EQ(SizeOf(path), wxSize(50, 25)) << path;
        EXPECT_EQ(SizeOf(path, 0.01), wxSize(12, 6)) << path;
    }
}

TEST_F(UiThumbnailsTest, VeryLongPicturesAreShown) {
    files->Write("C:\\long.png", PictureSample(9000, 1));
    files->Write("C:\\high.png", PictureSample(2, 9000));
    thumbnails.Want({"C:\\long.png", "C:\\high.png"});
    Finish();
    EXPECT_EQ(SizeOf("C:\\long.png"), wxSize(50, 1));
    EXPECT_EQ(SizeOf("C:\\high.png"), wxSize(1, 50));
}

TEST_F(UiThumbnailsTest, WhatIsNoPictureIsMissing) {
    files->Write("C:\\text.png", "no picture");
    files->Write("C:\\cut.png", PictureSample(40, 40).substr(0, 60));
    // The header of a picture that would take 1.2 GB.
    files->Write("C:\\huge.png",
                 std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x4E\x20\0\0\x4E\x21", 24) + "\x08\x02");
    thumbnails.Want({"C:\\text.png", "C:\\cut.png", "C:\\huge.png", "C:\\none.png"});
    Finish();
    for (const char* path : {"C:\\text.png", "C:\\cut.png", "C:\\huge.png", "C:\\none.png"}) {
        EXPECT_EQ(thumbnails.StateOf(path), State::Missing) << path;
        EXPECT_EQ(SizeOf(path), wxSize(0, 0)) << path;
    }
}

TEST_F(UiThumbnailsTest, AChangedFileIsReadAgain) {
    files->Write("C:\\a.png", PictureSample(20, 20, *wxRED));
    thumbnails.Want({"C:\\a.png", "C:\\b.png"});
    Finish();
    files->Write("C:\\a.png", PictureSample(20, 20, *wxBLUE));
    files->Write("C:\\b.png", PictureSample(20, 20));
    thumbnails.CheckFiles();
    Finish();
    EXPECT_EQ(ColourOf("C:\\a.png"), *wxRED) << "files are looked at only every two seconds";
    std::this_thread::sleep_for(2100ms);
    thumbnails.CheckFiles();
    Finish();
    EXPECT_EQ(ColourOf("C:\\a.png"), *wxBLUE);
    EXPECT_EQ(thumbnails.StateOf("C:\\b.png"), State::Shown) << "it was missing before";
    const std::size_t reads = files->PathsRead().size();
    const int stamps = files->Stamps();
    std::this_thread::sleep_for(2100ms);
    thumbnails.CheckFiles();
    Finish();
    EXPECT_EQ(files->Stamps(), stamps + 2);
    EXPECT_EQ(files->PathsRead().size(), reads) << "what has not changed is not read";
}

TEST_F(UiThumbnailsTest, AServerThatDoesNotAnswerHoldsUpNothing) {
    files->Write("C:\\a.png", PictureSample(20, 20));
    files->Write("\\\\server\\share\\b.png", PictureSample(20, 20));
    files->Block("\\\\server");
    thumbnails.Want({"\\\\server\\share\\b.png", "C:\\a.png"});
    EXPECT_TRUE(WaitUntil([&] {
        thumbnails.Work(10ms);
        return thumbnails.StateOf("C:\\a.png") == State::Shown;
    }));
    EXPECT_EQ(thumbnails.StateOf("\\\\server\\share\\b.png"), State::Waiting);
    files->ComeBack();
    Finish();
    EXPECT_EQ(thumbnails.StateOf("\\\\server\\share\\b.png"), State::Shown);
}

TEST_F(UiThumbnailsTest, MemoryIsBounded) {
    const std::string bytes = PictureSample(Side, Side);
    std::vector<std::string> paths;
    for (int i = 0; i < 100; ++i) {
        paths.push_back("C:\\" + std::to_string(i));
        files->Write(paths.back(), bytes);
    }
    constexpr std::size_t most = 20 * std::size_t{Side * Side * 8};
    UiThumbnails few(files, Side, most);
    for (int i = 0; i < 100; i += 10) {
        few.Want({paths.begin() + i, paths.begin() + i + 10});
        Finish(few);
        EXPECT_LE(few.Bytes(), most);
        for (int j = i; j < i + 10; ++j)
            EXPECT_EQ(few.StateOf(paths[static_cast<std::size_t>(j)]), State::Shown) << j;
    }
    EXPECT_EQ(few.StateOf(paths[0]), State::Waiting) << "dropped";
    few.Want({paths[0]});
    Finish(few);
    EXPECT_EQ(few.StateOf(paths[0]), State::Shown) << "read again";
}

} // namespace
} // namespace nesk::testing
