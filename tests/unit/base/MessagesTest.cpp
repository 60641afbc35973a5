#include "base/Messages.h"
#include "shell/MainCommands.h"
#include "shell/modStringRes.h"
#include "unit/CoreFixture.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>

namespace nesk {
namespace {

namespace fs = std::filesystem;

bool IsWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// Adds the numbers of the blocks 32000 and 34000 in a line of code. Digits inside a longer word do not count.
void AddNumbers(const std::string& line, std::set<int>& numbers) {
    for (std::size_t at = 0; at < line.size();) {
        if (!IsWordCharacter(line[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < line.size() && IsWordCharacter(line[end]))
            ++end;
        const std::string word = line.substr(at, end - at);
        const bool ours = word.size() == 5 && (word.starts_with("32") || word.starts_with("34"));
        if (ours && word.find_first_not_of("0123456789") == std::string::npos)
            numbers.insert(std::stoi(word));
        at = end;
    }
}

// Every text number that the sources use: the constants of Messages.h and those of single windows.
std::set<int> NumbersInSources() {
    std::set<int> numbers;
    for (const char* folder : {"shell", "menu", "settings", "partedit"}) {
        for (const auto& entry : fs::directory_iterator(fs::path(NESK_SOURCE_DIR) / folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);)
                AddNumbers(line.substr(0, line.find("//")), numbers);
        }
    }
    // The largest number of children is not a text number.
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
