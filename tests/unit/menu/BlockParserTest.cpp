#include "menu/BlockParser.h"
#include "base/Messages.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

#include <array>
#include <filesystem>
#include <iterator>
#include <random>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using Lines = std::vector<std::string>;

const std::string Path = "C:\\block.cfg";
constexpr std::size_t BufferSize = std::size_t{1} << 18;

// A parser that can continue at a high line number.
class LateParser final : public BlockParser {
public:
    using BlockParser::BlockParser;
    void GoOnAt(std::int32_t line) { m_currentLine = line; }
};

class BlockParserTest : public nesk::testing::CoreTest {
protected:
    // The tokens that the parser reads from a file, each after its line number: "1 BLOCK TYPE/name", "2
    // KEY=value", "3 END", "4 ?" for a syntax error. The tokens must be the same with and without expected
    // keys.
    Lines Read(const std::string& bytes) {
        station.Write(Path, bytes);
        BlockParser parser;
        const Lines tokens = Tokens(parser);
        BlockParser expecting(Expected);
        EXPECT_EQ(Tokens(expecting), tokens);
        return tokens;
    }

    static constexpr std::array Expected{LineScan::Key("A"), LineScan::Key("KEY"), LineScan::Key("CAPTION")};

    static Lines Tokens(BlockParser& parser) {
        parser.OpenFile(Path, false);
        Lines tokens;
        for (;;) {
            std::string token;
            try {
                switch (parser.GetToken()) {
                case BlockParser::TokenStartBlock:
                    token = "BLOCK " + parser.BlockType() + "/" + parser.BlockName();
                    break;
                case BlockParser::TokenEndBlock: token = "END"; break;
                case BlockParser::TokenKeyValue:
                    token = std::string(parser.Key()).append("=").append(parser.Value());
                    break;
                default: return tokens;
                }
            } catch (const NeskError&) {
                token = "?";
            }
            tokens.push_back(std::to_string(parser.CurrentLine()) + " " + token);
        }
    }

    // Random lines of the pieces that the parser distinguishes, at least `size` bytes in total.
    static std::string RandomLines(unsigned seed, std::size_t size) {
        static const std::array<std::string, 22> pieces{
            "A=",      "KEY=",   "CAPTION=", "a=",       "OTHER=",
            "A",       "=",      " ",        "\t",       "END",
            "END\r\n", "BLOCK ", "MENU",     "\"name\"", "\r\n",
            "\r\n",    "\n",     "\r",       ";",        std::string(1, '\0'),
            "\xE4",    "text",
        };
        std::mt19937 random(seed);
        std::string bytes;
        while (bytes.size() < size) {
            bytes += pieces[random() % pieces.size()];
            // Lines as the program itself writes them, so that expected keys follow one another.
            if (random() % 8 == 0)
                bytes += "\r\n\tA=1\r\n\tKEY=two words\r\n\tCAPTION=\r\nEND\r\nBLOCK MENU\r\n";
        }
        return bytes;
    }

    // The only token of a one-line file, without its line number.
    std::string ReadOne(const std::string& line) {
        const Lines tokens = Read(line);
        return tokens.size() == 1 ? tokens[0].substr(2) : std::to_string(tokens.size()) + " tokens";
    }
};

TEST_F(BlockParserTest, TokenNumbers) {
    EXPECT_EQ(BlockParser::TokenStartBlock, 0);
    EXPECT_EQ(BlockParser::TokenEndBlock, 1);
    EXPECT_EQ(BlockParser::TokenKeyValue, 2);
    EXPECT_EQ(BlockParser::TokenEndFile, 3);
}

TEST_F(BlockParserTest, Lines) {
    const struct {
        const char* line;
        const char* token;
    } table[] = {
        // Key and value: "=" is recognised before everything else.
        {"CAPTION=Parts", "CAPTION=Parts"},
        {"caption = Parts", "CAPTION=Parts"},
        {"CAPTION=", "CAPTION="},
        {"CAPTION   =   ", "CAPTION="},
        {"CAPTION=a;b", "CAPTION=a;b"},
        {"CAPTION=;b", "CAPTION=;b"},
        {"CAPTION=a=b==", "CAPTION=a=b=="},
        {"caption=Two  Words Kept  ", "CAPTION=Two  Words Kept"},
        {"two words=x", "TWO WORDS=x"},
        {"=value", "=value"},
        {"=", "="},
        {"  = x", "=x"},
        {"BLOCK MENU=x", "BLOCK MENU=x"},
        {"END=", "END="},
        {"\tA\t=\tb\tc\t", "A=b c"},
        // Only spaces and tabs are trimmed.
        {"A=\vx\f", "A=\vx\f"},
        {"\fA\v=x", "\fA\v=x"},
        {"A=\xA0x\xA0", "A=\xC2\xA0x\xC2\xA0"},
        {"\f;A=1", "\f;A=1"},
        {"gr\xFC\xDF"
         "e=Gr\xFC\xDF"
         "e",
         "GRÜßE=Grüße"},
        // End of a block: only this word.
        {"END", "END"},
        {"end", "END"},
        {"eNd", "END"},
        {" \t END \t ", "END"},
        {"ENDE", "?"},
        {"END x", "?"},
        {"END ;", "?"},
        {"EN", "?"},
        {"\vEND", "?"},
        {"END\f", "?"},
        // Start of a block.
        {"BLOCK MENU", "BLOCK MENU/"},
        {"block menu", "BLOCK MENU/"},
        {"BLOCK", "BLOCK /"},
        {"  BLOCK  ", "BLOCK /"},
        {"BLOCK\tMENU", "BLOCK MENU/"},
        {"BLOCK SUBMENU Tools extra", "BLOCK SUBMENU/Tools"},
        {"block   submenu   tOOls   extra", "BLOCK SUBMENU/tOOls"},
        {"BLOCK m\xFCller M\xFCller", "BLOCK MÜLLER/Müller"},
        {"BLOCK END", "BLOCK END/"},
        {"BLOCKS MENU", "?"},
        {"BLOC MENU", "?"},
        {"BLOCK;", "?"},
        {"BLOCK\vMENU", "?"},
        {"MENU BLOCK", "?"},
        {"text", "?"},
        {"\x01", "?"},
    };
    for (const auto& row : table)
        EXPECT_EQ(ReadOne(row.line), row.token) << row.line;
}

TEST_F(BlockParserTest, ATabIsOneSpaceAndNoTabStop) {
    EXPECT_EQ(ReadOne("a\tb\t\tc=1\t2\t\t3"), "A B  C=1 2  3");
}

TEST_F(BlockParserTest, NothingButTheEnd) {
    for (const char* bytes :
         {"", " ", "\r\n", "\n\n\n", ";", "; a=b\r\n", "   ;END\r\n\t;BLOCK MENU\r\n \t \r\n"})
        EXPECT_EQ(Read(bytes), Lines{}) << bytes;
}

TEST_F(BlockParserTest, BlankLinesAndCommentsAreSkippedAndCounted) {
    EXPECT_EQ(Read("\r\n; first\r\nBLOCK MENU\r\n\t ; a=b\r\n \t\r\n\tA=1\r\nEND\r\n"),
              (Lines{"3 BLOCK MENU/", "6 A=1", "7 END"}));
}

TEST_F(BlockParserTest, LineEnds) {
    const Lines expected = {"1 A=1", "3 B=2", "4 END"};
    EXPECT_EQ(Read("A=1\r\n\r\nB=2\r\nEND\r\n"), expected);
    EXPECT_EQ(Read("A=1\r\n\r\nB=2\r\nEND"), expected) << "no final line end";
    EXPECT_EQ(Read("A=1\n\nB=2\nEND\n"), expected);
    EXPECT_EQ(Read("A=1\r\rB=2\rEND\r"), expected);
    EXPECT_EQ(Read("A=1\r\rB=2\rEND"), expected);
    EXPECT_EQ(Read("A=1\n\rB=2\r\nEND\r"), expected) << "LF CR are two ends";
    EXPECT_EQ(Read("A=1\r\n\nB=2\rEND\n"), expected);
}

TEST_F(BlockParserTest, TheBufferBorder) {
    const std::string comment(BufferSize - 1, ';');
    EXPECT_EQ(Read(comment + "\r\nEND\r\n"), Lines{"2 END"}) << "CR LF split over two reads";
    EXPECT_EQ(Read(comment + "\rEND"), Lines{"2 END"});
    EXPECT_EQ(Read(comment + "\r"), Lines{});
    EXPECT_EQ(Read(comment + "\n\nEND"), Lines{"3 END"});
    EXPECT_EQ(Read(";" + comment + "\r\nEND"), Lines{"2 END"}) << "the end begins the second read";
    const std::string value(BufferSize - 2, 'v');
    EXPECT_EQ(Read("A=" + value), Lines{"1 A=" + value});
    EXPECT_EQ(Read("A=" + value + "w\n\nEND"), (Lines{"1 A=" + value + "w", "3 END"}));
}

TEST_F(BlockParserTest, AVeryLongLine) {
    const std::string value(1 << 20, 'x');
    EXPECT_EQ(Read("A=" + value + "\r\nEND\r\n"), (Lines{"1 A=" + value, "2 END"}));
}

TEST_F(BlockParserTest, ControlBytesAreData) {
    using namespace std::string_literals;
    EXPECT_EQ(ReadOne("A=x\0y\x01\x0B\x0C\x1A\x1Bz\x7F"s), "A=x\0y\x01\x0B\x0C\x1A\x1Bz\x7F"s);
    EXPECT_EQ(Read("A=\x1A\nEND\n"), (Lines{"1 A=\x1A", "2 END"})) << "a file does not end at control-Z";
    EXPECT_EQ(ReadOne("\0=\0"s), "\0=\0"s);
}

#ifdef NESK_PORTABLE_STATION
// Windows has only one code page, the system's own.
TEST_F(BlockParserTest, BytesThatCannotBeDecodedSurvive) {
    platform::SelectCodePage(1041);
    // 82 A0 is a character of this code page; a single 82, FD and A0 are not.
    const std::string bytes = "\x82\xA0-\xFD-\x82";
    station.Write(Path, "A\xFD=" + bytes + "\r\n");
    BlockParser parser;
    parser.OpenFile(Path, false);
    ASSERT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    EXPECT_TRUE(parser.Value().starts_with("あ-"));
    EXPECT_EQ(platform::ToAnsi(parser.Value()), bytes);
    EXPECT_EQ(platform::ToAnsi(parser.Key()), "A\xFD");
}
#endif

TEST_F(BlockParserTest, KeyAndBlockAreKeptOverOtherTokens) {
    station.Write(Path, "A=1\nBLOCK MENU Tools\nEND\nB=2\nBLOCK\n");
    BlockParser parser;
    parser.OpenFile(Path, false);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    for (const auto token : {BlockParser::TokenStartBlock, BlockParser::TokenEndBlock}) {
        EXPECT_EQ(parser.GetToken(), token);
        EXPECT_EQ(parser.Key(), "A");
        EXPECT_EQ(parser.Value(), "1");
    }
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    EXPECT_EQ(parser.BlockType(), "MENU");
    EXPECT_EQ(parser.BlockName(), "Tools");
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenStartBlock);
    EXPECT_EQ(parser.BlockType(), "") << "a block without a type has none, not that of the one before";
    EXPECT_EQ(parser.BlockName(), "");
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenEndFile);
    EXPECT_EQ(parser.Key(), "B");
    EXPECT_EQ(parser.Value(), "2");
}

TEST_F(BlockParserTest, ASyntaxErrorNamesItsLineAndReadingGoesOnBehindIt) {
    station.Write(Path, "; comment\r\n\r\nA=1\r\n\r\nENDE\r\nB=2\r\n");
    BlockParser parser;
    parser.OpenFile(Path, false);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    const NeskError error = ErrorOf([&] { parser.GetToken(); });
    EXPECT_EQ(error.number, 5000);
    EXPECT_EQ(error.source, "BlockParse.GetToken");
    EXPECT_EQ(error.messageId, Message::BlockSyntax);
    EXPECT_EQ(error.arguments, std::vector<std::string>{"5"});
    EXPECT_EQ(parser.CurrentLine(), 5);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    EXPECT_EQ(parser.Key(), "B");
    EXPECT_EQ(parser.CurrentLine(), 6);
}

TEST_F(BlockParserTest, TheEndIsToldAgainAndAgain) {
    station.Write(Path, "END\r\n");
    BlockParser parser;
    parser.OpenFile(Path, false);
    EXPECT_EQ(parser.CurrentLine(), 0);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenEndBlock);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(parser.GetToken(), BlockParser::TokenEndFile);
    EXPECT_EQ(parser.CurrentLine(), 1);
}

TEST_F(BlockParserTest, WritingIsNotImplemented) {
    station.Write(Path, "A=1\nB=2\n");
    BlockParser parser;
    parser.OpenFile(Path, false);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    const NeskError error = ErrorOf([&] { parser.OpenFile("C:\\new.cfg", true); });
    EXPECT_EQ(error.number, 5000);
    EXPECT_EQ(error.source, "BlockParser.Open");
    EXPECT_EQ(modUtilities::MessageText(error), "Not implemented at this time");
    EXPECT_FALSE(modUtilities::FileExists("C:\\new.cfg"));
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue) << "the open file was not touched";
    EXPECT_EQ(parser.Key(), "B");
}

TEST_F(BlockParserTest, AFileThatCannotBeOpened) {
    station.Write("C:\\Folder\\file", "x");
    const struct {
        const char* path;
        int number;
        int messageId;
    } table[] = {
        {"C:\\none.cfg", RuntimeError::FileNotFound, Message::FileNotFound},
        {"C:\\None\\none.cfg", RuntimeError::PathNotFound, Message::PathNotFound},
        {"C:\\Folder", RuntimeError::PermissionDenied, Message::PermissionDenied},
        {"", RuntimeError::PathNotFound, Message::PathNotFound},
    };
    for (const auto& row : table) {
        BlockParser parser;
        const NeskError error = ErrorOf([&] { parser.OpenFile(row.path, false); });
        EXPECT_EQ(error.number, row.number) << row.path;
        EXPECT_EQ(error.messageId, row.messageId) << row.path;
        EXPECT_EQ(error.arguments, std::vector<std::string>{row.path});
    }
}

TEST_F(BlockParserTest, LinesAreCountedUpToTheLargestNumber) {
    // One line of each kind that is read differently.
    station.Write(Path, "BLOCK MENU\r\nA=1\r\nKEY=2\r\nEND\r\nBLOCK MENU\r\n\r\n");
    LateParser parser(Expected);
    parser.OpenFile(Path, false);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenStartBlock);
    parser.GoOnAt(2147483646);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    EXPECT_EQ(parser.CurrentLine(), 2147483647);
    for (const char* line : {"KEY=2", "END", "BLOCK MENU", ""}) {
        const NeskError error = ErrorOf([&] { parser.GetToken(); });
        EXPECT_EQ(error.number, RuntimeError::Overflow) << line;
        EXPECT_EQ(error.messageId, Message::CounterOverflow) << line;
        EXPECT_EQ(parser.CurrentLine(), 2147483647) << line;
    }
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenEndFile) << "reading went on behind each line";
}

#ifdef NESK_PORTABLE_STATION
// Windows does not list the files that a program has open.
TEST_F(BlockParserTest, NoFileStaysOpen) {
    namespace fs = std::filesystem;
    const auto handles = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    station.Write(Path, "A=1\n");
    const auto before = handles();
    {
        BlockParser parser;
        parser.OpenFile(Path, false);
        EXPECT_EQ(handles(), before + 1);
        parser.OpenFile(Path, false);
        EXPECT_EQ(handles(), before + 1) << "the one before is closed";
        parser.CloseFile();
        EXPECT_EQ(handles(), before);
        parser.OpenFile(Path, false);
        EXPECT_EQ(handles(), before + 1);
    }
    EXPECT_EQ(handles(), before) << "the parser closes its file at its end";
}
#endif

TEST_F(BlockParserTest, ClosingTwiceDoesNothing) {
    station.Write(Path, "A=1\nB=2\n");
    BlockParser parser;
    parser.CloseFile();
    parser.OpenFile(Path, false);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    parser.CloseFile();
    parser.CloseFile();
    EXPECT_EQ(parser.Key(), "A");
    EXPECT_EQ(parser.CurrentLine(), 1);
}

TEST_F(BlockParserTest, OpeningAnotherFileCountsAfresh) {
    station.Write(Path, "A=1\nB=2\nC=3\n");
    station.Write("C:\\other.cfg", "\nX=9\n");
    BlockParser parser;
    parser.OpenFile(Path, false);
    parser.GetToken();
    parser.GetToken();
    EXPECT_EQ(parser.CurrentLine(), 2);
    parser.OpenFile("C:\\other.cfg", false);
    EXPECT_EQ(parser.CurrentLine(), 0);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenKeyValue);
    EXPECT_EQ(parser.Key(), "X");
    EXPECT_EQ(parser.CurrentLine(), 2);
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenEndFile);
}

TEST_F(BlockParserTest, AFileThatCannotBeOpenedStartsNoNewCount) {
    station.Write(Path, "A=1\nB=2\n");
    BlockParser parser;
    parser.OpenFile(Path, false);
    parser.GetToken();
    EXPECT_EQ(ErrorOf([&] { parser.OpenFile("C:\\none.cfg", false); }).number, RuntimeError::FileNotFound);
    EXPECT_EQ(parser.CurrentLine(), 1);
    EXPECT_EQ(parser.Key(), "A");
    EXPECT_EQ(parser.GetToken(), BlockParser::TokenEndFile) << "the file before is closed";
    parser.OpenFile(Path, false);
    EXPECT_EQ(parser.CurrentLine(), 0);
}

TEST_F(BlockParserTest, ExpectedKeysAreReadLikeAllOthers) {
    for (unsigned seed = 1; seed <= 500; ++seed)
        EXPECT_FALSE(Read(RandomLines(seed, 300)).empty()) << "seed " << seed;
    EXPECT_GT(Read(RandomLines(501, 3 * BufferSize)).size(), 1000u) << "over the ends of blocks";
}

TEST_F(BlockParserTest, TellsWhichOfTheExpectedKeysItHasMet) {
    station.Write(Path, "KEY=1\r\nkey =2\r\nA=3\r\nOTHER=4\r\nCAPTION=5\r\n");
    BlockParser parser(Expected);
    parser.OpenFile(Path, false);
    std::vector<std::size_t> places;
    while (parser.GetToken() == BlockParser::TokenKeyValue)
        places.push_back(parser.KeyIndex());
    EXPECT_EQ(places, (std::vector<std::size_t>{1, 1, 0, BlockParser::UnknownKey, 2}));
}

} // namespace
} // namespace nesk
