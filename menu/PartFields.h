#pragma once

#include <cstdint>
#include <string>

namespace nesk {

class MenuItem;

/// What the part editor changes of a part button.
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

/// The fields that an item has now.
PartFields PartFieldsOf(const MenuItem& item);

/// Raises 5000 when one of the texts that differ from `before` cannot be stored in a menu file. A text that
/// came from a file is kept as it is, whatever it holds.
void CheckPartFields(const PartFields& fields, const PartFields& before);

/// Gives an item these fields.
void ApplyPartFields(MenuItem& item, const PartFields& fields);

} // namespace nesk
