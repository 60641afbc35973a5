#include "platform/HelpViewer.h"

#include "platform/portable/Station.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace nesk::platform {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr const char* File = "C:\\Help\\OVENU.chm";

// A viewer that records how it was started, and stays until it is ended. It reads its blocked signals first,
// because a shell blocks and unblocks all signals when it starts a program.
constexpr const char* Recorder = R"sh(#!/bin/sh
while read -r name value; do [ "$name" = SigBlk: ] && blocked=$value; done </proc/$$/status
input=$(readlink /proc/$$/fd/0)
output=$(readlink /proc/$$/fd/1)
errors=$(readlink /proc/$$/fd/2)
{
  echo "process $$"
  for argument in "$@"; do echo "argument $argument"; done
  echo "session $(cut -d ' ' -f 6 /proc/$$/stat)"
  echo "blocked $blocked"
  echo "input $input"
  echo "output $output"
  echo "errors $errors"
  for file in /proc/$$/fd/*; do echo "open $(readlink "$file")"; done
} >"$RECORD.part"
mv "$RECORD.part" "$RECORD"
)sh";

class HelpViewerTest : public ::testing::Test {
protected:
    HelpViewerTest() {
        m_station.Write(File, "ITSF");
        m_path = std::getenv("PATH");
        ::setenv("PATH", (m_station.Folder().string() + ":" + m_path).c_str(), 1);
        ::setenv("NESKMANAGER_HELPVIEWER", "recorder", 1);
        ::setenv("RECORD", m_record.c_str(), 1);
        Script("recorder", std::string(Recorder) + "exec sleep 60\n");
    }

    ~HelpViewerTest() override {
        // The viewer of this test must not affect the next test, so a viewer that ends at once replaces it.
        Script("done", "#!/bin/sh\nexit 0\n");
        ::setenv("NESKMANAGER_HELPVIEWER", "done", 1);
        Show();
        ::setenv("PATH", m_path.c_str(), 1);
        ::unsetenv("NESKMANAGER_HELPVIEWER");
        ::unsetenv("RECORD");
    }

    void Script(const std::string& name, const std::string& text) const {
        const fs::path file = m_station.Folder() / name;
        std::ofstream(file) << text;
        fs::permissions(file, fs::perms::owner_all);
    }

    static HelpResult Show() { return ShowHtmlHelp(nullptr, File, HtmlHelpCommand::Contents, 0); }

    // The values that the viewer recorded under a name. Waits until the record is written.
    std::vector<std::string> Recorded(const std::string& name) const {
        for (int i = 0; i < 1000 && !fs::exists(m_record); ++i)
            std::this_thread::sleep_for(10ms);
        std::ifstream record(m_record);
        std::vector<std::string> values;
        for (std::string line; std::getline(record, line);)
            if (line.starts_with(name + " ")) values.push_back(line.substr(name.size() + 1));
        return values;
    }

    pid_t RecordedProcess() const {
        const std::vector<std::string> values = Recorded("process");
        return values.size() == 1 ? std::stoi(values.front()) : -1;
    }

    TempStation m_station;
    fs::path m_record = m_station.Folder() / "record";
    std::string m_path;
};

TEST_F(HelpViewerTest, ShowsTheContents) {
    ASSERT_EQ(HelpResult::Shown, Show());
    EXPECT_EQ(std::vector{portable::ToHostPath(File).string()}, Recorded("argument"));
}

TEST_F(HelpViewerTest, ShowsATopic) {
    ASSERT_EQ(HelpResult::Shown, ShowHtmlHelp(nullptr, File, HtmlHelpCommand::Topic, 4000000001));
    EXPECT_EQ((std::vector<std::string>{"-c", "4000000001", portable::ToHostPath(File).string()}),
              Recorded("argument"));
}

TEST_F(HelpViewerTest, KeepsAFileNameOutOfTheShell) {
    const std::string file = "C:\\Help\\it's $(touch hit) `x` & ;y.chm";
    m_station.Write(file, "ITSF");
    ASSERT_EQ(HelpResult::Shown, ShowHtmlHelp(nullptr, file, HtmlHelpCommand::Contents, 0));
    EXPECT_EQ(std::vector{portable::ToHostPath(file).string()}, Recorded("argument"));
    EXPECT_FALSE(fs::exists("hit"));
}

TEST_F(HelpViewerTest, GivesTheViewerNoFileNameThatIsAnOption) {
    for (const char* file : {"-c", "--version", ";touch hit"}) {
        fs::remove(m_record);
        m_station.Write(std::string("C:\\") + file, "ITSF");
        // Without a drive and a folder, as a setting may contain it.
        ASSERT_EQ(HelpResult::Shown, ShowHtmlHelp(nullptr, file, HtmlHelpCommand::Contents, 0)) << file;
        const std::vector<std::string> arguments = Recorded("argument");
        ASSERT_EQ(1U, arguments.size());
        EXPECT_EQ(TempStation::Host(std::string("C:\\") + file).string(), arguments[0]);
        EXPECT_TRUE(arguments[0].starts_with('/')) << arguments[0];
    }
    EXPECT_FALSE(fs::exists("hit"));
}

TEST_F(HelpViewerTest, StartsTheViewerOnItsOwn) {
    const int file = ::open(m_station.Folder().c_str(), O_RDONLY);
    ASSERT_GE(file, 0);
    ASSERT_EQ(HelpResult::Shown, Show());
    EXPECT_EQ(Recorded("process"), Recorded("session"));
    EXPECT_EQ(std::vector<std::string>{"/dev/null"}, Recorded("input"));
    EXPECT_EQ(std::vector<std::string>{"/dev/null"}, Recorded("output"));
    EXPECT_EQ(std::vector<std::string>{"/dev/null"}, Recorded("errors"));
    const std::vector<std::string> open = Recorded("open");
    EXPECT_FALSE(open.empty());
    EXPECT_EQ(open.end(), std::find(open.begin(), open.end(), m_station.Folder().string()));
    ::close(file);
}

TEST_F(HelpViewerTest, TakesTheOverrideAsAPathToo) {
    ::setenv("NESKMANAGER_HELPVIEWER", (m_station.Folder() / "recorder").c_str(), 1);
    ASSERT_EQ(HelpResult::Shown, Show());
    EXPECT_EQ(1U, Recorded("argument").size());
}

TEST_F(HelpViewerTest, UsesTheUsualViewerWithoutAnOverride) {
    Script("xchm", std::string(Recorder) + "exec sleep 60\n");
    for (const bool empty : {false, true}) {
        fs::remove(m_record);
        if (empty)
            ::setenv("NESKMANAGER_HELPVIEWER", "", 1);
        else
            ::unsetenv("NESKMANAGER_HELPVIEWER");
        ASSERT_EQ(HelpResult::Shown, Show());
        EXPECT_EQ(1U, Recorded("argument").size());
    }
}

TEST_F(HelpViewerTest, EndsTheViewerBefore) {
    m_station.Write("C:\\Help\\Other.chm", "ITSF");
    for (const char* next : {File, "C:\\Help\\Other.chm"}) {
        fs::remove(m_record);
        ASSERT_EQ(HelpResult::Shown, Show());
        const pid_t first = RecordedProcess();
        ASSERT_GT(first, 0);
        EXPECT_EQ(0, ::kill(first, 0)) << "it should still run";
        fs::remove(m_record);
        ASSERT_EQ(HelpResult::Shown, ShowHtmlHelp(nullptr, next, HtmlHelpCommand::Contents, 0));
        // The process was ended and reaped: not even a zombie is left.
        EXPECT_EQ(-1, ::kill(first, 0));
        EXPECT_EQ(std::vector{portable::ToHostPath(next).string()}, Recorded("argument"));
        EXPECT_NE(first, RecordedProcess());
    }
}

TEST_F(HelpViewerTest, EndsWhatAScriptStarted) {
    Script("recorder", std::string(Recorder) + "sleep 60 &\necho $! >\"$RECORD.child\"\nwait\n");
    ASSERT_EQ(HelpResult::Shown, Show());
    ASSERT_GT(RecordedProcess(), 0);
    const fs::path file = m_record.string() + ".child";
    pid_t child = 0;
    for (int i = 0; i < 1000 && child == 0; ++i, std::this_thread::sleep_for(10ms))
        std::ifstream(file) >> child;
    ASSERT_GT(child, 0);
    ASSERT_EQ(HelpResult::Shown, Show());
    // The process that inherits an orphan may take some time to reap it; a zombie has no command line.
    std::string command = "x";
    for (int i = 0; i < 1000 && !command.empty(); ++i, std::this_thread::sleep_for(10ms)) {
        std::ifstream line("/proc/" + std::to_string(child) + "/cmdline");
        command.assign(std::istreambuf_iterator<char>(line), {});
    }
    EXPECT_EQ("", command);
}

TEST_F(HelpViewerTest, EndsAViewerThatDoesNotWantTo) {
    Script("recorder", "#!/bin/sh\ntrap '' TERM\n" + std::string(Recorder).substr(10) + "exec sleep 60\n");
    ASSERT_EQ(HelpResult::Shown, Show());
    const pid_t first = RecordedProcess();
    ASSERT_GT(first, 0);
    ASSERT_EQ(HelpResult::Shown, Show());
    EXPECT_EQ(-1, ::kill(first, 0));
}

TEST_F(HelpViewerTest, StartsAnewAfterTheUserClosedTheViewer) {
    Script("recorder", std::string(Recorder) + "exit 0\n");
    for (int round = 0; round < 3; ++round) {
        fs::remove(m_record);
        ASSERT_EQ(HelpResult::Shown, Show());
        const pid_t process = RecordedProcess();
        ASSERT_GT(process, 0);
        // Waits for its end without reaping it, which the next request must do.
        siginfo_t info{};
        ASSERT_EQ(0, ::waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT));
    }
}

TEST_F(HelpViewerTest, GivesTheViewerTheUsualSignals) {
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    ASSERT_EQ(0, ::pthread_sigmask(SIG_BLOCK, &blocked, &before));
    ASSERT_EQ(HelpResult::Shown, Show());
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    EXPECT_EQ(std::vector<std::string>{"0000000000000000"}, Recorded("blocked"));
}

TEST_F(HelpViewerTest, TellsThatTheViewerIsMissing) {
    ::setenv("NESKMANAGER_HELPVIEWER", "no-such-viewer", 1);
    EXPECT_EQ(HelpResult::ViewerMissing, Show());
    ::setenv("NESKMANAGER_HELPVIEWER", "/nonexistent/viewer", 1);
    EXPECT_EQ(HelpResult::ViewerMissing, Show());
    std::ofstream(m_station.Folder() / "plain") << "no program";
    ::setenv("NESKMANAGER_HELPVIEWER", (m_station.Folder() / "plain").c_str(), 1);
    EXPECT_EQ(HelpResult::ViewerMissing, Show());
}

TEST_F(HelpViewerTest, TellsThatTheViewerDoesNotStart) {
    Script("broken", "no program");
    ::setenv("NESKMANAGER_HELPVIEWER", "broken", 1);
    EXPECT_EQ(HelpResult::Failed, Show());
}

TEST_F(HelpViewerTest, TellsThatTheFileIsMissing) {
    const auto show = [](const char* file) {
        return ShowHtmlHelp(nullptr, file, HtmlHelpCommand::Contents, 0);
    };
    EXPECT_EQ(HelpResult::FileMissing, show("C:\\Help\\None.chm"));
    EXPECT_EQ(HelpResult::FileMissing, show("C:\\Help"));
    EXPECT_EQ(HelpResult::FileMissing, show(""));
    EXPECT_FALSE(fs::exists(m_record));
    ::setenv("NESKMANAGER_HELPVIEWER", "no-such-viewer", 1);
    EXPECT_EQ(HelpResult::FileMissing, show("C:\\Help\\None.chm"));
}

TEST_F(HelpViewerTest, HasNoViewerForClassicHelp) {
    m_station.Write("C:\\Help\\OVENU.hlp", "?_");
    EXPECT_EQ(HelpResult::FormatNotSupported,
              ShowClassicHelp(nullptr, "C:\\Help\\OVENU.hlp", ClassicHelpCommand::Index, 0));
    EXPECT_EQ(HelpResult::FileMissing,
              ShowClassicHelp(nullptr, "C:\\Help\\None.hlp", ClassicHelpCommand::Topic, 5));
}

} // namespace
} // namespace nesk::platform
