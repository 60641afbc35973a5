#include "shell/AboutText.h"

#include "unit/CoreFixture.h"

#include <fstream>
#include <regex>
#include <sstream>

namespace nesk {
namespace {

class AboutTextTest : public testing::CoreTest {};

TEST_F(AboutTextTest, TellsTheVersionOfTheBuild) {
    std::ostringstream text;
    text << std::ifstream(NESK_SOURCE_DIR "/CMakeLists.txt").rdbuf();
    const std::string file = text.str();
    std::smatch match;
    ASSERT_TRUE(std::regex_search(file, match, std::regex(R"(project\(NeskManager VERSION ([0-9.]+))")));
    EXPECT_EQ(ProgramVersion(), match[1].str());
    EXPECT_NE(AboutText({"Toolkit", "9", "free"}).find(ProgramVersion()), std::string::npos);
}

TEST_F(AboutTextTest, TellsLicenceAndLibraries) {
    const std::string text = AboutText({"Toolkit", "9.8.7", "free"});
    EXPECT_NE(text.find("MIT"), std::string::npos);
    EXPECT_NE(text.find("Toolkit 9.8.7 (free)"), std::string::npos) << text;
    for (const platform::Library& library : platform::LinkedLibraries())
        EXPECT_NE(text.find(library.name + " " + library.version), std::string::npos) << text;
#ifdef NESK_PORTABLE_STATION
    EXPECT_EQ(platform::LinkedLibraries().size(), 2u);
#endif
}

} // namespace
} // namespace nesk
