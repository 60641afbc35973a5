#include "shell/Messages.h"
#include "shell/MainCommands.h"
#include "shell/modStringRes.h"
#include "unit/CoreFixture.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>

namespace nesk {
namespace {

namespace fs = std::filesystem;

// Every number of a text that the sources name: the constants of Messages.h, and numbers of the blocks 32000
// and 34000 written out anywhere else.
std::set<int> NumbersInSources() {
    static const std::regex number("\\b3[24][0-9]{3}\\b");
    std::set<int> numbers;
    for (const char* folder : {"shell", "menu", "settings", "partedit"}) {
        for (const auto& entry : fs::directory_iterator(fs::path(NESK_SOURCE_DIR) / folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);) {
                line.erase(std::min(line.find("//"), line.size()));
                for (std::sregex_iterator at(line.begin(), line.end(), number), end; at != end; ++at)
                    numbers.insert(std::stoi(at->str()));
            }
        }
    }
    // The largest number of children is no text.
    numbers.erase(32767);
    numbers.erase(32768);
    return numbers;
}

class MessagesTest : public testing::CoreTest {};

TEST_F(MessagesTest, EveryNumberThatTheCodeUsesHasAText) {
    const std::set<int> numbers = NumbersInSources();
    ASSERT_GT(numbers.size(), 50u);
    for (const int number : numbers) {
        const std::string text = modStringRes::LoadResString(number);
        EXPECT_EQ(text.find(std::to_string(number)), std::string::npos) << text;
        EXPECT_NE(text, "Error: Resource File Not Found") << number;
    }
}

TEST_F(MessagesTest, EveryCommandHasACaptionAndAHelpLine) {
    for (const MainCommandInfo& info : MainCommandTable()) {
        for (const int number : {info.text, info.text + Message::StatusHelpOffset, info.menu}) {
            const std::string text = modStringRes::LoadResString(number);
            EXPECT_EQ(text.find(std::to_string(number)), std::string::npos) << info.name << ": " << text;
        }
    }
}

TEST_F(MessagesTest, BlockBasesNameTheMissingNumber) {
    EXPECT_NE(modStringRes::LoadResString(32999).find("32999"), std::string::npos);
    EXPECT_NE(modStringRes::LoadResString(33777).find("33777"), std::string::npos);
    EXPECT_NE(modStringRes::LoadResString(34999).find("34999"), std::string::npos);
}

} // namespace
} // namespace nesk
