#include "platform/portable/Station.h"
#include "unit/platform/RegistryFixture.h"
#include "unit/platform/portable/FakeBusyClock.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <sqlite3.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace nesk::platform {
namespace {

using namespace std::chrono_literals;

// Several programs on one station.
class RegistryProcessTest : public testing::RegistryFixture {
protected:
    // An open database must not be carried into a child process.
    RegistryProcessTest() { portable::UseStation("/nonexistent/station"); }

    // Starts a process that runs `action` on the station and exits with 1 if something failed.
    pid_t Start(const std::function<void()>& action) const {
        const pid_t child = ::fork();
        if (child != 0) return child;
        portable::UseStation(station.Folder());
        action();
        std::fflush(nullptr);
        ::_exit(HasFailure() ? 1 : 0);
    }

    static void ExpectGoodEnd(pid_t child) {
        int status = 0;
        ASSERT_EQ(child, ::waitpid(child, &status, 0));
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "see above";
    }

    std::string IntegrityCheck() const {
        sqlite3* database = nullptr;
        sqlite3_stmt* statement = nullptr;
        std::string answer;
        EXPECT_EQ(SQLITE_OK, sqlite3_open((station.Folder() / "registry.db").c_str(), &database));
        EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(database, "PRAGMA integrity_check", -1, &statement, nullptr));
        if (sqlite3_step(statement) == SQLITE_ROW)
            answer = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        sqlite3_finalize(statement);
        sqlite3_close(database);
        return answer;
    }
};

TEST_F(RegistryProcessTest, WriteAtOnce) {
    constexpr int Writers = 3;
    constexpr int Rounds = 60;
    int gate[2];
    ASSERT_EQ(0, ::pipe(gate));
    std::vector<pid_t> children;
    for (int writer = 0; writer < Writers; ++writer)
        children.push_back(Start([&] {
            ::close(gate[1]);
            char byte = 0;
            // All processes start when the parent closes the pipe, so that they create the store at the same
            // time.
            EXPECT_EQ(0, ::read(gate[0], &byte, 1));
            const std::string name = "writer" + std::to_string(writer);
            for (int round = 0; round < Rounds; ++round) {
                const RegKey shared = Create("Shared");
                ASSERT_NE(0U, shared);
                ASSERT_EQ(ErrorCode::Success, Set(shared, name, std::to_string(round)));
                ASSERT_EQ(std::to_string(round), Get(shared, name));
                const RegKey own = Create("Level " + std::to_string(round) + "\\" + name);
                ASSERT_EQ(ErrorCode::Success, Set(own, "x", name));
                ASSERT_EQ(ErrorCode::Success, Reg().CloseKey(own));
                ASSERT_EQ(ErrorCode::Success, Reg().CloseKey(shared));
            }
        }));
    ::close(gate[0]);
    ::close(gate[1]);
    for (const pid_t child : children)
        ExpectGoodEnd(child);

    EXPECT_EQ("ok", IntegrityCheck());
    portable::UseStation(station.Folder());
    const RegKey shared = Create("Shared");
    EXPECT_EQ(static_cast<std::size_t>(Writers), Values(shared).size());
    for (int writer = 0; writer < Writers; ++writer) {
        const std::string name = "writer" + std::to_string(writer);
        EXPECT_EQ(std::to_string(Rounds - 1), Get(shared, name));
        for (int round = 0; round < Rounds; ++round)
            ASSERT_EQ(name, Get(Create("Level " + std::to_string(round) + "\\" + name), "x"));
    }
}

TEST_F(RegistryProcessTest, SeeWhatTheOtherWrote) {
    portable::UseStation(station.Folder());
    ASSERT_EQ(ErrorCode::Success, Set(Create("A\\B"), "x", "1"));
    portable::UseStation("/nonexistent/station");
    int go[2];
    int done[2];
    ASSERT_EQ(0, ::pipe(go));
    ASSERT_EQ(0, ::pipe(done));
    const pid_t child = Start([&] {
        ::close(go[1]);
        ::close(done[0]);
        const RegKey key = Create("A\\B");
        EXPECT_EQ("1", Get(key, "x"));
        char byte = 'r';
        EXPECT_EQ(1, ::write(done[1], &byte, 1));
        EXPECT_EQ(1, ::read(go[0], &byte, 1));
        EXPECT_EQ("2", Get(key, "x"));
        EXPECT_EQ(1, ::write(done[1], &byte, 1));
        EXPECT_EQ(1, ::read(go[0], &byte, 1));
        EXPECT_EQ(std::nullopt, Get(key, "x"));
        EXPECT_EQ(ErrorCode::KeyDeleted, Set(key, "x", "3"));
    });
    ::close(go[0]);
    ::close(done[1]);
    portable::UseStation(station.Folder());
    char byte = 0;
    ASSERT_EQ(1, ::read(done[0], &byte, 1));
    ASSERT_EQ(ErrorCode::Success, Set(Create("A\\B"), "x", "2"));
    ASSERT_EQ(1, ::write(go[1], &byte, 1));
    ASSERT_EQ(1, ::read(done[0], &byte, 1));
    ASSERT_EQ(ErrorCode::Success, Reg().DeleteKey(LocalMachine, "A\\B"));
    ASSERT_EQ(1, ::write(go[1], &byte, 1));
    ExpectGoodEnd(child);
    ::close(go[1]);
    ::close(done[0]);
}

// A value that shows whether it is complete: one letter, thousands of times.
std::string Whole(int number) {
    return std::string(3000, static_cast<char>('a' + number % 26));
}

TEST_F(RegistryProcessTest, LeaveASoundStoreWhenTheyAreKilled) {
    int written = 0;
    for (int round = 0; round < 20; ++round) {
        int progress[2];
        ASSERT_EQ(0, ::pipe(progress));
        const pid_t child = Start([&] {
            // When no process reads its reports any more, it ends too.
            ::close(progress[0]);
            for (int number = written + 1;; ++number) {
                const RegKey key = Create("A\\B" + std::to_string(number % 7));
                ASSERT_EQ(ErrorCode::Success, Set(key, "x", Whole(number)));
                ASSERT_EQ(ErrorCode::Success, Set(LocalMachine, "last", std::to_string(number)));
                ASSERT_EQ(ErrorCode::Success, Reg().CloseKey(key));
                if (number % 5 == 0) {
                    ASSERT_EQ(ErrorCode::Success,
                              Reg().DeleteKey(LocalMachine, "A\\B" + std::to_string(number % 7)));
                }
                ASSERT_EQ(static_cast<ssize_t>(sizeof number), ::write(progress[1], &number, sizeof number));
            }
        });
        ::close(progress[1]);
        int last = written;
        // After the first number, the process is killed at a different moment in each round.
        ASSERT_EQ(static_cast<ssize_t>(sizeof last), ::read(progress[0], &last, sizeof last));
        std::this_thread::sleep_for(std::chrono::microseconds(700 * round));
        ::kill(child, SIGKILL);
        while (::read(progress[0], &last, sizeof last) == static_cast<ssize_t>(sizeof last)) {
        }
        int status = 0;
        ASSERT_EQ(child, ::waitpid(child, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status));
        ::close(progress[0]);

        ASSERT_EQ("ok", IntegrityCheck());
        portable::UseStation(station.Folder());
        const std::optional<std::string> stored = Get(LocalMachine, "last");
        ASSERT_TRUE(stored);
        // Everything that was reported is stored. One more write may be stored whose report was not sent.
        EXPECT_GE(std::stoi(*stored), last);
        EXPECT_LE(std::stoi(*stored), last + 1);
        written = std::stoi(*stored);
        for (const std::string& name : Subkeys(Create("A"))) {
            const std::optional<std::string> value = Get(Create("A\\" + name), "x");
            // A key without its value is no damage: the process was killed before it wrote the value.
            if (!value) continue;
            EXPECT_EQ(std::string(3000, value->front()), *value);
        }
        portable::UseStation("/nonexistent/station");
    }
    EXPECT_GT(written, 20);
}

// Another program that has started a write.
class OtherWriter {
public:
    explicit OtherWriter(const std::filesystem::path& store) {
        EXPECT_EQ(SQLITE_OK, sqlite3_open(store.c_str(), &m_database));
        EXPECT_EQ(SQLITE_OK, sqlite3_exec(m_database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
    }
    ~OtherWriter() { sqlite3_close(m_database); }
    OtherWriter(const OtherWriter&) = delete;
    OtherWriter& operator=(const OtherWriter&) = delete;

    void End() { EXPECT_EQ(SQLITE_OK, sqlite3_exec(m_database, "COMMIT", nullptr, nullptr, nullptr)); }

private:
    sqlite3* m_database = nullptr;
};

class RegistryBusyTest : public testing::RegistryFixture {
protected:
    std::filesystem::path Store() const { return station.Folder() / "registry.db"; }
};

TEST_F(RegistryBusyTest, WaitsForAnotherProgram) {
    const RegKey key = Create("A");
    OtherWriter other(Store());
    nesk::testing::FakeBusyClock clock;
    bool ended = false;
    clock.whenSlept = [&] {
        if (ended || clock.Slept() < 300ms) return;
        other.End();
        ended = true;
    };
    EXPECT_EQ(ErrorCode::Success, Set(key, "x", "1"));
    EXPECT_TRUE(ended);
    EXPECT_LT(clock.Slept(), 500ms) << "it notices soon that the other program has ended";
    EXPECT_EQ("1", Get(key, "x"));
}

TEST_F(RegistryBusyTest, IsBusyWhenAnotherProgramDoesNotEnd) {
    const RegKey key = Create("A");
    ASSERT_EQ(ErrorCode::Success, Set(key, "x", "1"));
    const OtherWriter other(Store());
    const nesk::testing::FakeBusyClock clock;
    EXPECT_EQ(ErrorCode::Busy, Set(key, "x", "2"));
    EXPECT_EQ(clock.Slept(), 5000ms);
    // Reading does not wait.
    EXPECT_EQ("1", Get(key, "x"));
    EXPECT_EQ(clock.Slept(), 5000ms);
}

TEST(BusyWaitTest, TheSystemsClockReallyWaits) {
    portable::BusyClock& clock = portable::TheBusyClock();
    const auto start = std::chrono::steady_clock::now();
    const auto before = clock.Now();
    EXPECT_TRUE(portable::WaitForOtherProgram(3));
    EXPECT_GE(clock.Now() - before, 10ms);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 10ms);
}

} // namespace
} // namespace nesk::platform
