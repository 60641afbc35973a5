#pragma once

#include "editing/MenuChange.h"
#include "versions/EntryFields.h"

namespace nesk {

/// Changes all fields of an entry: of the root its caption and picture, of an item also its type.
class FieldsChange final : public SingleChange {
public:
    FieldsChange(std::string id, EntryFields::Values fields);
    std::size_t Bytes() const override;

protected:
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_id;
    EntryFields::Values m_other; // the new fields before the change is made, the old ones afterwards
};

} // namespace nesk
