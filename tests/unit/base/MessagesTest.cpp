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

// Adds the numbers of the blocks 32000, 34000 and 35000 in a line of code. Digits inside a longer word do not
// count.
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
        const bool ours =
            word.size() == 5 && (word.starts_with("32") || word.starts_with("34") || word.starts_with("35"));
        if (ours && word.find_first_not_of("0123456789") == std::string::npos)
            numbers.insert(std::stoi(word));
        at = end;
    }
}

// The text numbers in a file.
std::set<int> NumbersIn(const fs::path& path) {
    std::set<int> numbers;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        AddNumbers(line.substr(0, line.find("//")), numbers);
    // Limits of 16-bit numbers are not text numbers.
    numbers.erase(32767);
    numbers.erase(32768);
    return numbers;
}

const fs::path Sources = NESK_SOURCE_DIR;

// The headers that name the numbers: base/Messages.h and base/...Messages.h.
bool IsNames(const fs::path& path) {
    return path.parent_path() == Sources / "base" && path.filename().string().ends_with("Messages.h");
}

// The numbers that have a name.
std::set<int> NamedNumbers() {
    std::set<int> numbers;
    for (const auto& entry : fs::directory_iterator(Sources / "base"))
        if (IsNames(entry.path())) numbers.merge(NumbersIn(entry.path()));
    return numbers;
}

class MessagesTest : public testing::CoreTest {};

TEST_F(MessagesTest, EveryNumberThatTheCodeUsesHasAText) {
    const std::set<int> numbers = NamedNumbers();
    ASSERT_GT(numbers.size(), 250u);
    for (const int number : numbers) {
        const std::string text = modStringRes::LoadResString(number);
        EXPECT_EQ(text.find(std::to_string(number)), std::string::npos) << text;
        EXPECT_NE(text, "Error: Resource File Not Found") << number;
    }
}

TEST_F(MessagesTest, EveryNumberStandsInOnePlace) {
    int files = 0;
    for (const char* folder :
         {"base", "checking", "editing", "menu", "partedit", "platform", "settings", "shell", "widgets"}) {
        for (const auto& entry : fs::recursive_directory_iterator(Sources / folder)) {
            const fs::path& path = entry.path();
            if ((path.extension() != ".h" && path.extension() != ".cpp") || IsNames(path)) continue;
            ++files;
            for (const int number : NumbersIn(path))
                ADD_FAILURE() << path << " uses the number " << number << " instead of its name";
        }
    }
    EXPECT_GT(files, 300);
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
