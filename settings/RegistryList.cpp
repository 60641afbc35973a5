#include "settings/RegistryList.h"

#include "base/NeskError.h"
#include "platform/ErrorCode.h"
#include "platform/TextEncoding.h"
#include "settings/RegEntry.h"
#include "settings/RegistryListEditor.h"
#include "shell/modUtilities.h"

#include <utility>

namespace nesk {

RegistryList::RegistryList(std::string parentKey) : m_parentKey(std::move(parentKey)) {
    try {
        Read();
    } catch (const NeskError& error) {
        // A partial list would look like a complete one.
        m_names.clear();
        m_displayNames.clear();
        modUtilities::ReportError(error);
    }
}

void RegistryList::Read() {
    RegEntry entry;
    // When this program edits the list, a missing key means an empty list.
    if (RegistryListEditor::MayEdit() && !entry.TestKey(m_parentKey) &&
        entry.LastResult() == platform::ErrorCode::FileNotFound)
        return;
    entry.OpenKey(m_parentKey);
    entry.Query(m_names);
    for (const std::string& name : m_names) {
        entry.OpenKey(m_parentKey + "\\" + name);
        m_displayNames.push_back(entry.GetString("Name"));
    }
}

std::string RegistryList::KeyAt(int position) const {
    if (position < 0 || static_cast<std::size_t>(position) >= m_names.size()) return "";
    return m_parentKey + "\\" + m_names[static_cast<std::size_t>(position)];
}

int RegistryList::PositionOf(const std::string& key) const {
    const auto count = static_cast<int>(m_names.size());
    for (int position = 0; position < count; ++position)
        if (platform::EqualNoCase(KeyAt(position), key)) return position;
    return -1;
}

} // namespace nesk
