#include "checking/TextFields.h"

#include "base/Messages.h"
#include "menu/MenuItem.h"
#include "shell/FieldMessage.h"
#include "shell/modStringRes.h"

namespace nesk {

namespace {

constexpr std::array<TextFieldInfo, TextFieldCount> Fields{{
    {TextField::Caption, Message::FieldCaption},
    {TextField::Program, Message::FieldProgram},
    {TextField::Picture, Message::FieldPicture},
    {TextField::Preview, Message::FieldPreview},
    {TextField::HelpFile, Message::FieldHelpFile},
    {TextField::HistoryDir, Message::FieldHistoryDir},
    {TextField::HistoryTitle, Message::FieldHistoryTitle},
}};

std::string_view ProgramText(std::string_view program) {
    if (!program.starts_with('@')) return program;
    program.remove_prefix(1);
    return program.substr(0, program.find('@'));
}

} // namespace

const std::array<TextFieldInfo, TextFieldCount>& TextFields() {
    return Fields;
}

std::string TextFieldName(TextField field) {
    return FieldMessage::PlainLabel(
        modStringRes::LoadResString(Fields[static_cast<std::size_t>(field)].nameId));
}

std::string_view FieldText(const MenuEntry& entry, TextField field) {
    if (field == TextField::Caption) return entry.Caption();
    if (field == TextField::Picture) return entry.Graphic();
    // The topmost entry has only these two.
    if (entry.ParentMenu() == nullptr) return {};
    const auto& item = static_cast<const MenuItem&>(entry);
    switch (field) {
    case TextField::Program: return ProgramText(item.ProgramID());
    case TextField::Preview: return item.Preview();
    case TextField::HelpFile: return item.HelpFile();
    case TextField::HistoryDir: return item.HistoryDir();
    case TextField::HistoryTitle: return item.HistoryTitle();
    default: return {};
    }
}

} // namespace nesk
