#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"
#include "unit/platform/portable/ChildProcess.h"

#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>

namespace nesk {
namespace {

using nesk::testing::ChildEnd;
using nesk::testing::FileBytes;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
constexpr const char* Small = "BLOCK MENU\r\n\tCAPTION=good\r\n\tGRAPHIC=\r\nEND\r\n";

// Paths of the menu file that are not a regular file, and files that change while they are read.
class MenuFileOnHostTest : public nesk::testing::CoreTest {
protected:
    MenuFileOnHostTest() { fs::create_directories(m_folder); }

    // What is in place of the file must be reported and must not be replaced.
    void ExpectRefused(int messageId) {
        const auto failure = m_editor.Open(Folder, Path);
        ASSERT_TRUE(failure.has_value());
        EXPECT_EQ(failure->messageId, messageId);
        EXPECT_EQ(failure->file, Path);
        EXPECT_TRUE(m_editor.IsIncomplete());
        EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::Incomplete);
        const fs::file_type before = fs::symlink_status(m_file).type();
        EXPECT_THROW(m_editor.Save(Path), NeskError);
        EXPECT_EQ(fs::symlink_status(m_file).type(), before);
        EXPECT_EQ(nesk::testing::FilesIn(Folder), "menu.cfg") << "nothing is left behind";
    }

    const fs::path m_folder = TempStation::Host(Folder);
    const fs::path m_file = m_folder / "menu.cfg";
    MenuEditor m_editor;
};

TEST_F(MenuFileOnHostTest, APipe) {
    ASSERT_EQ(::mkfifo(m_file.c_str(), 0600), 0);
    ExpectRefused(Message::PermissionDenied);
}

TEST_F(MenuFileOnHostTest, ASocket) {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_GE(socket, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(m_file.native().size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, m_file.c_str(), m_file.native().size());
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ExpectRefused(Message::DeviceError);
    ::close(socket);
}

TEST_F(MenuFileOnHostTest, ADeviceThatNeverEnds) {
    fs::create_symlink("/dev/zero", m_file);
    ExpectRefused(Message::PermissionDenied);
    EXPECT_EQ(fs::read_symlink(m_file), "/dev/zero");
}

TEST_F(MenuFileOnHostTest, ALinkToAFolder) {
    fs::create_directory(m_folder / "other");
    fs::create_directory_symlink(m_folder / "other", m_file);
    Expect();
    m_editor.Open(Folder, Path);
    EXPECT_EQ(messages.back().text, modStringRes::FormatResString(Message::MenuFileMissing, Path));
    EXPECT_THROW(m_editor.Save(Path), NeskError);
    EXPECT_TRUE(fs::is_symlink(m_file));
}

TEST_F(MenuFileOnHostTest, AFolderThatMayNotBeSearched) {
    station.Write(Path, Small);
    // The plain user must be able to reach the station's folder.
    fs::permissions(station.Folder(), fs::perms::others_exec, fs::perm_options::add);
    fs::permissions(m_folder, fs::perms::none);
    const auto look = [&] {
        nesk::testing::BecomePlainUser();
        const auto failure = m_editor.Open(Folder, Path);
        EXPECT_TRUE(failure.has_value());
        EXPECT_EQ(failure->messageId, Message::PermissionDenied);
        EXPECT_EQ(failure->file, Path);
        EXPECT_TRUE(m_editor.IsIncomplete());
        EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::Incomplete);
        return true;
    };
    EXPECT_EQ(nesk::testing::InChildProcess(look), nesk::testing::ChildEnd::Good);
    fs::permissions(m_folder, fs::perms::owner_all);
}

TEST_F(MenuFileOnHostTest, ALinkThatLeadsNowhere) {
    fs::create_symlink(m_folder / "none.cfg", m_file);
    EXPECT_FALSE(m_editor.Open(Folder, Path).has_value()) << "a new menu";
    EXPECT_EQ(m_editor.Path(), "");
    m_editor.Save(Path);
    EXPECT_FALSE(m_editor.Open(Folder, Path).has_value());
    EXPECT_EQ(m_editor.Path(), Path);
}

TEST_F(MenuFileOnHostTest, ALinkToItself) {
    fs::create_symlink(m_file, m_file);
    EXPECT_FALSE(m_editor.Open(Folder, Path).has_value()) << "there is no file that could be lost";
    EXPECT_EQ(m_editor.Path(), "");
    EXPECT_THROW(m_editor.Save(Path), NeskError);
    EXPECT_TRUE(fs::is_symlink(m_file));
}

TEST_F(MenuFileOnHostTest, NothingButZeros) {
    std::ofstream(m_file) << "BLOCK MENU\n";
    fs::resize_file(m_file, 140'000'000);
    const auto failure = m_editor.Open(Folder, Path);
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->messageId, Message::LineTooLong);
    EXPECT_EQ(failure->line, 2);
    EXPECT_TRUE(m_editor.IsIncomplete());
}

// The sanitizers end a program that requests more memory than is available.
#ifndef __SANITIZE_ADDRESS__
TEST_F(MenuFileOnHostTest, MoreThanMemoryHolds) {
    station.Write(Path, Small);
    ASSERT_FALSE(m_editor.Open(Folder, Path).has_value());
    station.Write(Path, "BLOCK MENU\nCAPTION=" + std::string(100'000'000, 'v') + "\nEND\n");
    const ChildEnd end = nesk::testing::InChildProcess([this] {
        nesk::testing::LimitMemory(100);
        const auto failure = m_editor.Open(Folder, Path);
        EXPECT_TRUE(failure.has_value());
        if (!failure) return true;
        EXPECT_EQ(failure->number, RuntimeError::OutOfMemory);
        EXPECT_EQ(failure->messageId, Message::OutOfMemory);
        EXPECT_EQ(failure->arguments, std::vector<std::string>{Path});
        EXPECT_TRUE(m_editor.IsIncomplete());
        station.Write(Path, Small);
        EXPECT_FALSE(m_editor.Open(Folder, Path).has_value()) << "the program goes on";
        return true;
    });
    EXPECT_EQ(end, ChildEnd::Good);
}

TEST_F(MenuFileOnHostTest, MoreThanMemoryHoldsOfASave) {
    station.Write(Path, Small);
    ASSERT_FALSE(m_editor.Open(Folder, Path).has_value());
    std::string caption;
    for (int i = 0; i < 20'000'000; ++i)
        caption += "ä";
    m_editor.SetCaption("R", caption);
    const ChildEnd end = nesk::testing::InChildProcess([&] {
        nesk::testing::LimitMemory(2);
        try {
            m_editor.Save(Path);
            ADD_FAILURE() << "there was memory enough";
        } catch (const NeskError& error) {
            EXPECT_EQ(error.number, RuntimeError::OutOfMemory);
            EXPECT_EQ(error.messageId, Message::NoMemoryToSave);
            EXPECT_EQ(error.file, Path);
        }
        EXPECT_TRUE(m_editor.IsDirty());
        return true;
    });
    EXPECT_EQ(end, ChildEnd::Good);
    EXPECT_EQ(FileBytes(Path), Small);
}

TEST_F(MenuFileOnHostTest, ClosingNeedsNoMemory) {
    station.Write(Path, Small);
    ASSERT_FALSE(m_editor.Open(Folder, Path).has_value());
    // Leaves before each deeper submenu: they all still exist when the deepest one is released.
    std::string parent = "R";
    for (int level = 0; level < 8; ++level) {
        for (int i = 0; i < 32'000; ++i)
            m_editor.AddPart(parent, "p");
        parent = m_editor.AddSubmenu(parent, "s");
    }
    const ChildEnd end = nesk::testing::InChildProcess([&] {
        nesk::testing::LimitMemory(0);
        m_editor.Close();
        EXPECT_FALSE(m_editor.IsOpen());
        return true;
    });
    EXPECT_EQ(end, ChildEnd::Good);
}
#endif

// A thread that keeps writing while the object lives.
class Writer {
public:
    template <typename Action>
    explicit Writer(Action action)
        : m_thread([this, action] {
            while (!m_stop)
                action();
        }) {}
    ~Writer() {
        m_stop = true;
        m_thread.join();
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

private:
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

TEST_F(MenuFileOnHostTest, AFileThatGrows) {
    const std::string caption = "grows and grows";
    std::string block;
    for (int i = 0; i < 20'000; ++i)
        block += "CAPTION=" + caption + "\r\n";
    station.Write(Path, "BLOCK MENU\r\n" + block);
    std::ofstream file(m_file, std::ios::binary | std::ios::app);
    int written = 0;
    const Writer writer([&] {
        if (++written > 40) return std::this_thread::yield(); // 20 MB
        file << block << std::flush;
    });
    m_editor.Open(Folder, Path);
    EXPECT_TRUE(m_editor.IsOpen());
    // The last line may be cut anywhere, even after its "=".
    const std::string_view read = m_editor.Find("R")->Caption();
    EXPECT_EQ(read, caption.substr(0, read.size()));
    while (FileBytes(Path).size() <= 3 * block.size())
        std::this_thread::yield();
    EXPECT_NE(m_editor.CheckSave(Path), SaveHazard::None);
}

TEST_F(MenuFileOnHostTest, AFileThatShrinksAndGrows) {
    std::string whole = "BLOCK MENU\r\n";
    for (int i = 0; i < 20'000; ++i)
        whole += "BLOCK SUBMENU\r\nCAPTION=child\r\nHELPTOPIC=1\r\nEND\r\n";
    whole += "END\r\n";
    station.Write(Path, whole);
    int loads = 0;
    {
        const Writer writer([&] {
            fs::resize_file(m_file, 100);
            fs::resize_file(m_file, whole.size()); // the rest is zeros
            std::ofstream(m_file, std::ios::binary | std::ios::in) << whole;
        });
        for (; loads < 50; ++loads) {
            const auto failure = m_editor.Open(Folder, Path);
            EXPECT_TRUE(m_editor.IsOpen());
            // A file that was cut between two lines has no wrong line, but its end is missing.
            EXPECT_EQ(failure.has_value() || m_editor.OpenMenu()->EndIsMissing(), m_editor.IsIncomplete());
        }
    }
    EXPECT_EQ(loads, 50);
    station.Write(Path, Small);
    EXPECT_NE(m_editor.CheckSave(Path), SaveHazard::None) << "nothing of what was read stands there now";
}

} // namespace
} // namespace nesk
