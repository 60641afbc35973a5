#include "platform/ProfileFile.h"
#include "platform/windows/Handle.h"
#include "unit/platform/TempStation.h"

#include <gtest/gtest.h>
#include <string>

namespace nesk::platform {
namespace {

// A menu may name anything as the file of a part. A pipe's other end may never say a word.
TEST(ProfilePipe, IsNotOpened) {
    const TempStation station;
    const std::string path = R"(\\.\pipe\NeskManagerTest)" + std::to_string(::GetCurrentProcessId());
    const windows::Handle pipe(::CreateNamedPipeA(path.c_str(), PIPE_ACCESS_DUPLEX,
                                                  PIPE_TYPE_BYTE | PIPE_NOWAIT, 1, 512, 512, 0, nullptr));
    ASSERT_TRUE(pipe);
    EXPECT_EQ("default", ReadProfileString(path, "Part", "Name", "default", 100));
    // Without a client the pipe still waits for one.
    EXPECT_EQ(0, ::ConnectNamedPipe(pipe.Get(), nullptr));
    EXPECT_EQ(DWORD{ERROR_PIPE_LISTENING}, ::GetLastError());
}

} // namespace
} // namespace nesk::platform
