#include "checking/Finding.h"

#include "base/ProblemMessages.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace nesk {

namespace {

// In bytes.
constexpr std::size_t LongestCaption = 60;

struct KindInfo {
    FindingKind kind = FindingKind::NoCaption;
    Severity severity = Severity::None;
    int messageId = 0;
    FixSet fixes{};
};

FixSet Fixes(std::initializer_list<Fix> fixes) {
    FixSet set;
    for (const Fix fix : fixes)
        set.set(static_cast<std::size_t>(fix));
    return set;
}

const KindInfo& InfoOf(FindingKind kind) {
    using Kind = FindingKind;
    static const FixSet rename = Fixes({Fix::Rename});
    static const FixSet edit = Fixes({Fix::Edit});
    static const FixSet file = Fixes({Fix::ChooseFile, Fix::Clear, Fix::Edit});
    static const FixSet missing = Fixes({Fix::ChooseFile, Fix::ChangeFolder, Fix::Clear, Fix::Edit});
    static const std::array<KindInfo, static_cast<std::size_t>(Kind::Count)> infos{{
        {Kind::NoCaption, Severity::Error, Message::ProblemNoCaption, rename},
        {Kind::DoubledCaption, Severity::Warning, Message::ProblemDoubledCaption, rename},
        {Kind::LongCaption, Severity::Hint, Message::ProblemLongCaption, rename},
        {Kind::EmptySubmenu, Severity::Warning, Message::ProblemEmptySubmenu, {}},
        {Kind::TooManyButtons, Severity::Hint, Message::ProblemTooManyButtons, {}},
        {Kind::NoProgram, Severity::Error, Message::ProblemNoProgram, Fixes({Fix::ChooseFile, Fix::Edit})},
        {Kind::ProgramIsPath, Severity::Warning, Message::ProblemProgramIsPath,
         Fixes({Fix::ChooseFile, Fix::Edit})},
        {Kind::FileMissing, Severity::Warning, Message::ProblemFileMissing, missing},
        {Kind::FileUnreadable, Severity::Warning, Message::ProblemFileUnreadable, missing},
        {Kind::NoPicture, Severity::Warning, Message::ProblemNoPicture, file},
        {Kind::PictureTooLarge, Severity::Warning, Message::ProblemPictureTooLarge, file},
        {Kind::FolderInsteadOfFile, Severity::Warning, Message::ProblemFolderInsteadOfFile, file},
        {Kind::FileInsteadOfFolder, Severity::Warning, Message::ProblemFileInsteadOfFolder, file},
        {Kind::FolderMissing, Severity::Warning, Message::ProblemFolderMissing,
         missing | Fixes({Fix::MakeFolder})},
        {Kind::FolderUnreadable, Severity::Warning, Message::ProblemFolderUnreadable, missing},
        {Kind::NoPartName, Severity::Error, Message::ProblemNoPartName, file},
        {Kind::TopicWithoutFile, Severity::Warning, Message::ProblemTopicWithoutFile, file},
        {Kind::SharedTitle, Severity::Warning, Message::ProblemSharedTitle, edit},
        {Kind::NotEncodable, Severity::Error, Message::ProblemNotEncodable, edit},
        {Kind::NotDecodable, Severity::Hint, Message::ProblemNotDecodable, edit},
    }};
    return infos[static_cast<std::size_t>(kind)];
}

} // namespace

std::string Finding::Text() const {
    // The caption is beside the text; a long one would push the rest out of sight.
    if (kind == FindingKind::LongCaption && !arguments.empty())
        return modStringRes::FormatResString(messageId,
                                             modUtilities::Shortened(arguments.front(), LongestCaption));
    modStringRes::Arguments values;
    std::copy_n(arguments.begin(), std::min(arguments.size(), values.size()), values.begin());
    return modStringRes::FormatResStringArray(messageId, values);
}

std::string Finding::FieldName() const {
    return field ? TextFieldName(*field) : "";
}

namespace FindingKinds {

Severity SeverityOf(FindingKind kind, std::optional<TextField> field) {
    const Severity severity = InfoOf(kind).severity;
    // It may be an identifier that only looks like a path.
    if (kind == FindingKind::ProgramIsPath) return severity;
    // Without its program, the button does not do its work.
    return field == TextField::Program && severity == Severity::Warning ? Severity::Error : severity;
}

int MessageOf(FindingKind kind) {
    return InfoOf(kind).messageId;
}

FixSet FixesOf(FindingKind kind, std::optional<TextField> field) {
    FixSet fixes = InfoOf(kind).fixes;
    const bool isText = kind == FindingKind::NotEncodable || kind == FindingKind::NotDecodable;
    if (isText && field == TextField::Caption) return Fixes({Fix::Rename});
    // A button without a program is the next problem.
    if (field == TextField::Program) fixes.reset(static_cast<std::size_t>(Fix::Clear));
    return fixes;
}

} // namespace FindingKinds

} // namespace nesk
