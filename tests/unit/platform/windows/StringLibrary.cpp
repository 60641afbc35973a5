#include "unit/platform/StringLibrary.h"

#include "platform/FileSystem.h"
#include "platform/windows/WideText.h"

#include <stdexcept>
#include <windows.h>

namespace nesk::testing {

namespace {

// A string table consists of blocks of 16 strings, each preceded by its length.
constexpr std::uint16_t BlockSize = 16;

std::map<std::uint16_t, std::wstring> Blocks(const std::map<std::uint16_t, std::string>& strings) {
    std::map<std::uint16_t, std::wstring> blocks;
    for (const auto& entry : strings)
        blocks[entry.first / BlockSize].clear();
    for (auto& [block, content] : blocks) {
        for (unsigned i = 0; i < BlockSize; ++i) {
            const auto found = strings.find(static_cast<std::uint16_t>(block * BlockSize + i));
            const std::wstring text =
                found != strings.end() ? platform::windows::ToWide(found->second) : std::wstring();
            content += static_cast<wchar_t>(text.size());
            content += text;
        }
    }
    return blocks;
}

} // namespace

void WriteStringLibrary(TempStation& station, const std::string& windowsPath,
                        const std::map<std::uint16_t, std::string>& strings) {
    // A copy of one of the program's own libraries with its strings replaced.
    station.Write(windowsPath, "");
    const std::wstring library = platform::windows::ToWide(windowsPath);
    const std::wstring own = platform::windows::ToWide(platform::ProgramFolder() + "\\ENU32000.DLL");
    bool done = ::CopyFileW(own.c_str(), library.c_str(), FALSE) != 0;
    const HANDLE update = ::BeginUpdateResourceW(library.c_str(), TRUE);
    done = done && update != nullptr;
    for (auto& [block, content] : Blocks(strings)) {
        std::wstring bytes = content;
        done = done && ::UpdateResourceW(update, RT_STRING, MAKEINTRESOURCEW(block + 1),
                                         MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), bytes.data(),
                                         static_cast<DWORD>(bytes.size() * sizeof(wchar_t))) != 0;
    }
    if (!done || ::EndUpdateResourceW(update, FALSE) == 0)
        throw std::runtime_error("the test cannot write " + windowsPath);
}

} // namespace nesk::testing
