#include "widgets/UiPictureFile.h"

#include "unit/platform/TempStation.h"
#include "unit/platform/portable/ChildProcess.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
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

namespace nesk::testing {
namespace {

int g_assertions = 0;

const std::string Path = "C:\\Pictures\\picture";

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
    WithinMegabytes(200, [] { EXPECT_FALSE(LoadPicture(Path).IsOk()) << "a file of 2 GB"; });
}

} // namespace
} // namespace nesk::testing
