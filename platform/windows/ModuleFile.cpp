#include "platform/windows/ModuleFile.h"

#include "platform/windows/Handle.h"

#include <cstdint>

namespace nesk::platform::windows {

namespace {

// Reads a structure of the system from a file.
template <typename Piece>
bool ReadAt(const Handle& file, std::uint64_t offset, Piece& piece) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD size = 0;
    return ::ReadFile(file.Get(), &piece, sizeof piece, &size, &place) != 0 && size == sizeof piece;
}

struct Headers {
    DWORD signature;
    IMAGE_FILE_HEADER file;
};

} // namespace

bool IsWholeModule(const std::wstring& path) {
    const Handle file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size{};
    if (!file || ::GetFileType(file.Get()) != FILE_TYPE_DISK || ::GetFileSizeEx(file.Get(), &size) == 0)
        return false;
    const auto end = static_cast<std::uint64_t>(size.QuadPart);
    IMAGE_DOS_HEADER start{};
    if (!ReadAt(file, 0, start) || start.e_magic != IMAGE_DOS_SIGNATURE || start.e_lfanew < 0) return false;
    auto offset = static_cast<std::uint64_t>(start.e_lfanew);
    Headers headers{};
    if (!ReadAt(file, offset, headers) || headers.signature != IMAGE_NT_SIGNATURE) return false;
    offset += sizeof headers + headers.file.SizeOfOptionalHeader;
    for (WORD i = 0; i < headers.file.NumberOfSections; ++i) {
        IMAGE_SECTION_HEADER section{};
        if (!ReadAt(file, offset, section)) return false;
        if (std::uint64_t{section.PointerToRawData} + section.SizeOfRawData > end) return false;
        offset += sizeof section;
    }
    return true;
}

} // namespace nesk::platform::windows
