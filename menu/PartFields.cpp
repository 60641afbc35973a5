#include "menu/PartFields.h"

#include "menu/MenuItem.h"
#include "menu/MenuText.h"

namespace nesk {

PartFields PartFieldsOf(const MenuItem& item) {
    PartFields fields;
    fields.graphic = item.Graphic();
    fields.preview = item.Preview();
    fields.programId = item.ProgramID();
    fields.helpFile = item.HelpFile();
    fields.helpTopic = item.HelpTopic();
    fields.historyDir = item.HistoryDir();
    fields.historyTitle = item.HistoryTitle();
    return fields;
}

void CheckPartFields(const PartFields& fields, const PartFields& before) {
    for (const auto text : {&PartFields::graphic, &PartFields::preview, &PartFields::programId,
                            &PartFields::helpFile, &PartFields::historyDir, &PartFields::historyTitle})
        MenuText::CheckChange(fields.*text, before.*text, "MenuItem.Edit");
}

void ApplyPartFields(MenuItem& item, const PartFields& fields) {
    item.SetGraphic(fields.graphic);
    item.SetPreview(fields.preview);
    item.SetProgramID(fields.programId);
    item.SetHelpFile(fields.helpFile);
    item.SetHelpTopic(fields.helpTopic);
    item.SetHistoryDir(fields.historyDir);
    item.SetHistoryTitle(fields.historyTitle);
}

} // namespace nesk
