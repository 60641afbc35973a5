#include "menu/LineReader.h"

#include "base/Messages.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

#include <filesystem>
#include <string>
#include <vector>

namespace nesk {
namespace {

const std::string Path = "C:\\lines.txt";

class LineReaderTest : public nesk::testing::CoreTest {
protected:
    // All lines of a file with these bytes, with "~" before a line that is not plain.
    std::vector<std::string> Lines(const std::string& bytes) {
        station.Write(Path, bytes);
        LineReader reader(std::make_unique<FileSource>(Path));
        std::vector<std::string> lines;
        for (LineReader::Line line{}; reader.Next(line);) {
            EXPECT_EQ(line.equals, std::find(line.first, line.last, '='));
            lines.push_back((line.isPlain ? "" : "~") + std::string(line.first, line.last));
        }
        LineReader::Line behind{};
        EXPECT_FALSE(reader.Next(behind)) << "the end stays the end";
        return lines;
    }

    using List = std::vector<std::string>;
};

TEST_F(LineReaderTest, EveryKindOfLineEnd) {
    EXPECT_EQ(Lines("a\r\nb\nc\rd\r\n\r\n\n\re"), (List{"a", "~b", "~c", "d", "", "~", "~", "~e"}));
    EXPECT_EQ(Lines("a=b\r\n"), List{"a=b"});
    EXPECT_EQ(Lines("a\r"), List{"~a"});
    EXPECT_EQ(Lines("a\n\r"), (List{"~a", "~"}));
    EXPECT_EQ(Lines(""), List{});
}

TEST_F(LineReaderTest, BlanksAndTabsAroundALineAreLeftOut) {
    EXPECT_EQ(Lines("\t \t a b\t\r\n"), List{"~a b"});
    EXPECT_EQ(Lines("\t\ta=b   \r\n"), List{"a=b"});
    EXPECT_EQ(Lines(std::string(100, '\t') + "a\r\n" + std::string(100, ' ') + "\r\n"), (List{"a", ""}));
    EXPECT_EQ(Lines("   "), List{"~"});
}

TEST_F(LineReaderTest, OnlyPrintableAsciiIsPlain) {
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        if (c == '\r' || c == '\n') continue;
        const bool plain = byte >= 0x20 && byte < 0x80;
        // In each position of the sixteen bytes that are examined together, and after them.
        std::string bytes;
        List expected;
        for (std::size_t place = 1; place < 34; ++place) {
            std::string text(35, 'x');
            text[place] = c;
            bytes += text + "\r\n";
            expected.push_back((plain ? "" : "~") + text);
        }
        EXPECT_EQ(Lines(bytes), expected) << byte;
    }
}

TEST_F(LineReaderTest, LinesAcrossTheBlocksOfReading) {
    // The end of the first line is moved past the end of the first block, byte by byte.
    constexpr std::size_t block = std::size_t{1} << 18;
    for (const std::string end : {"\r\n", "\r", "\n"}) {
        for (std::size_t length = block - 4; length <= block + 2; ++length) {
            const std::string text = "k=" + std::string(length - 2, 'v');
            const std::string mark = end == "\r\n" ? "" : "~";
            EXPECT_EQ(Lines(text + end + "b=c" + end), (List{mark + text, mark + "b=c"})) << length;
        }
    }
}

TEST_F(LineReaderTest, LinesGivenBeforeStayValidWithinABlock) {
    station.Write(Path, "a=1\r\nb=2\r\n");
    LineReader reader(std::make_unique<FileSource>(Path));
    LineReader::Line first{}, second{};
    EXPECT_FALSE(reader.NextInBlock(first)) << "nothing is read yet";
    ASSERT_TRUE(reader.Next(first));
    ASSERT_TRUE(reader.NextInBlock(second));
    EXPECT_EQ(std::string(first.first, first.last), "a=1");
    EXPECT_EQ(std::string(second.first, second.last), "b=2");
}

TEST_F(LineReaderTest, ALineThatIsTooLongIsRefused) {
    station.Write(Path, "");
    std::filesystem::resize_file(TempStation::Host(Path), LineReader::MaxLineLength * 2 + 1);
    LineReader reader(std::make_unique<FileSource>(Path));
    LineReader::Line line{};
    const NeskError error = testing::ErrorOf([&] { reader.Next(line); });
    EXPECT_EQ(error.number, RuntimeError::OutOfMemory);
    EXPECT_EQ(error.messageId, Message::LineTooLong);
    EXPECT_EQ(error.arguments, std::vector<std::string>{"128"});
}

} // namespace
} // namespace nesk
