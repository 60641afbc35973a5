// Queries an arbitrary profile file. The input's first four lines are the section, the key, the default and
// the capacity; the rest is the file.

#include "fuzz/Fuzz.h"
#include "platform/ProfileFile.h"

#include <algorithm>

namespace nesk::fuzz {

namespace {

const std::string Path = "C:\\Parts\\partinfo.ini";
const std::string Missing = "C:\\Parts\\missing.ini";
// Block size of the reader.
constexpr std::size_t BlockSize = 16384;

struct Question {
    std::string section;
    std::string key;
    std::string defaultValue;
    std::size_t capacity = 0;
};

std::string Ask(const Question& question, std::size_t capacity, const std::string& path = Path) {
    return platform::ReadProfileString(path, question.section, question.key, question.defaultValue, capacity);
}

std::size_t NumberIn(const std::string& text) {
    std::size_t number = 0;
    for (const char c : text)
        if (c >= '0' && c <= '9') number = (number * 10 + static_cast<std::size_t>(c - '0')) % 100000;
    return number;
}

std::string WithOtherCase(std::string text) {
    for (char& c : text) {
        const char lower = static_cast<char>(c | 0x20);
        if (lower >= 'a' && lower <= 'z') c = static_cast<char>(c ^ 0x20);
    }
    return text;
}

void CheckAnswer(const Question& question, const std::string& answer) {
    Require(answer == Ask(question, question.capacity), "the same question has the same answer");
    // A default may contain characters that the code page cannot encode.
    const std::size_t size = platform::ToAnsi(answer).value_or("").size();
    Require(size < std::max<std::size_t>(question.capacity, 1), "the answer and its end fit the capacity");
    Question otherCase = question;
    otherCase.section = WithOtherCase(question.section);
    otherCase.key = WithOtherCase(question.key);
    Require(answer == Ask(otherCase, question.capacity), "the case of names is of no account");
    Question withBlanks = question;
    withBlanks.section = "  " + question.section + " ";
    withBlanks.key = " " + question.key + "  ";
    Require(answer == Ask(withBlanks, question.capacity), "blanks around names are of no account");
    Require(Ask(question, question.capacity + 1).starts_with(answer),
            "a larger buffer holds what a smaller does");
    Require(Ask(question, 0).empty() && Ask(question, 1).empty(), "without room there is no answer");
    Question otherDefault = question;
    otherDefault.defaultValue += "\x01";
    if (Ask(otherDefault, BlockSize * 8) != Ask(question, BlockSize * 8)) return;
    // The answer does not depend on the default, so it comes from the file.
    Require(answer.find_first_of(std::string("\r\n\x1A\0", 4)) == std::string::npos,
            "a value is on one line");
    Require(platform::ToAnsi(answer).has_value(), "a value can be encoded");
}

// Checks that the block boundaries do not affect the answer.
void CheckBlocks(Surroundings& surroundings, const Question& question, const std::string& bytes,
                 const std::string& answer) {
    const bool wide = bytes.starts_with("\xFF\xFE") || bytes.starts_with('\xFF');
    if (wide || bytes.empty()) return;
    for (const std::size_t before : {bytes.size() / 3, bytes.size() / 2, bytes.size() - 1}) {
        if (before + 3 > BlockSize) continue;
        const std::string comment = ";" + std::string(BlockSize - before - 3, 'x') + "\r\n";
        surroundings.station.Write(Path, comment + bytes);
        Require(Ask(question, question.capacity) == answer, "the blocks of reading do not matter");
    }
}

} // namespace

} // namespace nesk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk::fuzz;
    return WithEachCodePage(data, size, [](Surroundings& surroundings, std::string bytes) {
        Question question;
        question.section = TakeLine(bytes);
        question.key = TakeLine(bytes);
        question.defaultValue = TakeLine(bytes);
        question.capacity = NumberIn(TakeLine(bytes));
        const std::string none = Ask(question, question.capacity, Missing);
        Require(question.defaultValue.starts_with(none), "a missing file gives the default");
        surroundings.station.Write(Path, bytes);
        const std::string answer = Ask(question, question.capacity);
        CheckAnswer(question, answer);
        CheckBlocks(surroundings, question, bytes, answer);
    });
}
