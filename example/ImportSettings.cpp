// Writes the settings that a station folder lists in registry.txt into the station's registry.
// Usage: ImportSettings STATION. Each line of the list is: key, tab, value name, tab, text.

#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "platform/TextEncoding.h"
#include "platform/portable/Station.h"

#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <tuple>

namespace {

using namespace nesk::platform;

bool WriteValue(const std::string& key, const std::string& name, const std::string& text) {
    const std::optional<std::string> ansi = ToAnsi(text);
    if (!ansi) return false;
    Registry& registry = StationRegistry();
    RegKey handle = 0;
    if (registry.CreateKey(LocalMachine, key, RegAccess::ReadWrite, handle) != ErrorCode::Success)
        return false;
    const ErrorCode written = name.empty() && text.empty()
                                  ? ErrorCode::Success
                                  : registry.SetValue(handle, name, RegType::Text, *ansi);
    // The value is written already.
    std::ignore = registry.CloseKey(handle);
    return written == ErrorCode::Success;
}

int Import(const std::filesystem::path& list) {
    std::ifstream file(list);
    if (!file) {
        std::cerr << list << ": cannot be read\n";
        return 1;
    }
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        const std::size_t first = line.find('\t');
        const std::size_t second = line.find('\t', first + 1);
        if (first == std::string::npos || second == std::string::npos ||
            !WriteValue(line.substr(0, first), line.substr(first + 1, second - first - 1),
                        line.substr(second + 1))) {
            std::cerr << list << ':' << number << ": cannot be written: " << line << '\n';
            return 1;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: ImportSettings STATION\n";
        return 2;
    }
    portable::UseStation(argv[1]);
    return Import(portable::StationFolder() / "registry.txt");
}
