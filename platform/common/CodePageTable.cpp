#include "platform/common/CodePageTable.h"

#include "platform/common/SystemCodePage.h"

#include <map>
#include <memory>
#include <mutex>

namespace nesk::platform::common {

CodePageTable::CodePageTable(int codePage) : m_codePage(codePage), m_codes(0x10000) {
    const std::unique_ptr<SystemCodePage> system = SystemCodePage::Open(codePage);
    // With an empty table, no byte from 0x80 up can be decoded. Such bytes are escaped, so nothing is lost.
    if (!system) return;
    const bool hasDoubles = system->HasDoubles();
    if (hasDoubles) m_doubles.resize(std::size_t{128} * 256);

    const auto add = [&](char16_t character, unsigned code) {
        if (character == 0 || m_codes[character] != 0) return;
        const std::uint16_t preferred = system->Encode(character);
        m_codes[character] = preferred != 0 ? preferred : static_cast<std::uint16_t>(code);
    };
    for (unsigned first = 0x80; first < 0x100; ++first) {
        std::array<char, 2> bytes{static_cast<char>(first), '\0'};
        if (!hasDoubles || !system->IsLead(static_cast<unsigned char>(first))) {
            m_singles[first] = system->Decode({bytes.data(), 1});
            add(m_singles[first], first);
            continue;
        }
        for (unsigned second = 0; second < 0x100; ++second) {
            bytes[1] = static_cast<char>(second);
            char16_t& character = m_doubles[(first - 0x80) * std::size_t{256} + second];
            character = system->Decode({bytes.data(), 2});
            add(character, first * 256 + second);
        }
    }
}

const CodePageTable& CodePageTable::Get(int codePage) {
    static std::mutex mutex;
    static std::map<int, std::unique_ptr<const CodePageTable>> tables;
    const int known = SystemCodePage::IsKnown(codePage) ? codePage : 1252;
    const std::lock_guard lock(mutex);
    std::unique_ptr<const CodePageTable>& table = tables[known];
    if (!table) table.reset(new CodePageTable(known));
    return *table;
}

} // namespace nesk::platform::common
