#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FaultyFiles.h"
#include "unit/FileBytes.h"
#include "unit/platform/portable/ChildProcess.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/statvfs.h>

namespace nesk {
namespace {

using namespace nesk::testing;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string Older = "BLOCK MENU\r\n\tCAPTION=older\r\nEND\r\n";

// A menu of `entries` entries of 200 characters.
std::string MenuOf(int entries) {
    std::string bytes = "BLOCK MENU\r\n\tCAPTION=old\r\n";
    for (int i = 0; i < entries; ++i)
        bytes += "BLOCK SUBMENU\r\nCAPTION=" + std::string(200, 'o') + "\r\nEND\r\n";
    return bytes + "END\r\n";
}

// Saves on a host that really fails: its disk is full, or its folder is protected or missing.
class MenuSaveOnHostTest : public CoreTest {
protected:
    MenuSaveOnHostTest() { Prepare(Folder, 100); }

    static fs::path Host(const std::string& path) { return TempStation::Host(path); }

    // Writes a menu file of `entries` entries and an older backup.
    void Prepare(const std::string& folder, int entries) {
        m_old = MenuOf(entries);
        station.Write(folder + "\\menu.cfg", m_old);
        station.Write(folder + "\\menu.cfg.bak", Older);
    }

    // Opens the menu and adds `entries` entries.
    static void OpenAndEdit(MenuEditor& editor, int entries, const std::string& folder = Folder) {
        ASSERT_FALSE(editor.Open(folder, folder + "\\menu.cfg"));
        editor.SetCaption("R", "new");
        for (int i = 0; i < entries; ++i)
            editor.AddPart("R", std::string(200, 'n'));
    }

    // Expects a save to fail with `messageId`: the file stays, no other file is left, and the text names the
    // place.
    void ExpectFailure(MenuEditor& editor, int messageId, const std::string& folder = Folder) {
        const std::string path = folder + "\\menu.cfg";
        const NeskError error = ErrorOf([&] { editor.Save(path); });
        EXPECT_TRUE(error.messageId == messageId || error.messageId == Message::BackupFailed);
        const std::string text = modUtilities::MessageText(error);
        EXPECT_NE(text.find(modStringRes::FormatResString(
                      messageId, error.messageId == messageId ? error.arguments.at(0) : path + ".bak")),
                  std::string::npos)
            << text;
        EXPECT_NE(text.find(folder), std::string::npos) << text;
        EXPECT_EQ(error.file, path);
        EXPECT_TRUE(editor.IsOpen());
        EXPECT_TRUE(editor.IsDirty());
    }

    void ExpectUntouched(const std::string& folder = Folder) const {
        EXPECT_TRUE(FileBytes(folder + "\\menu.cfg") == m_old) << FileBytes(folder + "\\menu.cfg").size();
        EXPECT_EQ(FileBytes(folder + "\\menu.cfg.bak"), Older);
        EXPECT_EQ(FilesIn(folder), "menu.cfg menu.cfg.bak");
    }

    void ExpectSaved(MenuEditor& editor, const std::string& folder = Folder) {
        editor.Save(folder + "\\menu.cfg");
        EXPECT_FALSE(editor.IsDirty());
        EXPECT_TRUE(FileBytes(folder + "\\menu.cfg.bak") == m_old);
        EXPECT_EQ(FilesIn(folder), "menu.cfg menu.cfg.bak");
        MenuEditor reader;
        EXPECT_FALSE(reader.Open(folder, folder + "\\menu.cfg"));
        EXPECT_EQ(reader.OpenMenu()->Caption(), "new");
        EXPECT_EQ(reader.OpenMenu()->ChildCount(), editor.OpenMenu()->ChildCount());
    }

    std::string m_old;
};

// No file may grow beyond a limit, which the system reports like a full disk.
TEST_F(MenuSaveOnHostTest, AFileMayGrowNoFurther) {
    // If the new version is longer than the old one, its own writing fails first; otherwise the backup of the
    // old one does.
    for (const bool longer : {true, false}) {
        Prepare(Folder, longer ? 100 : 3000);
        const auto action = [&] {
            ::signal(SIGXFSZ, SIG_IGN);
            MenuEditor editor;
            OpenAndEdit(editor, 2000);
            if (!longer)
                while (editor.OpenMenu()->ChildCount() > 2)
                    editor.Remove(editor.OpenMenu()->Children()->Item(1).ID());
            const rlim_t limits[] = {0, 1, 1000, longer ? 300'000U : m_old.size() / 2,
                                     longer ? 500'000U : m_old.size() - 1};
            for (const rlim_t size : limits) {
                SCOPED_TRACE(size);
                const rlimit limit{size, RLIM_INFINITY};
                EXPECT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &limit));
                ExpectFailure(editor, Message::DiskFull);
                ExpectUntouched();
            }
            const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
            EXPECT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &none));
            ExpectSaved(editor);
            return true;
        };
        EXPECT_EQ(InChildProcess(action), ChildEnd::Good) << "see above";
    }
}

// A small disk of the test's own, if the system allows a process to mount one.
TEST_F(MenuSaveOnHostTest, ADiskWithoutSpace) {
    station.AddDrive('d');
    const fs::path disk = station.Folder() / "drives" / "d";
    const std::string folder = "D:\\Neskroot";
    const ChildEnd end = InChildProcess([&] {
        if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
        if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
        if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=2m") != 0) return false;
        Prepare(folder, 1000);
        MenuEditor editor;
        OpenAndEdit(editor, 600, folder);
        int failures = 0;
        // Less space is left each time: too little for the backup, then for the new version, then none.
        constexpr int Fillers = 10;
        for (int filler = 0; filler < Fillers; ++filler) {
            struct statvfs space {};
            EXPECT_EQ(0, ::statvfs(disk.c_str(), &space));
            const std::size_t left = space.f_bavail * space.f_frsize;
            if (left < 700'000) {
                SCOPED_TRACE(left);
                ExpectFailure(editor, Message::DiskFull, folder);
                ExpectUntouched(folder);
                ++failures;
            }
            station.Write("D:\\filler" + std::to_string(filler),
                          std::string(std::min(left, std::size_t{200'000}), 'f'));
        }
        EXPECT_GT(failures, 3);
        for (int filler = 0; filler < Fillers; ++filler)
            fs::remove(disk / ("filler" + std::to_string(filler)));
        ExpectSaved(editor, folder);
        return true;
    });
    if (end == ChildEnd::NotPossible) GTEST_SKIP() << "the system lets no process mount a disk of its own";
    EXPECT_EQ(end, ChildEnd::Good) << "see above";
}

// A folder that becomes read-only, unreadable or inaccessible during a save.
TEST_F(MenuSaveOnHostTest, AProtectedFolder) {
    for (const fs::path& path : {station.Folder(), Host(Folder)})
        fs::permissions(path, fs::perms::all);
    for (const char* name : {"\\menu.cfg", "\\menu.cfg.bak"})
        fs::permissions(Host(Folder + name), static_cast<fs::perms>(0666));
    const auto action = [&] {
        BecomePlainUser();
        // Only its owner may change the rights of a folder.
        const std::string own = "C:\\Neskroot\\own";
        fs::create_directory(Host(own));
        int failures = 0;
        for (const unsigned mode : {0555U, 0111U, 0U}) {
            for (int moment = 1; moment <= 8; ++moment) {
                SCOPED_TRACE(std::to_string(mode) + " before operation " + std::to_string(moment));
                Prepare(own, 100);
                FaultyFiles files;
                MenuEditor editor(files);
                OpenAndEdit(editor, 50, own);
                files.Restart();
                const fs::path folder = Host(own);
                files.before = [&](int number) {
                    if (number == moment) fs::permissions(folder, static_cast<fs::perms>(mode));
                };
                ExpectFailure(editor, Message::PermissionDenied, own);
                ++failures;
                files.before = {};
                fs::permissions(folder, static_cast<fs::perms>(0755));
                EXPECT_TRUE(FileBytes(own + "\\menu.cfg") == m_old);
                EXPECT_EQ(FileBytes(own + "\\menu.cfg.bak"), moment == 8 ? m_old : Older);
                editor.Save(own + "\\menu.cfg");
                EXPECT_FALSE(editor.IsDirty());
                EXPECT_EQ(FilesIn(own), "menu.cfg menu.cfg.bak")
                    << "what could not be removed is removed now";
            }
        }
        EXPECT_EQ(failures, 24);
        return true;
    };
    EXPECT_EQ(InChildProcess(action), ChildEnd::Good) << "see above";
}

// A user who may write in a folder may not be allowed to list it.
TEST_F(MenuSaveOnHostTest, AFolderThatMayBeWrittenButNotRead) {
    fs::permissions(station.Folder(), fs::perms::all);
    fs::permissions(Host(Folder), fs::perms::all);
    EXPECT_EQ(InChildProcess([&] {
                  BecomePlainUser();
                  const std::string own = "C:\\Neskroot\\own";
                  fs::create_directory(Host(own));
                  const fs::path folder = Host(own);
                  Prepare(own, 100);
                  MenuEditor editor;
                  OpenAndEdit(editor, 50, own);
                  fs::permissions(folder, static_cast<fs::perms>(0333));
                  editor.Save(own + "\\menu.cfg");
                  EXPECT_FALSE(editor.IsDirty());
                  fs::permissions(folder, static_cast<fs::perms>(0755));
                  EXPECT_TRUE(FileBytes(own + "\\menu.cfg.bak") == m_old);
                  EXPECT_EQ(FilesIn(own), "menu.cfg menu.cfg.bak");
                  return true;
              }),
              ChildEnd::Good)
        << "see above";
}

// The folder disappears during a save, as on a removed drive, and comes back.
TEST_F(MenuSaveOnHostTest, AFolderThatGoesAwayAndComesBack) {
    const fs::path away = station.Folder() / "away";
    constexpr int Operations = 8;
    for (int moment = 1; moment <= Operations; ++moment) {
        SCOPED_TRACE(moment);
        Prepare(Folder, 100);
        FaultyFiles files;
        MenuEditor editor(files);
        OpenAndEdit(editor, 50);
        files.Restart();
        const fs::path folder = Host(Folder);
        files.before = [&](int number) {
            if (number == moment) fs::rename(folder, away);
        };
        const NeskError error = ErrorOf([&] { editor.Save(Path); });
        EXPECT_EQ(error.number, RuntimeError::PathNotFound);
        EXPECT_EQ(error.file, Path);
        EXPECT_NE(modUtilities::MessageText(error).find(Folder), std::string::npos);
        EXPECT_TRUE(editor.IsDirty());
        EXPECT_FALSE(fs::exists(folder)) << "nobody has asked for a folder to be made";
        files.before = {};
        fs::rename(away, folder);
        EXPECT_TRUE(FileBytes(Path) == m_old);
        ExpectSaved(editor);
    }
}

TEST_F(MenuSaveOnHostTest, AFolderThatIsDeleted) {
    MenuEditor editor;
    OpenAndEdit(editor, 50);
    const fs::path folder = Host(Folder);
    fs::remove_all(folder);
    const NeskError error = ErrorOf([&] { editor.Save(Path); });
    EXPECT_EQ(error.messageId, Message::PathNotFound);
    EXPECT_EQ(modUtilities::MessageText(error),
              modStringRes::FormatResString(Message::PathNotFound, Folder + "\\"));
    EXPECT_TRUE(editor.IsDirty());
    fs::create_directory(folder);
    editor.Save(Path);
    EXPECT_FALSE(editor.IsDirty());
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

// An open file does not prevent its replacement; a program that has it open keeps the old version.
TEST_F(MenuSaveOnHostTest, AFileThatAnotherProgramReads) {
    std::ifstream other(Host(Path), std::ios::binary);
    std::string first(1000, '\0');
    ASSERT_TRUE(other.read(first.data(), 1000));
    MenuEditor editor;
    OpenAndEdit(editor, 50);
    ExpectSaved(editor);
    std::ostringstream rest;
    rest << other.rdbuf();
    EXPECT_TRUE(first + rest.str() == m_old);
}

// Two programs save the same menu repeatedly at the same time: no save fails and each leaves a complete menu.
TEST_F(MenuSaveOnHostTest, TwoEditorsSaveAtOnce) {
    int gate[2];
    ASSERT_EQ(0, ::pipe(gate));
    constexpr int Saves = 40;
    std::vector<pid_t> children;
    for (const int entries : {5, 1500}) {
        std::fflush(nullptr);
        const pid_t child = ::fork();
        if (child == 0) {
            ::close(gate[1]);
            char byte = 0;
            EXPECT_EQ(0, ::read(gate[0], &byte, 1));
            MenuEditor editor;
            OpenAndEdit(editor, entries);
            for (int i = 0; i < Saves && !HasFailure(); ++i) {
                try {
                    editor.Save(Path);
                } catch (const NeskError& error) {
                    ADD_FAILURE() << modUtilities::ErrorText(error);
                }
                MenuEditor reader;
                EXPECT_FALSE(reader.Open(Folder, Path)) << "not a whole menu";
            }
            std::fflush(nullptr);
            ::_exit(HasFailure() ? 1 : 0);
        }
        children.push_back(child);
    }
    ::close(gate[0]);
    ::close(gate[1]);
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(child, ::waitpid(child, &status, 0));
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "see above";
    }
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak");
}

} // namespace
} // namespace nesk
