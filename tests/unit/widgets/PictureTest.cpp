#include "unit/CoreFixture.h"
#include "widgets/GifFile.h"
#include "widgets/PictureChoice.h"
#include "widgets/PictureHeader.h"

#include <random>

namespace nesk {
namespace {

using PictureChoice::Place;
using PictureChoice::Placement;

class PictureTest : public testing::CoreTest {};

TEST_F(PictureTest, OnlyFilesAreShown) {
    EXPECT_FALSE(PictureChoice::IsPictureName(""));
    EXPECT_FALSE(PictureChoice::IsPictureName("C:\\Pictures\\"));
    EXPECT_TRUE(PictureChoice::IsPictureName("C:\\Pictures\\a.bmp"));
    EXPECT_TRUE(PictureChoice::IsPictureName("a.bmp"));
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

TEST_F(PictureTest, NoBitmapHasANegativeWidth) {
    for (const std::string& narrow : {Bmp.substr(0, 18) + std::string("\x60\xFF\xFF\xFF", 4) + Bmp.substr(22),
                                      OldBmp.substr(0, 18) + std::string("\0\x80", 2) + OldBmp.substr(20)})
        EXPECT_EQ(SizeOf(narrow), "");
    EXPECT_EQ(SizeOf(OldBmp.substr(0, 18) + std::string("\xFF\x7F", 2) + OldBmp.substr(20)), "32767x32");
}

TEST_F(PictureTest, NoIconHasRuns) {
    const std::string front = std::string("\0\0\1\0\1\0", 6) + Icon.substr(6, 16);
    for (char kind = 0; kind < 4; ++kind) {
        const std::string bitmap = std::string("\x28\0\0\0\x10\0\0\0\x20\0\0\0\1\0\x08\0", 16) + kind;
        EXPECT_EQ(SizeOf(front + bitmap + std::string(23, '\0')), kind == 1 || kind == 2 ? "" : "16x32")
            << int{kind};
    }
    // The oldest header contains no kind.
    EXPECT_EQ(SizeOf(front + OldBmp.substr(14) + std::string("\0\0\0\0\1\0\0\0", 8)), "16x32");
}

TEST_F(PictureTest, OtherAndTruncatedFilesHaveNoSize) {
    EXPECT_EQ(SizeOf(""), "");
    EXPECT_EQ(SizeOf("plain text"), "");
    for (const std::string& picture : {Png, Bmp, OldBmp.substr(0, 20), Gif, Jpeg.substr(0, 18), Icon})
        EXPECT_EQ(SizeOf(picture.substr(0, picture.size() - 3)), "") << picture.substr(0, 4);
}

TEST_F(PictureTest, EveryBeginningOfAPicture) {
    for (const std::string& picture : {Png, Bmp, OldBmp, Gif, Jpeg, Icon}) {
        const std::string whole = SizeOf(picture);
        for (std::size_t length = 0; length < picture.size(); ++length) {
            const std::string size = SizeOf(picture.substr(0, length));
            EXPECT_TRUE(size.empty() || size == whole) << length << " bytes: " << size;
        }
    }
}

TEST_F(PictureTest, SizesThatNothingCanHoldAreTold) {
    EXPECT_EQ(SizeOf("BM" + std::string(12, '\0') + std::string("\x28\0\0\0\xA0\x86\1\0\xA0\x86\1\0", 12)),
              "100000x100000");
    EXPECT_EQ(SizeOf("BM" + std::string(12, '\0') + std::string("\x28\0\0\0\xFF\xFF\xFF\x7F\0\0\0\x80", 12)),
              "2147483647x2147483648");
    EXPECT_EQ(SizeOf(Png.substr(0, 16) + std::string(8, '\xFF')), "4294967295x4294967295");
    EXPECT_EQ(SizeOf("GIF89a\xFF\xFF\xFF\xFF"), "65535x65535");
}

TEST_F(PictureTest, ScansOfAJpegPictureAreCounted) {
    EXPECT_EQ(ReadPictureSize(Jpeg)->passes, 1);
    std::string scans;
    for (int i = 0; i < 5000; ++i)
        scans += std::string("\xFF\xDA\0\4ab", 6);
    EXPECT_EQ(ReadPictureSize(Jpeg + scans)->passes, 5000);
}

TEST_F(PictureTest, AnIconOfManyPictures) {
    const std::string entry = Icon.substr(6, 12);
    const auto icon = [&](std::size_t count, const std::string& data) {
        const std::size_t at = 6 + 16 * count;
        std::string place;
        for (int shift = 0; shift < 32; shift += 8)
            place += static_cast<char>(at >> shift);
        std::string bytes("\0\0\1\0\xFF\xFF", 6);
        for (std::size_t i = 0; i < count; ++i)
            bytes += entry + place;
        return bytes + data;
    };
    EXPECT_EQ(SizeOf(icon(65535, Png)), "20000x20001");
    EXPECT_EQ(SizeOf(icon(65534, Png)), "") << "the last one lies behind the end";
    // The height counts the rows of the picture and of its mask.
    const std::string bitmap = Bmp.substr(14, 8);
    EXPECT_EQ(SizeOf(icon(65535, bitmap + std::string("\2\0\0\0", 4))), "160x2");
    EXPECT_EQ(SizeOf(icon(65535, bitmap + std::string("\1\0\0\0", 4))), "")
        << "no row is left for the picture";
}

// These markers have no length, so a decoder finds the frame at another offset than the one after a length.
TEST_F(PictureTest, AJpegMarkerWithoutALengthBeforeTheFrame) {
    for (const char marker : {'\x00', '\x01', '\xD0', '\xD7', '\xD8', '\xD9'}) {
        const std::string front = std::string("\xFF\xD8\xFF") + marker;
        EXPECT_EQ(SizeOf(front + std::string("\0\4ab", 4) + Jpeg.substr(9)), "") << int{marker};
        EXPECT_EQ(SizeOf(front + Jpeg.substr(9)), "") << int{marker};
    }
    EXPECT_EQ(SizeOf(std::string("\xFF\xD8\xFF\xE1\0\4ab", 8) + Jpeg.substr(9)), "48x32");
}

// A GIF file of one size that contains pictures of another size.
std::string GifOf(const std::string& fileSize, const std::string& pictureSize, int count) {
    std::string bytes = "GIF89a" + fileSize + std::string("\x80\0\0\0\0\0\xFF\xFF\xFF", 9);
    bytes += std::string("\x21\xF9\4\0\0\0\0\0\x21\xFE\2ab\1c\0", 16);
    for (int i = 0; i < count; ++i)
        bytes += "," + std::string(4, '\0') + pictureSize + std::string("\0\2\2\x44\1\0", 6);
    return bytes + ";";
}

TEST_F(PictureTest, TheFirstPictureOfAGifFile) {
    const std::string one("\1\0\1\0", 4);
    const std::string large("\x10\x27\x20\x4E", 4);
    EXPECT_EQ(SizeOf(GifOf(one, large, 1)), "10000x20000") << "the file claims less than its picture";
    EXPECT_EQ(SizeOf(GifOf(large, one, 1)), "10000x20000");
    const std::string whole = GifOf(one, one, 1);
    const auto single = FirstGifPicture(whole);
    ASSERT_TRUE(single.has_value());
    const std::string rest("\0;", 2);
    EXPECT_EQ(single->end, whole.size() - rest.size());
    const std::string many = GifOf(one, one, 100'000);
    const auto first = FirstGifPicture(many);
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(many.substr(0, first->end) + rest, whole);
    EXPECT_FALSE(FirstGifPicture(GifOf(one, one, 0)).has_value());
    EXPECT_FALSE(FirstGifPicture(GifOf(one, std::string("\0\0\1\0", 4), 1)).has_value());
    EXPECT_FALSE(FirstGifPicture(GifOf(one, std::string("\1\0\0\0", 4), 1)).has_value());
    EXPECT_FALSE(FirstGifPicture("GIF89a" + one + std::string("\0\0\0?", 4)).has_value());
    // wxWidgets skips the first extension by its usual length and ignores the length in the file, so another
    // picture could be where the extension really ends.
    const std::size_t control = whole.find("\x21\xF9") + 2;
    for (const auto& [at, byte] :
         {std::pair(control, '\5'), {control, '\x80'}, {control, '\0'}, {control + 5, '\1'}}) {
        std::string odd = whole;
        odd[at] = byte;
        odd.insert(control + 6, 200, '\0');
        EXPECT_FALSE(FirstGifPicture(odd).has_value()) << at;
    }
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto cut = FirstGifPicture(std::string_view(whole).substr(0, length));
        EXPECT_EQ(cut.has_value(), length >= single->end) << length;
    }
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
