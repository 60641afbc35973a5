// A station with one of every problem, as it is on disk.

#include "checking/MenuCheck.h"
#include "unit/CoreFixture.h"

#include <chrono>
#include <map>
#include <thread>

#ifdef NESK_PORTABLE_STATION
#include <sys/stat.h>
#endif

namespace nesk {
namespace {

using Kind = FindingKind;
using namespace std::chrono_literals;

std::string Line(const std::string& key, const std::string& value) {
    return value.empty() ? "" : key + "=" + value + "\r\n";
}

std::string Submenu(const std::string& caption, const std::string& entries, const std::string& graphic = "") {
    return "BLOCK SUBMENU\r\nCAPTION=" + caption + "\r\nMENUTYPE=Menu\r\n" + Line("GRAPHIC", graphic) +
           entries + "END\r\n";
}

// A part that starts a good program unless the lines say otherwise.
std::string Part(const std::string& caption, const std::string& lines = "") {
    const std::string program =
        lines.find("PROGRAMID") == std::string::npos ? "PROGRAMID=@C:\\Parts\\Good\\partinfo.ini@\r\n" : "";
    return "BLOCK SUBMENU\r\nCAPTION=" + caption + "\r\nMENUTYPE=Part Program\r\n" + program + lines +
           "END\r\n";
}

class EveryProblemTest : public testing::CoreTest {
protected:
    EveryProblemTest() {
        station.Write("C:\\Parts\\Good\\partinfo.ini", "[Part]\r\nName=Good\r\n");
        station.Write("C:\\Parts\\NoName\\partinfo.ini", "[Part]\r\n");
        station.Write("C:\\Pictures\\text.bmp", "no picture");
        // A header that promises 100,000 x 100,000 pixels.
        station.Write(
            "C:\\Pictures\\large.bmp",
            std::string("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xA0\x86\x01\0\xA0\x86\x01\0\1\0\x18\0", 30) +
                std::string(40, '\0'));
        station.Write("C:\\Files\\file.txt", "x");
        std::string menu =
            Submenu("Captions", Part("") + Part("Same") + Part("SAME") + Part("A very long caption"));
        menu += Submenu("No entries", "");
        menu += Submenu("Many", Part("1") + Part("2") + Part("3") + Part("4") + Part("5") + Part("6"));
        menu += Submenu("Programs", Part("none", "PROGRAMID=\r\n") +
                                        Part("missing", "PROGRAMID=@C:\\Parts\\Gone\\partinfo.ini@\r\n") +
                                        Part("no name", "PROGRAMID=@C:\\Parts\\NoName\\partinfo.ini@\r\n") +
                                        Part("path", "PROGRAMID=C:\\Parts\\Good\\partinfo.ini\r\n") +
                                        Part("identifier", "PROGRAMID=P7\r\n"));
        menu += Submenu("Pictures", Part("no picture", "GRAPHIC=C:\\Pictures\\text.bmp\r\n") +
                                        Part("too large", "PREVIEW=C:\\Pictures\\large.bmp\r\n") +
                                        Part("folder", "GRAPHIC=C:\\Pictures\r\n"));
        menu += Submenu("Help and history",
                        Part("topic", "HELPTOPIC=3\r\n") +
                            Part("a file", "HISTORY_DIR=C:\\Files\\file.txt\r\nHISTORY_TITLE=One\r\n") +
                            Part("no folder", "HISTORY_DIR=C:\\Files\\gone\r\nHISTORY_TITLE=Two\r\n") +
                            Part("title", "HISTORY_TITLE=two\r\n"));
#ifdef NESK_PORTABLE_STATION
        EXPECT_EQ(::mkfifo(TempStation::Host("C:\\Files\\pipe.chm").c_str(), 0600), 0);
        menu +=
            Submenu("Unreadable", Part("pipe", "HELPFILE=C:\\Files\\pipe.chm\r\n") +
                                      Part("picture", "GRAPHIC=C:\\Files\\pipe.chm\r\n") +
                                      Part("loop", "HISTORY_DIR=C:\\Files\\loop\r\nHISTORY_TITLE=Loop\r\n"));
        // The code page is Greek, whose byte D2 stands for nothing.
        platform::SelectCodePage(1032);
        menu += Submenu("Characters", Part("\xD2 is no character"));
#endif
        station.Write("C:\\Neskroot\\menu.cfg", "BLOCK MENU\r\nCAPTION=Main Menu\r\n" + menu + "END\r\n");
    }
};

TEST_F(EveryProblemTest, AllAreFound) {
    MenuEditor editor;
    ASSERT_FALSE(editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg"));
    MenuCheck check(editor);
    CheckOptions options;
    options.buttonsPerScreen = 5;
    options.captionFits = [](std::string_view caption) { return caption.size() < 18; };
    check.SetOptions(options);
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (!check.IsDone() && std::chrono::steady_clock::now() < end)
        if (!check.Step(5ms)) std::this_thread::sleep_for(1ms);
    ASSERT_TRUE(check.IsDone());
    std::map<Kind, std::string> texts;
    for (std::size_t i = 0; i < check.Count(); ++i)
        texts[check.At(i).kind] +=
            std::string(check.At(i).entry->Caption()) + ": " + check.At(i).Text() + "\n";
    for (int i = 0; i < static_cast<int>(Kind::Count); ++i) {
        const auto kind = static_cast<Kind>(i);
        // Typing and pasting refuse such a character, so that no file has it. The user who runs the tests may
        // be one who can read every folder.
        if (kind == Kind::NotEncodable || kind == Kind::FolderUnreadable) continue;
#ifndef NESK_PORTABLE_STATION
        if (kind == Kind::NotDecodable || kind == Kind::FileUnreadable) continue;
#endif
        EXPECT_TRUE(texts.contains(kind)) << "kind " << i;
    }
    EXPECT_EQ(texts[Kind::DoubledCaption],
              "Same: Another entry of this submenu has the caption \"Same\" too\n"
              "SAME: Another entry of this submenu has the caption \"SAME\" too\n");
    EXPECT_EQ(texts[Kind::ProgramIsPath],
              "path: The program is a path without @ and is started as an identifier: "
              "C:\\Parts\\Good\\partinfo.ini\n");
    EXPECT_EQ(texts[Kind::EmptySubmenu], "No entries: The submenu has no entries\n");
    EXPECT_NE(texts[Kind::TooManyButtons].find("Many: The submenu has 6 entries"), std::string::npos);
}

} // namespace
} // namespace nesk
