#include "checking/UiRowModel.h"

#include "widgets/UiUtilities.h"

namespace nesk {

wxString UiRowModel::GetColumnType(unsigned column) const {
    return column == 0 && isTicked ? "bool" : "string";
}

void UiRowModel::GetValueByRow(wxVariant& value, unsigned row, unsigned column) const {
    if (column == 0 && isTicked)
        value = isTicked(row);
    else
        value = modUtilities::ToWx(text(row, column));
}

bool UiRowModel::SetValueByRow(const wxVariant& value, unsigned row, unsigned column) {
    if (column != 0 || !tick) return false;
    tick(row, value.GetBool());
    return true;
}

} // namespace nesk
