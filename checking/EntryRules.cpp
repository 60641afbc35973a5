#include "checking/EntryRules.h"

#include "menu/MenuItem.h"
#include "menu/MenuText.h"
#include "partedit/PartReference.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <cstdio>

namespace nesk::EntryRules {

namespace {

std::string_view Trimmed(std::string_view text) {
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

const MenuItem* PartOf(const MenuEntry& entry) {
    if (entry.ParentMenu() == nullptr) return nullptr;
    const auto& item = static_cast<const MenuItem&>(entry);
    return item.IsPart() ? &item : nullptr;
}

void AddCharacterProblem(std::string_view text, TextField field, std::vector<Problem>& problems) {
    if (MenuText::IsPlain(text)) return;
    if (!FirstNotDecodable(text).empty()) problems.push_back({FindingKind::NotDecodable, field});
    if (!platform::FirstNotEncodable(text).empty()) problems.push_back({FindingKind::NotEncodable, field});
}

} // namespace

FileUse UseOf(TextField field) {
    switch (field) {
    case TextField::Picture:
    case TextField::Preview: return FileUse::Picture;
    case TextField::Program: return FileUse::Part;
    case TextField::HistoryDir: return FileUse::Folder;
    default: return FileUse::File;
    }
}

std::string_view PathOf(const MenuEntry& entry, TextField field) {
    if (field == TextField::Picture) return entry.Graphic();
    const MenuItem* part = PartOf(entry);
    if (part == nullptr) return {};
    if (field == TextField::Program && !part->ProgramID().starts_with('@')) return {};
    return FieldText(entry, field);
}

void AddOwnProblems(const MenuEntry& entry, const CheckOptions& options, std::vector<Problem>& problems) {
    const std::string_view caption = Trimmed(entry.Caption());
    if (caption.empty()) problems.push_back({FindingKind::NoCaption, TextField::Caption});
    // The caption of the menu itself is a title and not on a button.
    else if (entry.ParentMenu() != nullptr && options.captionFits && !options.captionFits(caption))
        problems.push_back({FindingKind::LongCaption, TextField::Caption});

    const MenuItem* part = PartOf(entry);
    if (part == nullptr) {
        if (entry.ChildCount() == 0)
            problems.push_back({FindingKind::EmptySubmenu, std::nullopt});
        else if (options.buttonsPerScreen > 0 && entry.ChildCount() > options.buttonsPerScreen)
            problems.push_back({FindingKind::TooManyButtons, std::nullopt});
    } else {
        // Not the text of the field, which lacks the "@" of a reference.
        const std::string_view program = part->ProgramID();
        if (Trimmed(FieldText(entry, TextField::Program)).empty())
            problems.push_back({FindingKind::NoProgram, TextField::Program});
        else if (!program.starts_with('@') && PartReference::IsBarePath(std::string(program)))
            problems.push_back({FindingKind::ProgramIsPath, TextField::Program});
        if (part->HelpTopic() != 0 && Trimmed(part->HelpFile()).empty())
            problems.push_back({FindingKind::TopicWithoutFile, TextField::HelpFile});
    }
    for (const TextFieldInfo& info : TextFields())
        AddCharacterProblem(FieldText(entry, info.field), info.field, problems);
}

void AddFileProblem(TextField field, const FileFacts& facts, std::vector<Problem>& problems) {
    using State = FileFacts::State;
    const FileUse use = UseOf(field);
    const bool isFolder = use == FileUse::Folder;
    switch (facts.state) {
    case State::Missing:
        problems.push_back({isFolder ? FindingKind::FolderMissing : FindingKind::FileMissing, field});
        break;
    case State::Unreadable:
        problems.push_back({isFolder ? FindingKind::FolderUnreadable : FindingKind::FileUnreadable, field});
        break;
    case State::NoPicture: problems.push_back({FindingKind::NoPicture, field}); break;
    case State::TooLarge: problems.push_back({FindingKind::PictureTooLarge, field}); break;
    case State::WrongKind:
        problems.push_back(
            {isFolder ? FindingKind::FileInsteadOfFolder : FindingKind::FolderInsteadOfFile, field});
        break;
    case State::Good:
        if (use == FileUse::Part && facts.partName.empty())
            problems.push_back({FindingKind::NoPartName, field});
        break;
    }
}

std::uint64_t KeyOf(std::string_view text) {
    text = Trimmed(text);
    if (text.empty()) return 0;
    // FNV-1a with 64 bits, so that different texts practically never have the same number.
    std::uint64_t hash = 0xCBF29CE484222325;
    const auto add = [&hash](std::string_view upper) {
        for (const char c : upper)
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    };
    if (MenuText::IsPlain(text)) {
        for (char c : text) {
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
            add({&c, 1});
        }
    } else {
        add(platform::ToUpper(text));
    }
    return hash != 0 ? hash : 1;
}

std::string FirstNotDecodable(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = platform::Utf8Length(text);
        if (length == 0) return "";
        const char32_t character = platform::Utf8Decode(text.substr(0, length));
        text.remove_prefix(length);
        if (character < platform::EscapeBase + 0x80 || character > platform::EscapeBase + 0xFF) continue;
        std::array<char, 3> hex{};
        std::snprintf(hex.data(), hex.size(), "%02X", static_cast<unsigned>(character & 0xFF));
        return hex.data();
    }
    return "";
}

} // namespace nesk::EntryRules
