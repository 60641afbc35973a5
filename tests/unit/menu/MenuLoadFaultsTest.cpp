#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/FaultyFiles.h"
#include "unit/FileBytes.h"

#include <algorithm>
#include <filesystem>

namespace nesk {
namespace {

using nesk::testing::FaultyFiles;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
using platform::ErrorCode;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

// Number of bytes that are read at a time.
constexpr std::size_t Block = std::size_t{1} << 18;

constexpr int Entries = 2500;
constexpr int HeadLines = 2;  // before the first entry
constexpr int EntryLines = 3; // per entry

// A file of several blocks whose boundaries are inside lines.
std::string Contents() {
    std::string bytes = "BLOCK MENU\r\n\tCAPTION=root\r\n";
    for (int i = 0; i < Entries; ++i)
        bytes += "BLOCK SUBMENU\r\nCAPTION=" + std::string(300, 'x') + "\r\nEND\r\n";
    return bytes + "END\r\n";
}

// Number of whole lines in the first blocks. A line that is cut by a block's end belongs to the next block.
int LinesIn(const std::string& bytes, int blocks) {
    std::size_t given = 0;
    for (int i = 0; i < blocks; ++i)
        given = bytes.rfind('\n', std::min(given + Block, bytes.size()) - 1) + 1;
    return static_cast<int>(
        std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(given), '\n'));
}

class MenuLoadFaultsTest : public nesk::testing::CoreTest {
protected:
    MenuLoadFaultsTest() { station.Write(Path, m_bytes); }

    // The operations of opening the menu without a fault.
    std::vector<std::string> Operations() {
        FaultyFiles files;
        MenuEditor editor(files);
        EXPECT_FALSE(editor.Open(Folder, Path).has_value());
        EXPECT_EQ(editor.Find("R")->ChildCount(), Entries);
        return files.Operations();
    }

    void ExpectTold(const std::optional<NeskError>& failure, ErrorCode code) {
        ASSERT_TRUE(failure.has_value());
        EXPECT_EQ(failure->file, Path);
        EXPECT_EQ(failure->messageId, code == ErrorCode::SharingViolation ? Message::FileInUse
                                      : code == ErrorCode::AccessDenied   ? Message::PermissionDenied
                                                                          : Message::DeviceError);
        EXPECT_NE(modUtilities::MessageText(*failure).find(Path), std::string::npos);
    }

    // Saving a menu that was read only in part keeps the file.
    void ExpectNothingLost(MenuEditor& editor) {
        EXPECT_TRUE(editor.IsOpen());
        EXPECT_TRUE(editor.IsIncomplete());
        EXPECT_EQ(editor.CheckSave(Path), SaveHazard::Incomplete);
        editor.Save(Path);
        EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.damaged");
        EXPECT_TRUE(FileBytes(Path + ".damaged") == m_bytes);
    }

    const std::string m_bytes = Contents();
};

TEST_F(MenuLoadFaultsTest, EveryOperationThatFails) {
    const std::vector<std::string> operations = Operations();
    // The file is read twice: for its hash, and to load it.
    const auto load = std::find(operations.rbegin(), operations.rend(), "open").base() - operations.begin();
    ASSERT_GT(load, 3);
    ASSERT_GE(std::count(operations.begin() + load, operations.end(), "read"), 4);
    int last = 0;
    for (int number = 1; number <= static_cast<int>(operations.size()); ++number) {
        for (const ErrorCode code : {ErrorCode::AccessDenied, ErrorCode::SharingViolation,
                                     ErrorCode::ReadFault, ErrorCode::NotReady}) {
            SCOPED_TRACE(operations[static_cast<std::size_t>(number) - 1] + " " + std::to_string(number) +
                         ", code " + std::to_string(Number(code)));
            fs::remove_all(TempStation::Host(Folder));
            station.Write(Path, m_bytes);
            FaultyFiles files({number, code});
            MenuEditor editor(files);
            const std::optional<NeskError> failure = editor.Open(Folder, Path);
            ASSERT_EQ(files.Failed().size(), 1U);
            if (number < load) {
                EXPECT_FALSE(failure.has_value()) << "it is read all the same";
                EXPECT_EQ(editor.Find("R")->ChildCount(), Entries);
                // If the contents could not be read for their hash, a save asks one question too many. A
                // failed check whether the path is a folder has no effect.
                const std::string& failed = operations[static_cast<std::size_t>(number) - 1];
                const bool isLook = failed == "search" || failed == "attributes";
                EXPECT_EQ(editor.CheckSave(Path), isLook ? SaveHazard::None : SaveHazard::ChangedByOther);
                continue;
            }
            ExpectTold(failure, code);
            if (HasFailure()) return;
            const int lines = LinesIn(m_bytes, std::max(number - static_cast<int>(load) - 1, 0));
            EXPECT_EQ(failure->line, number == load ? 0 : lines + 1);
            EXPECT_EQ(editor.Find("R")->ChildCount(),
                      std::clamp((lines - HeadLines) / EntryLines, 0, Entries));
            last = failure->line;
            ExpectNothingLost(editor);
        }
    }
    EXPECT_EQ(last, HeadLines + Entries * EntryLines + 2) << "where the end of the file was looked for";
}

TEST_F(MenuLoadFaultsTest, AFileThatCannotBeReadAtAll) {
    FaultyFiles files({1, ErrorCode::ReadFault, true});
    MenuEditor editor(files);
    ExpectTold(editor.Open(Folder, Path), ErrorCode::ReadFault);
    EXPECT_EQ(editor.Find("R")->ChildCount(), 0);
    files.Mend();
    ExpectNothingLost(editor);
}

// The program cannot determine whether the file was changed, so the user decides.
TEST_F(MenuLoadFaultsTest, AFileThatCannotBeReadAgainBeforeASave) {
    for (const int number : {1, 2, 3}) {
        FaultyFiles files;
        MenuEditor editor(files);
        ASSERT_FALSE(editor.Open(Folder, Path).has_value());
        ASSERT_EQ(editor.CheckSave(Path), SaveHazard::None);
        files.Restart({number, ErrorCode::ReadFault});
        EXPECT_EQ(editor.CheckSave(Path), SaveHazard::ChangedByOther);
        ASSERT_EQ(files.Failed().size(), 1U);
        EXPECT_EQ(editor.CheckSave(Path), SaveHazard::None) << "now it can be read";
    }
}

} // namespace
} // namespace nesk
