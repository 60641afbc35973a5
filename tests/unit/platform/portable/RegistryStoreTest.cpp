#include "platform/portable/Database.h"
#include "platform/portable/Station.h"
#include "unit/platform/RegistryFixture.h"
#include "unit/platform/portable/ChildProcess.h"

#include <array>
#include <csignal>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <set>
#include <sqlite3.h>
#include <sys/resource.h>
#include <tuple>

namespace nesk::platform {
namespace {

namespace fs = std::filesystem;

class RegistryStoreTest : public testing::RegistryFixture {
protected:
    fs::path Store() const { return station.Folder() / "registry.db"; }

    // Closes the store, so that all its data is in the file.
    void Close() const { portable::UseStation(station.Folder()); }

    void WriteStore(const std::string& bytes) const { std::ofstream(Store(), std::ios::binary) << bytes; }

    std::string StoreBytes() const {
        std::ifstream file(Store(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Runs SQL on the file and bypasses the registry.
    void Execute(const char* sql) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(SQLITE_OK, sqlite3_open(Store().c_str(), &database));
        EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, sql, nullptr, nullptr, nullptr))
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    // Runs `action` in a child process; the store is unused again afterwards. Its failures count as failures
    // of the test.
    void InOtherProcess(const std::function<void()>& action) const {
        // An open database must not be carried into a child process.
        portable::UseStation("/nonexistent/station");
        const nesk::testing::ChildEnd end = nesk::testing::InChildProcess([&] {
            portable::UseStation(station.Folder());
            action();
            return true;
        });
        EXPECT_EQ(nesk::testing::ChildEnd::Good, end) << "see above";
        portable::UseStation(station.Folder());
    }

    // Like InOtherProcess, as a user whom access rights restrict.
    void AsPlainUser(const std::function<void()>& action) const {
        InOtherProcess([&] {
            nesk::testing::BecomePlainUser();
            action();
        });
    }

    static void Protect(const fs::path& path, unsigned mode) {
        fs::permissions(path, static_cast<fs::perms>(mode), fs::perm_options::replace);
    }
};

// --- making the store ----------------------------------------------------------------------------

TEST_F(RegistryStoreTest, IsNotMadeByReading) {
    const fs::path folder = station.Folder() / "new" / "station";
    portable::UseStation(folder);
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A"));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A", RegAccess::Read));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult(""));
    EXPECT_EQ(std::nullopt, Get(LocalMachine, "x"));
    EXPECT_EQ(ErrorCode::FileNotFound, Reg().DeleteKey(LocalMachine, "A"));
    EXPECT_TRUE(Subkeys(LocalMachine).empty());
    EXPECT_FALSE(fs::exists(station.Folder() / "new"));
}

TEST_F(RegistryStoreTest, RefusesAHandleThatIsNotOpenOnANewStationToo) {
    RegKey key = 1;
    EXPECT_EQ(ErrorCode::InvalidHandle, Reg().OpenKey(4711, "x", RegAccess::Read, key));
    EXPECT_EQ(ErrorCode::InvalidHandle, Reg().CreateKey(4711, "x", RegAccess::ReadWrite, key));
    EXPECT_FALSE(std::filesystem::exists(station.Folder() / "registry.db"));
}

TEST_F(RegistryStoreTest, IsMadeByCreatingAKey) {
    const fs::path folder = station.Folder() / "new" / "station";
    portable::UseStation(folder);
    Create("A");
    EXPECT_TRUE(fs::is_regular_file(folder / "registry.db"));
    EXPECT_EQ(ErrorCode::Success, OpenResult("A"));
}

TEST_F(RegistryStoreTest, IsMadeByWritingAValue) {
    portable::UseStation(station.Folder() / "new");
    ASSERT_EQ(ErrorCode::Success, Set(LocalMachine, "x", "1"));
    EXPECT_EQ("1", Get(LocalMachine, "x"));
}

TEST_F(RegistryStoreTest, KeepsItsContents) {
    ASSERT_EQ(ErrorCode::Success, Set(Create("A\\B"), "x", "Gr\xF6\xDF\x65"));
    Close();
    EXPECT_EQ("Gr\xF6\xDF\x65", Get(Create("A\\B", LocalMachine, RegAccess::Read), "x"));
}

TEST_F(RegistryStoreTest, BelongsToItsStation) {
    const RegKey key = Create("A");
    portable::UseStation(station.Folder() / "other");
    std::uint32_t size = 0;
    EXPECT_EQ(ErrorCode::InvalidHandle, Reg().QueryValue(key, "x", nullptr, nullptr, &size));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A"));
    Create("B");
    portable::UseStation(station.Folder());
    EXPECT_EQ(ErrorCode::Success, OpenResult("A"));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("B"));
}

TEST_F(RegistryStoreTest, GivesNoHandleTwice) {
    const RegKey before = Create("A");
    portable::UseStation(station.Folder());
    EXPECT_NE(before, Create("A"));
    EXPECT_EQ(ErrorCode::InvalidHandle, Set(before, "x", "1"));
}

TEST_F(RegistryStoreTest, TellsWhereItLies) {
    EXPECT_EQ(portable::ToWindowsPath(Store()), Reg().Location());
}

// --- damage --------------------------------------------------------------------------------------

TEST_F(RegistryStoreTest, RefusesAFileThatIsNoDatabase) {
    for (const std::size_t size : {std::size_t{16}, std::size_t{99}, std::size_t{600}, std::size_t{100000}}) {
        const std::string bytes(size, 'x');
        WriteStore(bytes);
        Close();
        EXPECT_EQ(ErrorCode::BadDatabase, OpenResult("A", RegAccess::Read)) << size;
        EXPECT_EQ(ErrorCode::BadDatabase, OpenResult("A")) << size;
        RegKey key = 1;
        EXPECT_EQ(ErrorCode::BadDatabase, Reg().CreateKey(LocalMachine, "A", RegAccess::ReadWrite, key))
            << size;
        EXPECT_EQ(0U, key);
        EXPECT_EQ(ErrorCode::BadDatabase, Set(LocalMachine, "x", "1")) << size;
        Close();
        EXPECT_TRUE(bytes == StoreBytes()) << "somebody else's file must stay as it is";
    }
}

TEST_F(RegistryStoreTest, RefusesADatabaseOfAnotherProgram) {
    Execute("CREATE TABLE songs(title TEXT)");
    const std::string bytes = StoreBytes();
    EXPECT_EQ(ErrorCode::BadDatabase, OpenResult("A"));
    RegKey key = 0;
    EXPECT_EQ(ErrorCode::BadDatabase, Reg().CreateKey(LocalMachine, "A", RegAccess::ReadWrite, key));
    Close();
    EXPECT_TRUE(bytes == StoreBytes()) << "it was changed";
}

TEST_F(RegistryStoreTest, RefusesAStoreOfALaterVersion) {
    Execute("CREATE TABLE entries(path TEXT); PRAGMA user_version = 2");
    const std::string bytes = StoreBytes();
    EXPECT_EQ(ErrorCode::BadDatabase, OpenResult("A"));
    RegKey key = 0;
    EXPECT_EQ(ErrorCode::BadDatabase, Reg().CreateKey(LocalMachine, "A", RegAccess::ReadWrite, key));
    Close();
    EXPECT_TRUE(bytes == StoreBytes()) << "it was changed";
}

TEST_F(RegistryStoreTest, RefusesAStoreWithoutItsTables) {
    Create("A");
    Close();
    Execute("DROP TABLE vals; DROP TABLE keys");
    EXPECT_EQ(ErrorCode::BadDatabase, OpenResult("A"));
    EXPECT_EQ(ErrorCode::BadDatabase, Set(LocalMachine, "x", "1"));
}

TEST_F(RegistryStoreTest, TakesAnEmptyFileForANewStore) {
    // The remains of a program that ended while it created the store.
    WriteStore("");
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A"));
    Create("A");
    EXPECT_EQ(ErrorCode::Success, OpenResult("A"));
}

TEST_F(RegistryStoreTest, TellsThatTheStoreIsDamaged) {
    const RegKey key = Create("A");
    for (int i = 0; i < 20; ++i)
        ASSERT_EQ(ErrorCode::Success, Set(key, "value" + std::to_string(i), std::string(2000, 'x')));
    Close();
    const std::string sound = StoreBytes();
    ASSERT_GT(sound.size(), 30000U);
    for (const bool cut : {false, true}) {
        std::string damaged = sound;
        if (cut)
            damaged.resize(damaged.size() / 2);
        else
            damaged.replace(4096, std::string::npos, sound.size() - 4096, '\xFF');
        WriteStore(damaged);
        Close();
        RegKey opened = 0;
        ErrorCode result = Reg().OpenKey(LocalMachine, "A", RegAccess::Read, opened);
        for (int i = 0; i < 20 && result == ErrorCode::Success; ++i) {
            std::uint32_t size = 0;
            result = Reg().QueryValue(opened, "value" + std::to_string(i), nullptr, nullptr, &size);
        }
        EXPECT_TRUE(result == ErrorCode::BadDatabase || result == ErrorCode::RegistryCorrupt)
            << Number(result);
    }
}

// Performs every operation on the store, whatever its state, and records the results.
class StoreUser {
public:
    std::set<ErrorCode> results;

    void UseKey(RegKey key) {
        std::array<char, 512> name{};
        for (std::uint32_t i = 0; i < MostEntries; ++i)
            if (Note(Reg().EnumKey(key, i, name.data(), name.size())) == ErrorCode::NoMoreItems) break;
        std::vector<char> data(1U << 16);
        for (std::uint32_t i = 0; i < MostEntries; ++i) {
            std::uint32_t nameSize = name.size();
            auto size = static_cast<std::uint32_t>(data.size());
            std::uint32_t type = 0;
            const ErrorCode result =
                Reg().EnumValue(key, i, name.data(), &nameSize, &type, data.data(), &size);
            if (Note(result) == ErrorCode::NoMoreItems) break;
            if (result != ErrorCode::Success) continue;
            size = static_cast<std::uint32_t>(data.size());
            results.insert(Reg().QueryValue(key, {name.data(), nameSize}, &type, data.data(), &size));
        }
        RegistryGroup group(Reg());
        results.insert(Reg().SetValue(key, "value1", RegType::Text, "other"));
        results.insert(Reg().SetValue(key, "new", RegType::Text, "new"));
        results.insert(Reg().DeleteValue(key, "value2"));
        results.insert(Reg().DeleteKey(key, "Below"));
        results.insert(group.End());
    }

    void Use() {
        for (const char* path : {"A", "A\\Below", "New"}) {
            RegKey key = 0;
            if (Note(Reg().OpenKey(LocalMachine, path, RegAccess::ReadWrite, key)) == ErrorCode::Success)
                UseKey(key);
            std::ignore = Reg().CloseKey(key); // it is open only if the store is usable
            if (Note(Reg().CreateKey(LocalMachine, path, RegAccess::ReadWrite, key)) == ErrorCode::Success)
                UseKey(key);
            std::ignore = Reg().CloseKey(key); // it is open only if the store is usable
        }
    }

private:
    // More entries than the undamaged store has.
    static constexpr std::uint32_t MostEntries = 60;

    static Registry& Reg() { return StationRegistry(); }

    ErrorCode Note(ErrorCode result) {
        results.insert(result);
        return result;
    }
};

// A copy of the bytes with some bytes changed, with one page overwritten, or truncated.
std::string Spoiled(std::string bytes, std::mt19937& random) {
    constexpr std::size_t PageSize = 4096;
    const auto below = [&random](std::size_t end) { return random() % end; };
    switch (below(4)) {
    case 0: bytes[below(bytes.size())] ^= static_cast<char>(1 + below(255)); break;
    case 1:
        for (int i = 0; i < 20; ++i)
            bytes[below(bytes.size())] = static_cast<char>(random());
        break;
    case 2: {
        const std::size_t page = below(bytes.size() / PageSize);
        for (std::size_t i = 0; i < PageSize; ++i)
            bytes[page * PageSize + i] = static_cast<char>(random());
        break;
    }
    default: bytes.resize(below(bytes.size())); break;
    }
    return bytes;
}

TEST_F(RegistryStoreTest, GoesOnWithAStoreThatIsSpoiledAnywhere) {
    const RegKey key = Create("A");
    for (int i = 0; i < 40; ++i)
        ASSERT_EQ(ErrorCode::Success, Set(key, "value" + std::to_string(i), std::string(500, 'x')));
    for (int i = 0; i < 40; ++i)
        Create("A\\Below\\key" + std::to_string(i));
    Close();
    const std::string sound = StoreBytes();
    ASSERT_GT(sound.size(), 30000U);

    const std::set<ErrorCode> laidDown = {
        ErrorCode::Success,     ErrorCode::FileNotFound,     ErrorCode::AccessDenied,
        ErrorCode::DiskFull,    ErrorCode::WriteFault,       ErrorCode::OutOfMemory,
        ErrorCode::Busy,        ErrorCode::MoreData,         ErrorCode::NoMoreItems,
        ErrorCode::BadDatabase, ErrorCode::RegistryCorrupt,  ErrorCode::KeyDeleted,
        ErrorCode::InvalidName, ErrorCode::InvalidParameter, ErrorCode::RegistryIoFailed};
    std::mt19937 random(20'260);
    int harmed = 0;
    int unharmed = 0;
    for (int round = 0; round < 400; ++round) {
        WriteStore(Spoiled(sound, random));
        StoreUser user;
        user.Use();
        Close();
        for (const ErrorCode result : user.results)
            EXPECT_TRUE(laidDown.contains(result)) << "round " << round << ": " << Number(result);
        const bool told = user.results.contains(ErrorCode::BadDatabase) ||
                          user.results.contains(ErrorCode::RegistryCorrupt);
        ++(told ? harmed : unharmed);
    }
    EXPECT_GT(harmed, 50);
    EXPECT_GT(unharmed, 50) << "bytes of a value may be any";

    WriteStore(sound);
    EXPECT_EQ(std::string(500, 'x'), Get(Create("A"), "value39")) << "the registry itself is as before";
}

TEST_F(RegistryStoreTest, ReadsAtOneMoment) {
    for (const bool isOpen : {true, false}) {
        ASSERT_EQ(ErrorCode::Success, Set(Create("A"), "x", "before"));
        ASSERT_EQ(ErrorCode::Success, Set(Create("A"), "y", "before"));
        if (!isOpen) Close();
        {
            const RegistryReading reading(Reg());
            const RegKey key = Create("A", LocalMachine, RegAccess::Read);
            EXPECT_EQ("before", Get(key, "x"));
            Execute("UPDATE vals SET data = CAST('after' AS BLOB)");
            EXPECT_EQ("before", Get(key, "y")) << "of the same moment as x";
        }
        EXPECT_EQ("after", Get(Create("A"), "x"));
        EXPECT_EQ("after", Get(Create("A"), "y"));
        EXPECT_EQ(ErrorCode::Success, Set(Create("A"), "x", "again")) << "the reading is over";
    }
}

TEST_F(RegistryStoreTest, ReadsWithinAGroupWhatTheGroupHasWritten) {
    const RegKey key = Create("A");
    RegistryGroup group(Reg());
    EXPECT_EQ(ErrorCode::Success, Set(key, "x", "new"));
    {
        const RegistryReading reading(Reg());
        EXPECT_EQ("new", Get(key, "x"));
    }
    EXPECT_EQ(ErrorCode::Success, Set(key, "y", "new")) << "the group goes on";
    EXPECT_EQ(ErrorCode::Success, group.End());
    Close();
    EXPECT_EQ("new", Get(Create("A"), "x"));
    EXPECT_EQ("new", Get(Create("A"), "y"));
}

TEST_F(RegistryStoreTest, TellsThatAFolderIsInItsPlace) {
    fs::create_directories(Store());
    EXPECT_EQ(ErrorCode::AccessDenied, OpenResult("A"));
    EXPECT_EQ(ErrorCode::AccessDenied, Set(LocalMachine, "x", "1"));
}

TEST_F(RegistryStoreTest, TranslatesTheCodesOfTheDatabase) {
    const std::vector<std::pair<int, ErrorCode>> codes = {
        {SQLITE_OK, ErrorCode::Success},
        {SQLITE_DONE, ErrorCode::Success},
        {SQLITE_BUSY, ErrorCode::Busy},
        {SQLITE_BUSY_SNAPSHOT, ErrorCode::Busy},
        {SQLITE_LOCKED, ErrorCode::Busy},
        {SQLITE_PROTOCOL, ErrorCode::Busy},
        {SQLITE_READONLY, ErrorCode::AccessDenied},
        {SQLITE_READONLY_DBMOVED, ErrorCode::AccessDenied},
        {SQLITE_PERM, ErrorCode::AccessDenied},
        {SQLITE_CANTOPEN, ErrorCode::AccessDenied},
        {SQLITE_NOTADB, ErrorCode::BadDatabase},
        {SQLITE_CORRUPT, ErrorCode::RegistryCorrupt},
        {SQLITE_FULL, ErrorCode::DiskFull},
        {SQLITE_NOMEM, ErrorCode::OutOfMemory},
        {SQLITE_IOERR, ErrorCode::RegistryIoFailed},
        {SQLITE_IOERR_WRITE, ErrorCode::RegistryIoFailed},
        {SQLITE_CONSTRAINT_FOREIGNKEY, ErrorCode::KeyDeleted},
    };
    for (const auto& [code, expected] : codes)
        EXPECT_EQ(expected, portable::ErrorFromSqlite(code)) << code;
}

TEST_F(RegistryStoreTest, TellsThatItCannotBeWritten) {
    ASSERT_EQ(ErrorCode::Success, Set(Create("A"), "x", "before"));
    InOtherProcess([] {
        // Simulates a failing disk: no file may grow beyond this size.
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{65536, 65536};
        ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &limit));
        EXPECT_EQ(ErrorCode::RegistryIoFailed, Set(Create("A"), "x", std::string(200000, 'y')));
        EXPECT_EQ("before", Get(Create("A", LocalMachine, RegAccess::Read), "x"));
    });
    EXPECT_EQ("before", Get(Create("A"), "x"));
    EXPECT_EQ(ErrorCode::Success, Set(Create("A"), "x", std::string(200000, 'y')));
}

// The group writes so much before its end that the disk needs room in the middle of it.
TEST_F(RegistryStoreTest, NothingOfAGroupIsStoredThatFailedInItsMiddle) {
    ASSERT_EQ(ErrorCode::Success, Set(Create("A"), "x", "before"));
    InOtherProcess([] {
        ::signal(SIGXFSZ, SIG_IGN);
        const RegKey key = Create("A");
        RegistryGroup group(Reg());
        EXPECT_EQ(ErrorCode::Success, Set(key, "x", "new"));
        constexpr rlim_t megabyte = 1 << 20;
        const rlimit limit{megabyte, RLIM_INFINITY};
        ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &limit));
        ErrorCode result = ErrorCode::Success;
        int written = 0;
        for (; written < 100 && result == ErrorCode::Success; ++written)
            result = Set(key, "large" + std::to_string(written), std::string(100'000, 'y'));
        EXPECT_EQ(ErrorCode::RegistryIoFailed, result);
        EXPECT_LT(written, 100) << "all of it was kept in memory";
        const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
        ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &none));
        // There is room again, but without the lost changes these would have another meaning.
        EXPECT_EQ(ErrorCode::WriteFault, Set(key, "last", "new"));
        EXPECT_EQ(ErrorCode::WriteFault, Reg().DeleteValue(key, "x"));
        EXPECT_EQ(ErrorCode::WriteFault, Reg().DeleteKey(LocalMachine, "A"));
        EXPECT_EQ(ErrorCode::WriteFault, group.End());
        EXPECT_EQ("before", Get(key, "x"));
        EXPECT_EQ(ErrorCode::Success, Set(key, "y", "later")) << "the group is over";
    });
    const RegKey key = Create("A");
    EXPECT_EQ("before", Get(key, "x"));
    EXPECT_EQ("later", Get(key, "y"));
    EXPECT_EQ((std::vector<std::string>{"x", "y"}), Values(key));
}

// --- access rights -------------------------------------------------------------------------------

class ProtectedStoreTest : public RegistryStoreTest {
protected:
    ProtectedStoreTest() {
        EXPECT_EQ(ErrorCode::Success, Set(Create("A\\B"), "x", "1"));
        Close();
        Protect(station.Folder(), 0755);
    }
    ~ProtectedStoreTest() override { Protect(station.Folder(), 0755); }

    static void ReadsButDoesNotWrite() {
        EXPECT_EQ(ErrorCode::Success, OpenResult("A\\B", RegAccess::Read));
        EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A\\C", RegAccess::Read));
        EXPECT_EQ(ErrorCode::AccessDenied, OpenResult("A\\B", RegAccess::ReadWrite));
        EXPECT_EQ(ErrorCode::AccessDenied, OpenResult("A\\B", RegAccess::Write));
        const RegKey key = Create("A\\B", LocalMachine, RegAccess::Read);
        EXPECT_EQ("1", Get(key, "x"));
        EXPECT_EQ(std::vector<std::string>{"A"}, Subkeys(LocalMachine));
        RegKey made = 1;
        EXPECT_EQ(ErrorCode::AccessDenied, Reg().CreateKey(LocalMachine, "C", RegAccess::Read, made));
        EXPECT_EQ(0U, made);
        EXPECT_EQ(ErrorCode::AccessDenied, Set(key, "x", "2"));
        EXPECT_EQ(ErrorCode::AccessDenied, Set(LocalMachine, "x", "2"));
        EXPECT_EQ(ErrorCode::AccessDenied, Reg().DeleteKey(LocalMachine, "A\\B"));
        EXPECT_EQ("1", Get(key, "x"));
    }
};

TEST_F(ProtectedStoreTest, IsReadWhenTheFileIsProtected) {
    Protect(station.Folder(), 0777);
    Protect(Store(), 0444);
    AsPlainUser(ReadsButDoesNotWrite);
}

TEST_F(ProtectedStoreTest, IsReadWhenTheFolderIsProtected) {
    Protect(Store(), 0444);
    Protect(station.Folder(), 0555);
    AsPlainUser(ReadsButDoesNotWrite);
    EXPECT_EQ("1", Get(Create("A\\B"), "x"));
}

TEST_F(ProtectedStoreTest, IsReadInAFolderOfAnyName) {
    const fs::path folder = station.Folder() / "a %41?b=1#c&d";
    fs::create_directory(folder);
    fs::rename(Store(), folder / "registry.db");
    Protect(folder / "registry.db", 0444);
    Protect(folder, 0555);
    AsPlainUser([&] {
        portable::UseStation(folder);
        ReadsButDoesNotWrite();
    });
    Protect(folder, 0755);
}

TEST_F(ProtectedStoreTest, ShowsWhatAnotherProgramHasWrittenLast) {
    const RegKey key = Create("A\\B");
    ASSERT_EQ(ErrorCode::Success, Set(key, "x", "2"));
    Close();
    // A program that has the store open keeps its latest changes in a separate file.
    sqlite3* other = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(Store().c_str(), &other));
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(other, "UPDATE vals SET data = '3'", nullptr, nullptr, nullptr));
    for (const char* end : {"", "-wal", "-shm"})
        Protect(Store().string() + end, 0444);
    Protect(station.Folder(), 0555);
    AsPlainUser([] { EXPECT_EQ("3", Get(Create("A\\B", LocalMachine, RegAccess::Read), "x")); });
    sqlite3_close(other);
}

TEST_F(ProtectedStoreTest, IsRefusedWhenItMayNotBeRead) {
    Protect(Store(), 0);
    AsPlainUser([] {
        EXPECT_EQ(ErrorCode::AccessDenied, OpenResult("A", RegAccess::Read));
        EXPECT_EQ(ErrorCode::AccessDenied, OpenResult("A"));
        EXPECT_EQ(ErrorCode::AccessDenied, Set(LocalMachine, "x", "1"));
    });
    Protect(Store(), 0644);
}

TEST_F(ProtectedStoreTest, IsNotMadeWhereNothingMayBeWritten) {
    Protect(station.Folder(), 0555);
    AsPlainUser([&] {
        for (const fs::path& folder : {station.Folder() / "drives", station.Folder() / "new"}) {
            portable::UseStation(folder);
            EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A"));
            RegKey key = 1;
            EXPECT_EQ(ErrorCode::AccessDenied, Reg().CreateKey(LocalMachine, "A", RegAccess::ReadWrite, key));
            EXPECT_EQ(0U, key);
        }
    });
}

} // namespace
} // namespace nesk::platform
