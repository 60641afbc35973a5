#include "widgets/UiPictureFile.h"

#include "unit/platform/TempStation.h"
#include "unit/platform/portable/ChildProcess.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <random>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <type_traits>

#include <wx/debug.h>
#include <wx/imagbmp.h>
#include <wx/imaggif.h>
#include <wx/imagjpeg.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/palette.h>

namespace nesk::testing {
namespace {

int g_assertions = 0;

const std::string Path = "C:\\Pictures\\picture";

// Fills the memory that is allocated meanwhile. Code that uses memory before it has written it then fails
// every time: it takes the content for an index far beyond any array. Otherwise it depends on what was there
// before.
class FilledMemory {
public:
    FilledMemory() { ::mallopt(M_PERTURB, 0xA5); }
    ~FilledMemory() { ::mallopt(M_PERTURB, 0); }
    FilledMemory(const FilledMemory&) = delete;
    FilledMemory& operator=(const FilledMemory&) = delete;
};

class PictureFileTest : public ::testing::Test {
protected:
    PictureFileTest()
        : m_before(wxSetAssertHandler([](const wxString&, int, const wxString&, const wxString&,
                                         const wxString&) { ++g_assertions; })) {
        g_assertions = 0;
    }
    ~PictureFileTest() override {
        wxSetAssertHandler(m_before);
        EXPECT_EQ(g_assertions, 0) << "the toolkit was asked for something impossible";
    }

    wxImage Load(const std::string& bytes) {
        station.Write(Path, bytes);
        return LoadPicture(Path);
    }

    // A picture in which every pixel is different.
    template <typename Handler>
    static std::string Picture() {
        wxImage image(7, 8);
        for (int i = 0; i < 56; ++i)
            image.SetRGB(i % 7, i / 7, static_cast<unsigned char>(4 * i), 50, 100);
        if (std::is_same_v<Handler, wxGIFHandler>) image = image.ConvertToGreyscale();
        Handler handler;
        wxMemoryOutputStream stream;
        EXPECT_TRUE(handler.SaveFile(&image, stream, false));
        std::string bytes(static_cast<std::size_t>(stream.GetLength()), '\0');
        stream.CopyTo(bytes.data(), bytes.size());
        return bytes;
    }

    static std::string EveryFormat(int format) {
        switch (format) {
        case 0: return Picture<wxBMPHandler>();
        case 1: return Picture<wxPNGHandler>();
        case 2: return Picture<wxJPEGHandler>();
        case 3: return Picture<wxICOHandler>();
        default: return SmallGif();
        }
    }

    static std::string Little(std::uint64_t number, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text += static_cast<char>(number >> (8 * i));
        return text;
    }

    // A GIF file whose pictures contain only their first pixel.
    static std::string Gif(int width, int height, int count) {
        const std::string size =
            Little(static_cast<std::uint64_t>(width), 2) + Little(static_cast<std::uint64_t>(height), 2);
        std::string bytes = "GIF89a" + size + std::string("\x80\0\0\0\0\0\xFF\xFF\xFF", 9);
        for (int i = 0; i < count; ++i)
            bytes += "," + std::string(4, '\0') + size + std::string("\0\2\2\x44\1\0", 6);
        return bytes + ";";
    }
    // Where its first picture begins, and the codes of that picture.
    static constexpr std::size_t FirstPicture = 19;
    static constexpr std::size_t FirstCodes = 29;
    static std::string SmallGif() { return Gif(7, 8, 1); }

    static std::string Bitmap(std::int64_t width, std::int64_t height, int bits, std::uint32_t colours) {
        return "BM" + Little(54, 4) + Little(0, 4) + Little(54, 4) + Header(width, height, bits, colours);
    }
    static std::string Header(std::int64_t width, std::int64_t height, int bits, std::uint32_t colours) {
        return Little(40, 4) + Little(static_cast<std::uint64_t>(width), 4) +
               Little(static_cast<std::uint64_t>(height), 4) + Little(1, 2) +
               Little(static_cast<std::uint64_t>(bits), 2) + std::string(16, '\0') + Little(colours, 4) +
               Little(0, 4);
    }
    // A BMP file with the grey colours from 0 to 255, whose pixels are compressed to runs.
    static std::string Runs(std::int64_t width, std::int64_t height, const std::string& runs) {
        std::string bytes = Bitmap(width, height, 8, 0);
        bytes.replace(10, 4, Little(0, 4)); // the pixels follow the colours
        bytes[30] = 1;
        for (std::uint64_t i = 0; i < 256; ++i)
            bytes += Little(0x10101 * i, 4);
        return bytes + runs;
    }
    static std::string Icon(int count, const std::string& data) {
        std::string bytes = Little(0x10000, 4) + Little(static_cast<std::uint64_t>(count), 2);
        for (int i = 0; i < count; ++i)
            bytes += std::string("\x10\x10\0\0\1\0\x18\0", 8) + Little(data.size(), 4) +
                     Little(6 + 16 * static_cast<std::uint64_t>(count), 4);
        return bytes + data;
    }

    // Runs an action in a child process that may use only this much more memory.
    template <typename Action>
    static void WithinMegabytes(rlim_t megabytes, Action action) {
        const ChildEnd end = InChildProcess([&] {
            LimitMemory(megabytes);
            action();
            return true;
        });
        EXPECT_EQ(end, ChildEnd::Good);
    }

    TempStation station;

private:
    wxAssertHandler_t m_before;
};

TEST_F(PictureFileTest, EveryFormatIsRead) {
    for (int format = 0; format < 5; ++format) {
        const wxImage image = Load(EveryFormat(format));
        ASSERT_TRUE(image.IsOk()) << format;
        EXPECT_EQ(image.GetSize(), wxSize(7, 8)) << format;
    }
}

TEST_F(PictureFileTest, FilesThatAreCutOff) {
    const FilledMemory filled;
    for (int format = 0; format < 5; ++format) {
        const std::string whole = EveryFormat(format);
        for (std::size_t length = 0; length < whole.size(); length += length < 100 ? 1 : 7) {
            const wxImage image = Load(whole.substr(0, length));
            if (image.IsOk()) {
                EXPECT_EQ(image.GetSize(), wxSize(7, 8)) << format << " " << length;
            }
        }
    }
}

TEST_F(PictureFileTest, EveryByteOfAHeaderChanged) {
    const FilledMemory filled;
    for (int format = 0; format < 5; ++format) {
        const std::string whole = EveryFormat(format);
        for (std::size_t at = 0; at < std::min<std::size_t>(whole.size(), 50); ++at) {
            for (const char byte : {'\0', '\xFF'}) {
                std::string bytes = whole;
                bytes[at] = byte;
                const wxImage image = Load(bytes);
                if (image.IsOk()) {
                    EXPECT_LE(image.GetWidth() * std::int64_t{image.GetHeight()}, 50'000'000);
                }
            }
        }
    }
}

TEST_F(PictureFileTest, SizesThatAreTooLarge) {
    WithinMegabytes(100, [this] {
        EXPECT_FALSE(Load(Bitmap(100'000, 100'000, 24, 0)).IsOk());
        EXPECT_FALSE(Load(Bitmap(0x80000000, 0x80000000, 1, 0)).IsOk());
        EXPECT_FALSE(Load(Bitmap(0x10000, 0x10000, 24, 0)).IsOk()) << "32 bits would take this for nothing";
        EXPECT_FALSE(Load(Gif(65535, 65535, 1)).IsOk());
        EXPECT_FALSE(Load(Icon(1, Header(100'000, 200'000, 24, 0))).IsOk());
        std::string png = Picture<wxPNGHandler>();
        for (const std::size_t at : {18u, 22u})
            png.replace(at, 2, "\xFF\xFF");
        EXPECT_FALSE(Load(png).IsOk());
        std::string jpeg = Picture<wxJPEGHandler>();
        const std::size_t frame = jpeg.find("\xFF\xC0");
        ASSERT_NE(frame, std::string::npos);
        jpeg.replace(frame + 5, 4, 4, '\xFF');
        EXPECT_FALSE(Load(jpeg).IsOk());
    });
}

TEST_F(PictureFileTest, HeadersThatLie) {
    WithinMegabytes(200, [this] {
        const std::string pixels(2000, '\x55');
        for (const std::uint32_t colours : {257u, 100'000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
            for (const int bits : {1, 4, 8, 24}) {
                Load(Bitmap(16, 16, bits, colours) + pixels);
                Load(Icon(1, Header(16, 32, bits, colours) + pixels));
            }
        }
        for (const int bits : {0, 2, 3, 7, 16, 31, 32, 64, 65535})
            Load(Bitmap(16, 16, bits, 0) + pixels);
        for (const std::int64_t height : {0, 1, 2, -1, -2, -32})
            Load(Icon(1, Header(16, height, 24, 0) + pixels));
        for (const std::size_t at : {10u, 14u, 30u, 34u}) {
            std::string bytes = Bitmap(16, 16, 24, 0) + pixels;
            bytes.replace(at, 4, Little(0x7FFFFFFF, 4));
            Load(bytes);
        }
        EXPECT_EQ(g_assertions, 0);
    });
}

// 256 colours, and enough pixels to use the longest codes and to clear them again.
TEST_F(PictureFileTest, AGifFileOfARealPicture) {
    std::mt19937 random(1);
    wxImage image(200, 150);
    unsigned char greys[256];
    for (int i = 0; i < 256; ++i)
        greys[i] = static_cast<unsigned char>(i);
    for (int i = 0; i < 200 * 150; ++i) {
        const auto grey = static_cast<unsigned char>(i < 256 ? greys[i] : random() % 100);
        image.SetRGB(i % 200, i / 200, grey, grey, grey);
    }
    image.SetPalette(wxPalette(256, greys, greys, greys));
    wxMemoryOutputStream stream;
    wxGIFHandler handler;
    ASSERT_TRUE(handler.SaveFile(&image, stream, false));
    std::string bytes(static_cast<std::size_t>(stream.GetLength()), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    const wxImage loaded = Load(bytes);
    ASSERT_TRUE(loaded.IsOk());
    ASSERT_EQ(loaded.GetSize(), image.GetSize());
    EXPECT_TRUE(std::equal(image.GetData(), image.GetData() + 3 * 200 * 150, loaded.GetData()));
}

TEST_F(PictureFileTest, AGifFileOfRandomCodes) {
    const FilledMemory filled;
    std::mt19937 random(1);
    const std::string front = Gif(20, 20, 1).substr(0, FirstCodes);
    int shown = 0;
    constexpr int rounds = 2000;
    for (int i = 0; i < rounds; ++i) {
        const auto bits = static_cast<char>(i < 256 ? i : 2 + i % 7);
        std::string codes;
        for (std::size_t length = random() % 100 + 1; codes.size() < length;)
            codes += static_cast<char>(codes.size() < 2 ? random() % 8 : random());
        const std::string data = std::string(1, static_cast<char>(codes.size())) + codes;
        const wxImage image = Load(front + bits + data + std::string("\0;", 2));
        if (image.IsOk()) ++shown;
    }
    EXPECT_GT(shown, 0);
    EXPECT_LT(shown, rounds);
}

// The toolkit stops after the last pixel of a picture and takes what follows for another picture, which no
// check has seen: a very large one here.
TEST_F(PictureFileTest, AGifFileWithDataAfterTheLastPixel) {
    std::string bytes = Gif(1, 1, 1);
    // The mark at its beginning is the length of a block as well.
    std::string block = Gif(65535, 65535, 1).substr(FirstPicture);
    block.back() = '\0';
    block.resize(1 + static_cast<std::size_t>(block.front()));
    bytes.insert(bytes.size() - 2, block);
    WithinMegabytes(100, [&] {
        const wxImage image = Load(bytes);
        ASSERT_TRUE(image.IsOk());
        EXPECT_EQ(image.GetSize(), wxSize(1, 1));
    });
}

TEST_F(PictureFileTest, RunsOfABitmap) {
    const wxImage image = Load(Runs(3, 2, std::string("\3\x50\0\0\0\3\1\2\3\0\0\1", 12)));
    ASSERT_TRUE(image.IsOk());
    ASSERT_EQ(image.GetSize(), wxSize(3, 2));
    for (int x = 0; x < 3; ++x) {
        EXPECT_EQ(image.GetRed(x, 0), x + 1);
        EXPECT_EQ(image.GetRed(x, 1), 0x50);
    }
}

// The toolkit writes them there, beyond its memory.
TEST_F(PictureFileTest, RunsOutsideABitmap) {
    WithinMegabytes(100, [this] {
        const std::string away("\0\2\0\xFF\1\1\0\1", 8);
        EXPECT_FALSE(Load(Runs(30'000, 10, away)).IsOk());
        EXPECT_FALSE(Load(Runs(30'000, -10, away)).IsOk());
        const std::string pixels = Runs(30'000, 10, away).substr(14);
        std::string icon = Icon(1, pixels);
        icon.replace(22 + 8, 4, Little(20, 4)); // the height includes the mask
        EXPECT_FALSE(Load(icon + std::string(100'000, '\0')).IsOk());
    });
    std::mt19937 random(1);
    int shown = 0;
    constexpr int rounds = 2000;
    for (int i = 0; i < rounds; ++i) {
        std::string runs;
        for (int k = 0; k < 20; ++k)
            runs += static_cast<char>(random() % (k % 2 == 0 ? 3 : 12));
        if (Load(Runs(8, 8, runs + std::string("\0\1", 2))).IsOk()) ++shown;
    }
    EXPECT_GT(shown, 0);
    EXPECT_LT(shown, rounds);
}

TEST_F(PictureFileTest, ABitmapOfANegativeWidth) {
    const std::string pixels(2000, '\x55');
    EXPECT_FALSE(Load(Bitmap(-16, 16, 24, 0) + pixels).IsOk());
    EXPECT_FALSE(Load(Icon(1, Header(-16, 32, 24, 0) + pixels)).IsOk());
    // The oldest header, with sizes of 16 bits.
    const std::string old = Little(12, 4) + Little(0x8000, 2) + Little(16, 2) + Little(1, 2) + Little(24, 2);
    EXPECT_FALSE(Load(Bitmap(0, 0, 0, 0).substr(0, 14) + old + pixels).IsOk());
    EXPECT_EQ(g_assertions, 0);
}

TEST_F(PictureFileTest, AnIconOf65535Pictures) {
    const std::string pixels(16 * 16 * 3 + 16 * 4, '\x55');
    const wxImage image = Load(Icon(65535, Header(16, 32, 24, 0) + pixels));
    ASSERT_TRUE(image.IsOk());
    EXPECT_EQ(image.GetSize(), wxSize(16, 16));
}

TEST_F(PictureFileTest, AGifFileOfManyPictures) {
    WithinMegabytes(300, [this] {
        const wxImage large = Load(Gif(5000, 5000, 1000));
        EXPECT_TRUE(large.IsOk());
        const wxImage small = Load(Gif(2, 3, 300'000));
        ASSERT_TRUE(small.IsOk());
        EXPECT_EQ(small.GetSize(), wxSize(2, 3));
    });
}

TEST_F(PictureFileTest, AJpegFileOfManyScans) {
    std::string bytes = Picture<wxJPEGHandler>();
    ASSERT_TRUE(Load(bytes).IsOk());
    const std::size_t frame = bytes.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    bytes.replace(frame + 5, 4, "\x10\0\x10\0", 4); // 4096 x 4096
    for (int i = 0; i < 1000; ++i)
        bytes += std::string("\xFF\xDA\0\x08\1\1\0\0\x3F\0\0", 11);
    EXPECT_FALSE(Load(bytes).IsOk());
}

TEST_F(PictureFileTest, WhatIsNoFile) {
    station.Write(Path, "");
    const std::filesystem::path host = TempStation::Host(Path);
    std::filesystem::remove(host);
    ASSERT_EQ(::mkfifo(host.c_str(), 0600), 0);
    EXPECT_FALSE(LoadPicture(Path).IsOk()) << "a pipe";
    for (const std::filesystem::path& target :
         {std::filesystem::path("/dev/zero"), host, host.parent_path()}) {
        std::filesystem::remove(host);
        std::filesystem::create_symlink(target, host);
        EXPECT_FALSE(LoadPicture(Path).IsOk()) << target;
    }
    std::filesystem::remove(host);
    station.Write(Path, SmallGif());
    std::filesystem::resize_file(host, 2'000'000'000);
    WithinMegabytes(400, [] { EXPECT_FALSE(LoadPicture(Path).IsOk()) << "a file of 2 GB"; });
}

} // namespace
} // namespace nesk::testing
