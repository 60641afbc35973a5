#include "menu/PictureChoice.h"
#include "menu/PictureHeader.h"
#include "unit/CoreFixture.h"

#include <random>

namespace nesk {
namespace {

using PictureChoice::Place;
using PictureChoice::Placement;

class PictureTest : public testing::CoreTest {};

TEST_F(PictureTest, OnlyFilesAreShown) {
    EXPECT_FALSE(PictureChoice::NamesPicture(""));
    EXPECT_FALSE(PictureChoice::NamesPicture("C:\\Pictures\\"));
    EXPECT_TRUE(PictureChoice::NamesPicture("C:\\Pictures\\a.bmp"));
    EXPECT_TRUE(PictureChoice::NamesPicture("a.bmp"));
}

TEST_F(PictureTest, EachSideIsSqueezedByItselfAndThePictureCentred) {
    EXPECT_EQ(Place(50, 40, 100, 80), (Placement{25, 20, 50, 40})) << "not enlarged";
    EXPECT_EQ(Place(400, 40, 100, 80), (Placement{0, 20, 100, 40}));
    EXPECT_EQ(Place(50, 400, 100, 80), (Placement{25, 0, 50, 80}));
    EXPECT_EQ(Place(400, 400, 100, 80), (Placement{0, 0, 100, 80}));
}

std::string Text(const PictureSize& size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

std::string SizeOf(const std::string& bytes) {
    const auto size = ReadPictureSize(bytes);
    return size ? Text(*size) : "";
}

const std::string Png("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x4E\x20\0\0\x4E\x21", 24);
const std::string Bmp("BM\0\0\0\0\0\0\0\0\0\0\0\0\x28\0\0\0\xA0\0\0\0\x88\xFF\xFF\xFF", 26);
const std::string OldBmp("BM\0\0\0\0\0\0\0\0\0\0\0\0\x0C\0\0\0\x10\0\x20\0\1\0\1\0", 26);
const std::string Gif("GIF89a\x40\x01\xF0\0", 10);
const std::string Jpeg("\xFF\xD8\xFF\xE0\0\4ab\xFF\xFF\xC0\0\x11\x08\0\x20\0\x30\3", 19);
const std::string Icon = std::string("\0\0\1\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\x16\0\0\0", 22) + Png;

TEST_F(PictureTest, SizesAreReadFromTheHeaders) {
    EXPECT_EQ(SizeOf(Png), "20000x20001");
    EXPECT_EQ(SizeOf(Bmp), "160x120") << "rows from the top have a negative height";
    EXPECT_EQ(SizeOf(OldBmp), "16x32");
    EXPECT_EQ(SizeOf(Gif), "320x240");
    EXPECT_EQ(SizeOf(Jpeg), "48x32");
    EXPECT_EQ(SizeOf(Icon), "20000x20001");
}

TEST_F(PictureTest, OtherAndTruncatedFilesHaveNoSize) {
    EXPECT_EQ(SizeOf(""), "");
    EXPECT_EQ(SizeOf("plain text"), "");
    for (const std::string& picture : {Png, Bmp, OldBmp.substr(0, 20), Gif, Jpeg.substr(0, 18), Icon})
        EXPECT_EQ(SizeOf(picture.substr(0, picture.size() - 3)), "") << picture.substr(0, 4);
}

TEST_F(PictureTest, RandomBytesBehindAHeaderDoNoHarm) {
    std::mt19937 random(1);
    int withSize = 0;
    for (const std::string& picture : {Png, Bmp, Gif, Jpeg, Icon}) {
        for (int i = 0; i < 2000; ++i) {
            std::string bytes = picture.substr(0, 4);
            const std::size_t length = random() % 100;
            for (std::size_t k = 0; k < length; ++k)
                bytes += static_cast<char>(random());
            withSize += ReadPictureSize(bytes).has_value() ? 1 : 0;
        }
    }
    EXPECT_GT(withSize, 0);
    EXPECT_LT(withSize, 10000);
}

} // namespace
} // namespace nesk
