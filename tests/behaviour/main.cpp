// Writes the table of this station's answers. Usage: behaviour_table [FILE]

#include "behaviour/Table.h"
#include "platform/TextEncoding.h"

#include <fstream>
#include <iostream>
#ifdef _WIN32
#include <windows.h>
#endif

namespace {

bool IsWine() {
#ifdef _WIN32
    return ::GetProcAddress(::GetModuleHandleW(L"ntdll"), "wine_get_version") != nullptr;
#else
    return false;
#endif
}

} // namespace

int main(int argc, char** argv) {
    std::ofstream file;
    // Binary mode, so that line ends are the same everywhere.
    if (argc > 1) file.open(argv[1], std::ios::binary);
    if (argc > 1 && !file) {
        std::cerr << "behaviour_table: cannot write " << argv[1] << '\n';
        return 2;
    }
    nesk::platform::SelectCodePage(1033);
    nesk::behaviour::Table table(argc > 1 ? file : std::cout, IsWine());
    nesk::behaviour::AddRegistryCases(table);
    nesk::behaviour::AddProfileCases(table);
    nesk::behaviour::AddStringCases(table);
    nesk::behaviour::AddPathCases(table);
    return table.Failures() == 0 ? 0 : 1;
}
