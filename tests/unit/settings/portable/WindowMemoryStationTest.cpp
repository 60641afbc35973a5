#include "settings/WindowMemory.h"

#include "platform/portable/Station.h"
#include "unit/CoreFixture.h"

#include <filesystem>

namespace nesk {
namespace {

namespace fs = std::filesystem;

class WindowMemoryStationTest : public testing::CoreTest {
protected:
    ~WindowMemoryStationTest() override { platform::portable::UseStation(station.Folder()); }

    // Saves a value where there is no station.
    static bool SaveIn(const fs::path& folder) {
        platform::portable::UseStation(folder);
        WindowMemory memory;
        memory.Load();
        memory.SetNumber("Left", 1);
        return memory.Save();
    }
};

TEST_F(WindowMemoryStationTest, WhereThereIsNoStationNoneIsCreated) {
    const fs::path missing = station.Folder() / "missing";
    EXPECT_FALSE(SaveIn(missing));
    EXPECT_FALSE(fs::exists(missing));
    const fs::path empty = station.Folder() / "empty";
    fs::create_directory(empty);
    EXPECT_FALSE(SaveIn(empty));
    EXPECT_TRUE(fs::is_empty(empty));
}

} // namespace
} // namespace nesk
