#include "versions/VersionNames.h"

#include "base/Paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <string_view>
#include <tuple>

namespace nesk::VersionNames {

namespace {

// A path in parts: the folder with its "\", the name without its extension, and the extension with its ".".
struct Parts {
    std::string folder;
    std::string stem;
    std::string extension;
};

Parts PartsOf(const std::string& path) {
    Parts parts;
    parts.folder = Paths::ParentFolder(path);
    const std::string name = path.substr(parts.folder.size());
    const std::size_t dot = name.rfind('.');
    // A name that begins with its only dot has no extension.
    parts.stem = dot == 0 ? name : name.substr(0, dot);
    parts.extension = name.substr(parts.stem.size());
    return parts;
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Removes a text from the front or the back of another one, without regard to the case of ASCII letters.
bool TakeFront(std::string_view& text, std::string_view front) {
    const bool isThere = text.size() >= front.size() &&
                         std::equal(front.begin(), front.end(), text.begin(),
                                    [](char one, char other) { return Lower(one) == Lower(other); });
    if (isThere) text.remove_prefix(front.size());
    return isThere;
}

bool TakeBack(std::string_view& text, std::string_view back) {
    if (text.size() < back.size()) return false;
    std::string_view end = text.substr(text.size() - back.size());
    const bool isThere = TakeFront(end, back);
    if (isThere) text.remove_suffix(back.size());
    return isThere;
}

// Removes a number of exactly so many digits from the front.
bool TakeDigits(std::string_view& text, std::size_t digits, int& number) {
    const std::string_view front = text.substr(0, digits);
    if (front.size() < digits || front.find_first_not_of("0123456789") != std::string_view::npos)
        return false;
    text.remove_prefix(digits);
    return std::from_chars(front.data(), front.data() + front.size(), number).ec == std::errc();
}

bool IsTime(const std::tm& time) {
    using namespace std::chrono;
    const year_month_day date{year{time.tm_year + 1900}, month{static_cast<unsigned>(time.tm_mon + 1)},
                              day{static_cast<unsigned>(time.tm_mday)}};
    return date.ok() && time.tm_hour < 24 && time.tm_min < 60 && time.tm_sec <= 60;
}

// A date and time as NameOf writes them.
bool TakeTime(std::string_view& text, std::tm& time) {
    const bool isRead =
        TakeDigits(text, 4, time.tm_year) && TakeFront(text, "-") && TakeDigits(text, 2, time.tm_mon) &&
        TakeFront(text, "-") && TakeDigits(text, 2, time.tm_mday) && TakeFront(text, " ") &&
        TakeDigits(text, 2, time.tm_hour) && TakeFront(text, ".") && TakeDigits(text, 2, time.tm_min) &&
        TakeFront(text, ".") && TakeDigits(text, 2, time.tm_sec);
    time.tm_year -= 1900;
    --time.tm_mon;
    return isRead && IsTime(time);
}

} // namespace

std::string FolderOf(const std::string& path) {
    const Parts parts = PartsOf(path);
    return parts.folder + parts.stem + ".versions";
}

std::string NameOf(const std::string& path, const std::tm& time, int number) {
    // Without ":", which Windows does not allow in names.
    std::array<char, 32> date{};
    const std::size_t length = std::strftime(date.data(), date.size(), "%Y-%m-%d %H.%M.%S", &time);
    const Parts parts = PartsOf(path);
    std::string name = parts.stem + " ";
    name.append(date.data(), length);
    if (number > 1) name.append(".").append(std::to_string(number));
    return name + parts.extension;
}

std::optional<MenuVersion> Parse(const std::string& path, const std::string& name) {
    const Parts parts = PartsOf(path);
    std::string_view rest = name;
    MenuVersion version;
    if (!TakeFront(rest, parts.stem) || !TakeFront(rest, " ") || !TakeTime(rest, version.time) ||
        !TakeBack(rest, parts.extension))
        return std::nullopt;
    if (TakeFront(rest, ".")) {
        constexpr std::size_t mostDigits = 6;
        const std::size_t digits = rest.size();
        const bool isNumber = digits > 0 && digits <= mostDigits && rest.front() != '0';
        if (!isNumber || !TakeDigits(rest, digits, version.number) || version.number < 2) return std::nullopt;
    }
    if (!rest.empty()) return std::nullopt;
    version.path = FolderOf(path) + "\\" + name;
    return version;
}

bool IsNewer(const MenuVersion& one, const MenuVersion& other) {
    const auto key = [](const MenuVersion& version) {
        const std::tm& time = version.time;
        return std::tuple(time.tm_year, time.tm_mon, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec,
                          version.number);
    };
    return key(one) > key(other);
}

} // namespace nesk::VersionNames
