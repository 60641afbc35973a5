#include "unit/platform/StringLibrary.h"

namespace nesk::testing {

void WriteStringLibrary(TempStation& station, const std::string& windowsPath,
                        const std::map<std::uint16_t, std::string>& strings) {
    std::string lines = "NeskManager string table 1\n";
    for (const auto& [number, text] : strings)
        lines += std::to_string(number) + "\t" + text + "\n";
    station.Write(windowsPath, lines);
}

} // namespace nesk::testing
