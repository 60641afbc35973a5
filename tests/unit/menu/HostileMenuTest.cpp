#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/TextEncoding.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"

#include <algorithm>
#include <set>

namespace nesk {
namespace {

using nesk::testing::FileBytes;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

class HostileMenuTest : public nesk::testing::CoreTest {
protected:
    std::optional<NeskError> OpenWith(const std::string& bytes) {
        station.Write(Path, bytes);
        return m_editor.Open(Folder, Path);
    }

    MenuEditor m_editor;
};

TEST_F(HostileMenuTest, EveryByteInAValue) {
    std::string value;
    for (int byte = 0; byte < 256; ++byte) {
        // A tab counts as a space, and a line end ends the value.
        if (byte == '\t' || byte == '\r' || byte == '\n') continue;
        value += std::string("x") + static_cast<char>(byte) + "x";
    }
    const std::string bytes = "BLOCK MENU\r\n\tCAPTION=" + value + "\r\n\tGRAPHIC=\r\nEND\r\n";
    ASSERT_FALSE(OpenWith(bytes).has_value());
    m_editor.Save(Path);
    EXPECT_EQ(FileBytes(Path), bytes);
}

TEST_F(HostileMenuTest, LinesThatALineEndInAValueMakes) {
    EXPECT_EQ(OpenWith("BLOCK MENU\r\n\tCAPTION=a\nb\r\nEND\r\n")->line, 3);
    EXPECT_EQ(OpenWith("BLOCK MENU\r\n\tCAPTION=a\rb\r\nEND\r\n")->line, 3);
}

TEST_F(HostileMenuTest, FilesOfOneByteOverAndOver) {
    for (int byte = 0; byte < 256; ++byte) {
        for (const std::size_t size : {std::size_t{1}, std::size_t{5000}}) {
            const auto failure = OpenWith(std::string(size, static_cast<char>(byte)));
            ASSERT_TRUE(failure.has_value()) << byte;
            const bool nothing = std::string("\t\n\r ;=").find(static_cast<char>(byte)) != std::string::npos;
            EXPECT_EQ(failure->messageId,
                      byte != 0 && nothing ? Message::MenuNotAMenuFile : Message::BlockSyntax)
                << byte;
            EXPECT_EQ(failure->file, Path);
            EXPECT_EQ(m_editor.Find("R")->ChildCount(), 0);
            EXPECT_TRUE(m_editor.IsIncomplete());
        }
    }
}

TEST_F(HostileMenuTest, AByteOrderMarkIsNoMenu) {
    for (const std::string mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
        const auto failure = OpenWith(mark + "BLOCK MENU\r\nEND\r\n");
        ASSERT_TRUE(failure.has_value());
        EXPECT_EQ(failure->messageId, Message::BlockSyntax);
        EXPECT_EQ(failure->line, 1);
    }
}

// A truncated file loads as far as it goes, or the error names the truncated line.
TEST_F(HostileMenuTest, AFileThatIsCutAnywhere) {
    const std::string whole = "BLOCK MENU\r\n\tCAPTION=Main\r\n\tGRAPHIC=a.bmp\r\n"
                              "\tBLOCK SUBMENU\r\n\t\tCAPTION=A\r\n\t\tHELPTOPIC=12\r\n"
                              "\t\tBLOCK SUBMENU\r\n\t\t\tCAPTION=B\r\n\t\tEND\r\n\tEND\r\n"
                              "\tBLOCK SUBMENU\r\n\t\tCAPTION=C\r\n\tEND\r\nEND\r\n";
    std::set<int> messageIds;
    int good = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const std::string bytes = whole.substr(0, size);
        const auto failure = OpenWith(bytes);
        const auto line = static_cast<int>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
        if (!failure) {
            ++good;
            // The last line needs no line end.
            EXPECT_EQ(m_editor.IsIncomplete(), size < whole.size() - 2) << size;
            // The part that was read can be saved and read again.
            m_editor.Save(Path);
            EXPECT_FALSE(m_editor.Open(Folder, Path).has_value()) << size;
            continue;
        }
        messageIds.insert(failure->messageId);
        EXPECT_TRUE(failure->line == line || failure->line == line - 1) << size;
        EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::Incomplete) << size;
    }
    EXPECT_GT(good, 50);
    EXPECT_EQ(messageIds, (std::set<int>{Message::MenuNotAMenuFile, Message::MenuUnknownBlock,
                                         Message::BlockSyntax, Message::TypeMismatch}));
}

} // namespace
} // namespace nesk
