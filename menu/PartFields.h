#pragma once

#include <cstdint>
#include <string>

namespace nesk {

class MenuItem;

/// The fields of a part button that the part editor can change.
struct PartFields {
    std::string graphic;
    std::string preview;
    std::string programId;
    std::string helpFile;
    std::int32_t helpTopic = 0;
    std::string historyDir;
    std::string historyTitle;

    bool operator==(const PartFields&) const = default;
};

/// Gets the fields of an item.
PartFields PartFieldsOf(const MenuItem& item);

/// Raises 5000 when a text that differs from `before` cannot be stored in a menu file. A text that came from
/// a file is accepted whatever it contains, because it is kept unchanged.
void CheckPartFields(const PartFields& fields, const PartFields& before);

/// Sets the fields of an item.
void ApplyPartFields(MenuItem& item, const PartFields& fields);

} // namespace nesk
