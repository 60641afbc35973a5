#include "base/Messages.h"
#include "base/NeskError.h"
#include "editing/MenuEditor.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "platform/portable/Station.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/Startup.h"
#include "shell/modHelp.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"
#include "unit/platform/portable/ChildProcess.h"
#include "unit/platform/portable/FakeBusyClock.h"

#include <chrono>
#include <csignal>
#include <poll.h>
#include <set>
#include <sqlite3.h>
#include <sys/resource.h>
#include <utility>

namespace nesk {
namespace {

using namespace nesk::testing;
using modStringRes::FormatResString;
using platform::ErrorCode;
namespace fs = std::filesystem;

// What the user is told, and what is preserved, if the settings store cannot be used.
class StoreFaultsTest : public CoreTest {
protected:
    StoreFaultsTest() {
        NeskRegistry record;
        record.NeskRoot = "C:\\Old";
        record.ExitKey = "1234";
        record.SampleSize = 7;
        record.Save();
        Close();
    }

    ~StoreFaultsTest() override {
        station.Leave();
        NeskRegistry::Instance() = {};
        modHelp::SetHelpFile(1033, "OV");
    }

    fs::path Store() const { return station.Folder() / "registry.db"; }

    // Closes the store, so that all its data is in the file.
    void Close() const { platform::portable::UseStation(station.Folder()); }

    static std::string StoredRoot() {
        RegEntry entry;
        entry.OpenKey("Neskworks");
        return entry.GetString("NeskRoot");
    }

    // Makes a save that fails and expects one message with the setting, the cause and the place.
    void ExpectNotSaved(const std::string& reason, const std::string& text = "C:\\New",
                        const std::string& ending = "Not all settings have been saved.") {
        NeskRegistry record;
        record.NeskRoot = text;
        record.ExitKey = "5678";
        const std::size_t before = messages.size();
        Expect();
        record.Save();
        ASSERT_EQ(messages.size(), before + 1);
        EXPECT_NE(messages.back().text.find(reason), std::string::npos) << messages.back().text;
        EXPECT_NE(messages.back().text.find(platform::StationRegistry().Location()), std::string::npos);
        EXPECT_TRUE(messages.back().text.ends_with(ending)) << messages.back().text;
        EXPECT_EQ(messages.back().options, modMessageBox::Option::Critical);
    }

    // Starts the program and expects one message.
    void ExpectStart(int message, ErrorCode code) {
        int shown = 0;
        Expect();
        Startup::Main([&] { ++shown; });
        EXPECT_EQ(shown, 1) << "the program goes on";
        ASSERT_FALSE(messages.empty());
        EXPECT_EQ(messages.back().text,
                  FormatResString(message, platform::StationRegistry().Location(), Number(code)));
    }

    static std::string Reason(int message) {
        return FormatResString(message, platform::StationRegistry().Location());
    }
};

// Another program that locks the store.
class Owner {
public:
    Owner(const fs::path& store, const char* sql) {
        EXPECT_EQ(SQLITE_OK, sqlite3_open(store.c_str(), &m_database));
        EXPECT_EQ(SQLITE_OK, sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr))
            << sqlite3_errmsg(m_database);
    }
    ~Owner() { sqlite3_close(m_database); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

private:
    sqlite3* m_database = nullptr;
};

TEST_F(StoreFaultsTest, AMessageKeepsNoOtherProgramWaiting) {
    NeskRegistry record;
    record.NeskRoot = "C:\\New";
    record.DefaultSlideDirectory = "日"; // cannot be encoded in the code page
    int shown = 0;
    const modMessageBox::Hook before =
        modMessageBox::SetHook([&](const std::string&, std::int16_t, const std::string&) {
            ++shown;
            const Owner other(Store(), "BEGIN IMMEDIATE; ROLLBACK");
            return modMessageBox::Result::Ok;
        });
    record.Save();
    modMessageBox::SetHook(before);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(StoredRoot(), "C:\\New") << "what was written by then stays";
}

TEST_F(StoreFaultsTest, AStoreInWhichAnotherProgramWrites) {
    const FakeBusyClock clock;
    {
        const Owner owner(Store(), "BEGIN IMMEDIATE");
        ExpectNotSaved(Reason(Message::FileInUse));
        EXPECT_EQ(StoredRoot(), "C:\\Old") << "reading goes on";
    }
    NeskRegistry record;
    record.NeskRoot = "C:\\Later";
    record.Save();
    EXPECT_EQ(StoredRoot(), "C:\\Later");
}

TEST_F(StoreFaultsTest, AStoreThatAnotherProgramHasToItself) {
    FakeBusyClock clock;
    const char* lock =
        "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; UPDATE vals SET type = type; COMMIT";
    {
        const Owner owner(Store(), lock);
        ExpectStart(Message::StoreInUse, ErrorCode::Busy);
        EXPECT_EQ(clock.Slept(), platform::portable::BusyTimeout)
            << "the start waits for the other program once";
        EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "");
        ExpectNotSaved(Reason(Message::FileInUse));
    }
    // The store is tried again although nothing closed it.
    clock.Advance(std::chrono::milliseconds(2100));
    EXPECT_EQ(StoredRoot(), "C:\\Old");
    // A value that could not be read at the start is not treated as empty now.
    NeskRegistry& settings = NeskRegistry::Instance();
    settings.ExitKey = "5678";
    settings.Save();
    NeskRegistry stored;
    stored.Load();
    for (const NeskRegistry* record : std::initializer_list<const NeskRegistry*>{&settings, &stored}) {
        EXPECT_EQ(record->NeskRoot, "C:\\Old");
        EXPECT_EQ(record->SampleSize, 7);
        EXPECT_EQ(record->ExitKey, "5678");
    }
    // From now on an empty field means that the user cleared it.
    settings.NeskRoot = "";
    settings.Save();
    stored.Load();
    EXPECT_EQ(stored.NeskRoot, "");
}

TEST_F(StoreFaultsTest, AHistoryThatCannotBeRegisteredIsToldWithItsReason) {
    station.Write("C:\\Neskroot\\menu.cfg",
                  "BLOCK MENU\r\nBLOCK SUBMENU\r\nHISTORY_DIR=C:\\H\r\nEND\r\nEND\r\n");
    const Owner owner(Store(), "BEGIN IMMEDIATE");
    const FakeBusyClock clock;
    MenuEditor editor;
    const auto error = editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->messageId, Message::HistoryNotRegistered);
    EXPECT_NE(modUtilities::ErrorText(*error).find(Reason(Message::FileInUse)), std::string::npos)
        << modUtilities::ErrorText(*error);
}

TEST_F(StoreFaultsTest, ADamagedStore) {
    const std::string sound = FileBytes(platform::StationRegistry().Location());
    ASSERT_GT(sound.size(), 4096U);
    const struct {
        std::string bytes;
        ErrorCode code;
    } table[] = {
        {std::string(5000, 'x'), ErrorCode::BadDatabase},
        {sound.substr(0, 100) + std::string(sound.size() - 100, '\xA5'), ErrorCode::RegistryCorrupt},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(Number(row.code));
        for (const char* end : {"-wal", "-shm"})
            fs::remove(Store().string() + end);
        std::ofstream(Store(), std::ios::binary) << row.bytes;
        Close();
        ExpectStart(Message::StoreDamaged, row.code);
        ExpectNotSaved(
            FormatResString(Message::FileDamaged, platform::StationRegistry().Location(), Number(row.code)));
        Close();
        EXPECT_TRUE(FileBytes(platform::StationRegistry().Location()) == row.bytes) << "it was changed";
    }
}

// The store can be read except for the page with one of the values.
TEST_F(StoreFaultsTest, AValueThatCannotBeRead) {
    constexpr std::size_t pageSize = 4096;
    const std::string path = platform::StationRegistry().Location();
    {
        RegEntry entry;
        entry.OpenKey("Neskworks");
        platform::RegKey key = 0;
        ASSERT_EQ(ErrorCode::Success, platform::StationRegistry().OpenKey(
                                          platform::LocalMachine, "SOFTWARE\\Quarndale\\Neskworks",
                                          platform::RegAccess::ReadWrite, key));
        // Values are stored one after another, so these two fillers put the tested values on different pages.
        for (const char* name : {"Filler1", "Filler2"})
            ASSERT_EQ(ErrorCode::Success, platform::StationRegistry().SetValue(
                                              key, name, platform::RegType::Text, std::string(3000, 'f')));
        ASSERT_EQ(ErrorCode::Success, platform::StationRegistry().CloseKey(key));
        entry.SetString("PrinterZoom", "the zoom of before");
    }
    Close();
    const std::string sound = FileBytes(path);
    const std::size_t page = sound.find("the zoom of before") / pageSize;
    ASSERT_LT(page, sound.size() / pageSize);
    ASSERT_NE(sound.find("C:\\Old") / pageSize, page);
    std::string spoiled = sound;
    spoiled.replace(page * pageSize, pageSize, pageSize, '\xA5');
    const auto write = [&](const std::string& bytes) {
        Close();
        std::ofstream(Store(), std::ios::binary) << bytes;
        for (const char* end : {"-wal", "-shm"})
            fs::remove(Store().string() + end);
        Close();
    };

    write(spoiled);
    NeskRegistry record;
    record.Load();
    EXPECT_EQ(record.NeskRoot, "C:\\Old");
    EXPECT_EQ(record.SampleSize, 7);
    EXPECT_EQ(record.PrinterZoom, "");
    record.NeskRoot = "C:\\New";
    Expect();
    record.Save();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_NE(messages[0].text.find("PrinterZoom"), std::string::npos) << messages[0].text;
    EXPECT_NE(messages[0].text.find(
                  FormatResString(Message::FileDamaged, path, Number(ErrorCode::RegistryCorrupt))),
              std::string::npos)
        << messages[0].text;
    Close();
    EXPECT_TRUE(FileBytes(path) == spoiled) << "it was changed";

    // When the store is readable again, the value is too.
    write(sound);
    record.Save();
    NeskRegistry stored;
    stored.Load();
    EXPECT_EQ(stored.NeskRoot, "C:\\New");
    EXPECT_EQ(stored.PrinterZoom, "the zoom of before");
}

TEST_F(StoreFaultsTest, AStoreThatMayOnlyBeRead) {
    for (const char* end : {"-wal", "-shm"})
        fs::remove(Store().string() + end);
    const std::string bytes = FileBytes(platform::StationRegistry().Location());
    fs::permissions(Store(), static_cast<fs::perms>(0444));
    fs::permissions(station.Folder(), static_cast<fs::perms>(0555));
    // An open store must not be carried into a child process.
    platform::portable::UseStation("/nonexistent/station");
    EXPECT_EQ(InChildProcess([&] {
                  BecomePlainUser();
                  Close();
                  ExpectStart(Message::StoreDenied, ErrorCode::AccessDenied);
                  ExpectNotSaved(Reason(Message::PermissionDenied));
                  return true;
              }),
              ChildEnd::Good)
        << "see above";
    fs::permissions(station.Folder(), static_cast<fs::perms>(0755));
    Close();
    EXPECT_TRUE(FileBytes(platform::StationRegistry().Location()) == bytes) << "it was changed";
}

TEST_F(StoreFaultsTest, ADiskWithoutSpace) {
    platform::portable::UseStation("/nonexistent/station");
    EXPECT_EQ(InChildProcess([&] {
                  Close();
                  EXPECT_EQ(StoredRoot(), "C:\\Old");
                  ::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{16, RLIM_INFINITY};
                  EXPECT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &limit));
                  ExpectNotSaved(FormatResString(Message::DeviceError, platform::StationRegistry().Location(),
                                                 Number(ErrorCode::RegistryIoFailed)),
                                 "C:\\New", "The settings have not been saved.");
                  EXPECT_EQ(StoredRoot(), "C:\\Old");
                  const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
                  EXPECT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &none));
                  NeskRegistry record;
                  record.NeskRoot = "C:\\Later";
                  record.Save();
                  EXPECT_EQ(StoredRoot(), "C:\\Later") << "a later save works";
                  return true;
              }),
              ChildEnd::Good)
        << "see above";
    Close();
    EXPECT_EQ(StoredRoot(), "C:\\Later");
}

// The settings that TwoProgramsSaveAtOnce writes.
struct SavedTexts {
    std::string root;
    std::string machine;
    std::string zoom;
};

// Reads what other programs write, and sees the store at one moment, like a program that loads the settings.
class Watcher {
public:
    explicit Watcher(const fs::path& store) {
        EXPECT_EQ(SQLITE_OK, sqlite3_open(store.c_str(), &m_database));
        sqlite3_busy_timeout(m_database, 5000);
        // A single statement, so that no save can happen between the values.
        const char* sql = "SELECT MAX(CASE name WHEN 'NeskRoot' THEN data END),"
                          " MAX(CASE name WHEN 'NeskMachine' THEN data END),"
                          " MAX(CASE name WHEN 'PrinterZoom' THEN data END) FROM vals";
        EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(m_database, sql, -1, &m_statement, nullptr))
            << sqlite3_errmsg(m_database);
    }
    ~Watcher() {
        sqlite3_finalize(m_statement);
        sqlite3_close(m_database);
    }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    SavedTexts Look() const {
        EXPECT_EQ(SQLITE_ROW, sqlite3_step(m_statement)) << sqlite3_errmsg(m_database);
        SavedTexts texts{Column(0), Column(1), Column(2)};
        sqlite3_reset(m_statement);
        return texts;
    }

private:
    // A text is stored with a zero at its end.
    std::string Column(int index) const {
        const void* data = sqlite3_column_blob(m_statement, index);
        return data == nullptr ? "" : static_cast<const char*>(data);
    }

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_statement = nullptr;
};

// A text that no other save writes.
std::string TextOfSave(char program, int save) {
    const std::string name = program + std::to_string(save) + " ";
    std::string text;
    while (text.size() < 200)
        text += name;
    return text;
}

// Two programs save settings repeatedly at the same time. Every save succeeds, and a reader always finds the
// values of a single save.
TEST_F(StoreFaultsTest, TwoProgramsSaveAtOnce) {
    constexpr int fewestSaves = 100;
    constexpr int mostSaves = 20000; // ends the test if the watcher never gets its turn
    constexpr std::size_t enoughSeen = 4;
    int stop[2]; // the programs save until this pipe is closed
    ASSERT_EQ(0, ::pipe(stop));
    NeskRegistry first;
    first.NeskRoot = first.NeskMachine = first.PrinterZoom = TextOfSave('-', 0);
    first.Save();
    platform::portable::UseStation("/nonexistent/station");
    std::vector<pid_t> children;
    for (const char letter : {'a', 'b'}) {
        std::fflush(nullptr);
        const pid_t child = ::fork();
        if (child == 0) {
            ::close(stop[1]);
            Close();
            // A message that was not announced fails the test.
            const auto save = [&](int number) {
                NeskRegistry record;
                record.NeskRoot = record.NeskMachine = record.PrinterZoom = TextOfSave(letter, number);
                record.Save();
            };
            pollfd stopped{stop[0], POLLIN, 0};
            for (int i = 1; i <= mostSaves && (i <= fewestSaves || ::poll(&stopped, 1, 0) == 0); ++i)
                save(i);
            save(0);
            std::fflush(nullptr);
            ::_exit(HasFailure() ? 1 : 0);
        }
        children.push_back(child);
    }
    ::close(stop[0]);
    const Watcher watcher(Store());
    std::set<std::string> seen;
    std::string last;
    const auto look = [&] {
        const SavedTexts texts = watcher.Look();
        EXPECT_EQ(texts.machine, texts.root) << "values of two saves";
        EXPECT_EQ(texts.zoom, texts.root) << "values of two saves";
        last = texts.root;
        seen.insert(last);
        if (seen.size() >= enoughSeen && stop[1] >= 0) ::close(std::exchange(stop[1], -1));
    };
    for (const pid_t child : children) {
        int status = 0;
        pid_t ended = 0;
        while ((ended = ::waitpid(child, &status, WNOHANG)) == 0)
            if (!HasFailure())
                look();
            else if (stop[1] >= 0)
                ::close(std::exchange(stop[1], -1));
        ASSERT_EQ(child, ended);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "see above";
    }
    look();
    EXPECT_GE(seen.size(), enoughSeen) << "nobody looked while they saved";
    EXPECT_TRUE(last == TextOfSave('a', 0) || last == TextOfSave('b', 0)) << last;
    Close();
    RegEntry entry;
    entry.OpenKey("Neskworks");
    for (const char* name : {"NeskRoot", "NeskMachine", "PrinterZoom"})
        EXPECT_EQ(entry.GetString(name), last) << name;
}

} // namespace
} // namespace nesk
