#include "checking/EntryDetails.h"

#include "base/Messages.h"
#include "checking/FieldEdit.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "partedit/HelpFileChoice.h"
#include "partedit/HistoryChoice.h"
#include "partedit/PartReference.h"
#include "shell/FieldMessage.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>

namespace nesk {

namespace {

// The text field that a detail shows; nothing for the help topic.
std::optional<TextField> TextFieldOf(DetailField field) {
    switch (field) {
    case DetailField::Caption: return TextField::Caption;
    case DetailField::Program: return TextField::Program;
    case DetailField::Picture: return TextField::Picture;
    case DetailField::Preview: return TextField::Preview;
    case DetailField::HelpFile: return TextField::HelpFile;
    case DetailField::HistoryDir: return TextField::HistoryDir;
    case DetailField::HistoryTitle: return TextField::HistoryTitle;
    default: return std::nullopt;
    }
}

std::string TextOf(const MenuEntry& entry, DetailField field) {
    if (const std::optional<TextField> text = TextFieldOf(field)) return FieldEdit::Stored(entry, *text);
    return std::to_string(static_cast<const MenuItem&>(entry).HelpTopic());
}

bool HasField(const MenuEntry& entry, DetailField field) {
    // The help topic is where the help file is.
    return FieldEdit::Has(entry, TextFieldOf(field).value_or(TextField::HelpFile));
}

} // namespace

DetailField DetailFieldOf(TextField field) {
    for (std::size_t i = 0; i < DetailFieldCount; ++i)
        if (TextFieldOf(static_cast<DetailField>(i)) == field) return static_cast<DetailField>(i);
    return DetailField::Caption;
}

DetailValue EntryDetails::ValueOf(DetailField field) const {
    const bool isForOne = field == DetailField::Caption || field == DetailField::HistoryTitle;
    if (m_ids.empty() || (isForOne && m_ids.size() > 1)) return {};
    DetailValue value;
    for (const std::string& id : m_ids) {
        const MenuEntry* entry = m_editor.Find(id);
        if (entry == nullptr || !HasField(*entry, field)) return {};
        std::string text = TextOf(*entry, field);
        if (!value.isEnabled)
            value = {true, false, std::move(text)};
        else if (value.text != text && !value.differs)
            value.differs = true;
    }
    if (value.differs) value.text.clear();
    return value;
}

std::optional<EntryDetails::Refusal> EntryDetails::WhyNot(DetailField field, const std::string& text) const {
    if (field == DetailField::HistoryDir) {
        // Without a directory, the default of the settings is used.
        if (modUtilities::Trim(text).empty() || HistoryChoice::IsDirectory(text)) return std::nullopt;
        return Refusal{FieldMessage::Text(Message::HistoryFolder),
                       FieldMessage::FolderReason(modUtilities::Trim(text))};
    }
    if (field != DetailField::HistoryTitle || HistoryChoice::IsTitle(text)) return std::nullopt;
    const bool hasDirectory = std::any_of(m_ids.begin(), m_ids.end(), [this](const std::string& id) {
        const MenuEntry* entry = m_editor.Find(id);
        return entry != nullptr && !FieldEdit::Stored(*entry, TextField::HistoryDir).empty();
    });
    if (!hasDirectory) return std::nullopt;
    return Refusal{FieldMessage::Text(Message::HistoryTitle),
                   modStringRes::LoadResString(Message::HistoryNoTitle)};
}

bool EntryDetails::Set(DetailField field, const std::string& text) {
    switch (field) {
    case DetailField::Program:
        return FieldEdit::Set(m_editor, m_ids, TextField::Program, PartReference::FromTyped(text));
    case DetailField::HelpTopic:
        return FieldEdit::ChangeParts(m_editor, m_ids, [&](const MenuItem&, PartFields& fields) {
            fields.helpTopic = HelpFileChoice::Topic(text, fields.helpTopic);
        });
    case DetailField::HistoryDir:
        return FieldEdit::ChangeParts(m_editor, m_ids, [&](const MenuItem& part, PartFields& fields) {
            fields.historyDir = modUtilities::Trim(text);
            if (!fields.historyDir.empty())
                fields.historyTitle =
                    HistoryChoice::TitleToShow(fields.historyTitle, std::string(part.Caption()));
        });
    case DetailField::HistoryTitle:
        return FieldEdit::Set(m_editor, m_ids, TextField::HistoryTitle, modUtilities::Trim(text));
    default: return FieldEdit::Set(m_editor, m_ids, *TextFieldOf(field), text);
    }
}

bool EntryDetails::SetHelp(const std::string& file, std::int32_t topic) {
    return FieldEdit::ChangeParts(m_editor, m_ids, [&](const MenuItem&, PartFields& fields) {
        fields.helpFile = file;
        fields.helpTopic = topic;
    });
}

bool EntryDetails::SetHistory(const std::string& directory, const std::string& title) {
    return FieldEdit::ChangeParts(m_editor, m_ids, [&](const MenuItem&, PartFields& fields) {
        fields.historyDir = directory;
        fields.historyTitle = title;
    });
}

} // namespace nesk
