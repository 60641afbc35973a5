#include "platform/ProfileFile.h"
#include "platform/TextEncoding.h"
#include "unit/platform/TempStation.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace nesk::platform {
namespace {

namespace fs = std::filesystem;

const std::string File = "C:\\Parts\\partinfo.ini";

class HostileProfileTest : public ::testing::Test {
protected:
    HostileProfileTest() {
        SelectCodePage(1033);
        fs::create_directories(m_host.parent_path());
    }

    static std::string Read(const std::string& key = "Name") {
        return ReadProfileString(File, "Part", key, "default", 4096);
    }

    TempStation m_station;
    const fs::path m_host = TempStation::Host(File);
};

TEST_F(HostileProfileTest, ASocket) {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_GE(socket, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(m_host.native().size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, m_host.c_str(), m_host.native().size());
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(Read(), "default");
    ::close(socket);
}

TEST_F(HostileProfileTest, LinksToDevicesToNothingAndToThemselves) {
    for (const fs::path& target : {fs::path("/dev/zero"), fs::path("/dev/urandom"), fs::path("/nonexistent"),
                                   m_host, m_host.parent_path()}) {
        fs::create_symlink(target, m_host);
        EXPECT_EQ(Read(), "default") << target;
        fs::remove(m_host);
    }
    m_station.Write("C:\\Parts\\other.ini", "[Part]\nName=other\n");
    fs::create_symlink("other.ini", m_host);
    EXPECT_EQ(Read(), "other") << "a link to a file is that file";
}

// Reading such a file to its end would take too long.
TEST_F(HostileProfileTest, OnlyTheBeginningOfTwoGigabytesIsSearched) {
    std::ofstream(m_host) << "[Tool]\nName=Drill\n";
    fs::resize_file(m_host, 2'000'000'000);
    std::ofstream(m_host, std::ios::app) << "\n[Part]\nName=x\n";
    EXPECT_EQ(Read(), "default");
    fs::resize_file(m_host, 3'000'000);
    std::ofstream(m_host, std::ios::app) << "\n[Part]\nName=x\n";
    EXPECT_EQ(Read(), "x");
}

TEST_F(HostileProfileTest, SectionsThatDoNotEnd) {
    m_station.Write(File, "[Part\nName=a");
    EXPECT_EQ(Read(), "a") << "the line ends the name of a section";
    m_station.Write(File, "[Part" + std::string(1'000'000, ' ') + "]\nName=b");
    EXPECT_EQ(Read(), "b");
    m_station.Write(File, "[" + std::string(1'000'000, '[') + "\nName=c\n[Part]\nName=d\n");
    EXPECT_EQ(Read(), "d");
    std::string lines = "[Part]\n";
    for (int i = 0; i < 200'000; ++i)
        lines += "key=value\n";
    m_station.Write(File, lines + "Name=last");
    EXPECT_EQ(Read(), "last");
}

TEST_F(HostileProfileTest, KeysAndValuesOfAHundredKilobytes) {
    const std::string huge(100'000, 'k');
    m_station.Write(File, "[Part]\n" + huge + "=1\nName" + huge + "=2\nName=" + huge + "\n");
    EXPECT_EQ(Read(), std::string(4095, 'k'));
    EXPECT_EQ(Read(huge), "1") << "the whole key is compared";
    EXPECT_EQ(Read(huge + "k"), "default");
    EXPECT_EQ(Read(huge.substr(1)), "default");
}

TEST_F(HostileProfileTest, EveryByteInAValue) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text = "a" + std::string(1, static_cast<char>(byte)) + "b";
        m_station.Write(File, "[Part]\r\nName=" + text + "\r\nAfter=x\r\n");
        const bool ends = byte == '\n' || byte == '\r' || byte == 0x1A;
        EXPECT_EQ(ToAnsi(Read()).value_or("none"), ends ? "a" : text) << byte;
        EXPECT_EQ(Read("After"), byte == 0x1A ? "default" : "x") << byte;
    }
}

} // namespace
} // namespace nesk::platform
