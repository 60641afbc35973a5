#include "behaviour/Table.h"

#include <iostream>

namespace nesk::behaviour {

void Table::Add(std::string_view name, const std::string& answer) {
    m_out << name << '\t' << Shown(answer) << '\n';
}

void Table::AddDocumented(std::string_view name, const std::string& answer, const std::string& documented,
                          std::string_view why) {
    if (m_isWine) return Add(name, documented);
    if (answer != documented) {
        ++m_failures;
        std::cerr << name << ": the answer is " << Shown(answer) << ", documented is " << Shown(documented)
                  << " (" << why << ")\n";
    }
    Add(name, answer);
}

std::string Shown(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F && c != '\\')
            text += c;
        else
            text.append(1, '\\').append(1, digits[byte >> 4U]).append(1, digits[byte & 15U]);
    }
    return text;
}

} // namespace nesk::behaviour
