#include "checking/FileFacts.h"

#include "platform/ErrorCode.h"
#include "unit/CoreFixture.h"
#include "unit/FaultyFiles.h"

namespace nesk {
namespace {

using State = FileFacts::State;

// A bitmap header; the pixels are not looked at.
std::string Bitmap(int width, int height) {
    std::string bytes = "BM" + std::string(16, '\0') + std::string(36, '\0');
    const auto put = [&](std::size_t at, std::uint32_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            bytes[at + i] = static_cast<char>(value >> 8 * i & 0xFF);
    };
    put(10, 54);
    put(14, 40);
    put(18, static_cast<std::uint32_t>(width));
    put(22, static_cast<std::uint32_t>(height));
    bytes[26] = 1;
    bytes[28] = 24;
    return bytes;
}

class FileFactsTest : public testing::CoreTest {
protected:
    State StateOf(const std::string& path, FileUse use) {
        return LookAt(path, use, platform::StationFiles()).state;
    }
};

TEST_F(FileFactsTest, AFileAndAFolderAreTold) {
    station.Write("C:\\Help\\part.chm", "x");
    EXPECT_EQ(StateOf("C:\\Help\\part.chm", FileUse::File), State::Good);
    EXPECT_EQ(StateOf("c:\\help\\PART.chm", FileUse::File), State::Good);
    EXPECT_EQ(StateOf("C:\\Help", FileUse::Folder), State::Good);
    EXPECT_EQ(StateOf("C:\\Help\\", FileUse::Folder), State::Good);
    EXPECT_EQ(StateOf("C:\\Help", FileUse::File), State::WrongKind);
    EXPECT_EQ(StateOf("C:\\Help\\part.chm", FileUse::Folder), State::WrongKind);
}

TEST_F(FileFactsTest, WhatIsNotThereIsMissing) {
    for (const FileUse use : {FileUse::File, FileUse::Folder, FileUse::Picture, FileUse::Part}) {
        EXPECT_EQ(StateOf("C:\\Nowhere\\file.x", use), State::Missing) << static_cast<int>(use);
        EXPECT_EQ(StateOf("C:\\nothing", use), State::Missing) << static_cast<int>(use);
        EXPECT_EQ(StateOf("Q:\\x", use), State::Missing) << static_cast<int>(use);
    }
    EXPECT_EQ(StateOf("C:\\a<b>.bmp", FileUse::Picture), State::Missing);
}

TEST_F(FileFactsTest, PicturesAreKnownByTheirHeader) {
    station.Write("C:\\P\\good.bmp", Bitmap(32, 32));
    station.Write("C:\\P\\large.bmp", Bitmap(100000, 100000));
    station.Write("C:\\P\\text.bmp", "this is a text");
    station.Write("C:\\P\\empty.bmp", "");
    EXPECT_EQ(StateOf("C:\\P\\good.bmp", FileUse::Picture), State::Good);
    EXPECT_EQ(StateOf("C:\\P\\large.bmp", FileUse::Picture), State::TooLarge);
    EXPECT_EQ(StateOf("C:\\P\\text.bmp", FileUse::Picture), State::NoPicture);
    EXPECT_EQ(StateOf("C:\\P\\empty.bmp", FileUse::Picture), State::NoPicture);
    EXPECT_EQ(StateOf("C:\\P", FileUse::Picture), State::WrongKind);
}

// The size of a JPEG picture may be behind a long comment.
TEST_F(FileFactsTest, TheSizeMayBeFarBehindTheBeginning) {
    std::string jpeg = "\xFF\xD8";
    for (int i = 0; i < 3; ++i)
        jpeg += std::string("\xFF\xFE\xFF\xF0", 4) + std::string(0xFFEE, 'c');
    jpeg += std::string("\xFF\xC0\x00\x11\x08\x00\x10\x00\x20\x03", 10) + std::string(9, '\1');
    jpeg += std::string("\xFF\xDA\x00\x02", 4) + std::string(16, '\0') + "\xFF\xD9";
    station.Write("C:\\P\\far.jpg", jpeg);
    EXPECT_EQ(StateOf("C:\\P\\far.jpg", FileUse::Picture), State::Good);
    station.Write("C:\\P\\cut.jpg", jpeg.substr(0, 100000));
    EXPECT_EQ(StateOf("C:\\P\\cut.jpg", FileUse::Picture), State::NoPicture);
}

TEST_F(FileFactsTest, ThePartsNameIsRead) {
    station.Write("C:\\Parts\\A\\partinfo.ini", "[Part]\r\nName=Bracket\r\n");
    station.Write("C:\\Parts\\B\\partinfo.ini", "[Part]\r\nOther=x\r\n");
    const auto look = [](const std::string& path) {
        return LookAt(path, FileUse::Part, platform::StationFiles());
    };
    EXPECT_EQ(look("C:\\Parts\\A\\partinfo.ini"), (FileFacts{State::Good, "Bracket"}));
    EXPECT_EQ(look("C:\\Parts\\B\\partinfo.ini"), (FileFacts{State::Good, ""}));
    EXPECT_EQ(look("C:\\Parts\\A").state, State::WrongKind);
}

} // namespace
} // namespace nesk
