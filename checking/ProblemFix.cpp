#include "checking/ProblemFix.h"

#include "base/ProblemMessages.h"
#include "checking/FieldEdit.h"
#include "editing/MenuEditor.h"
#include "menu/MenuEntry.h"
#include "partedit/PartReference.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace nesk::ProblemFix {

namespace {

// Fixes that are made for one entry at a time.
constexpr std::array SingleFixes{Fix::Rename, Fix::Edit, Fix::ChangeFolder};

} // namespace

FixSet FixesFor(const std::vector<Finding>& findings) {
    FixSet fixes;
    for (const Finding& finding : findings)
        fixes |= finding.fixes;
    const std::vector<Finding> files = Fitting(findings, Fix::ChooseFile);
    if (std::any_of(files.begin(), files.end(),
                    [&](const Finding& finding) { return finding.field != files.front().field; }))
        fixes.reset(static_cast<std::size_t>(Fix::ChooseFile));
    if (findings.size() > 1)
        for (const Fix fix : SingleFixes)
            fixes.reset(static_cast<std::size_t>(fix));
    return fixes;
}

std::vector<Finding> Fitting(const std::vector<Finding>& findings, Fix fix) {
    std::vector<Finding> fitting;
    std::copy_if(findings.begin(), findings.end(), std::back_inserter(fitting),
                 [fix](const Finding& finding) { return finding.fixes.test(static_cast<std::size_t>(fix)); });
    return fitting;
}

EntryIds EntriesOf(const std::vector<Finding>& findings) {
    EntryIds ids;
    const MenuEntry* last = nullptr;
    for (const Finding& finding : findings)
        if (finding.entry != last) ids.push_back((last = finding.entry)->ID());
    return ids;
}

bool Clear(MenuEditor& editor, const std::vector<Finding>& findings) {
    // The entries are found by their ids: the first change may move their texts.
    struct Field {
        std::string id;
        TextField field;
        bool isTopic;
    };
    std::vector<Field> fields;
    for (const Finding& finding : findings)
        if (finding.field)
            fields.push_back(
                {finding.entry->ID(), *finding.field, finding.kind == FindingKind::TopicWithoutFile});
    MenuEditor::Group group(editor, {Message::ChangeClearProblems, {std::to_string(fields.size())}},
                            fields.size());
    bool isChanged = false;
    for (const Field& field : fields) {
        const bool isCleared = field.isTopic ? FieldEdit::SetHelpTopic(editor, {field.id}, 0)
                                             : FieldEdit::Set(editor, {field.id}, field.field, "");
        isChanged = isChanged || isCleared;
    }
    group.Commit();
    return isChanged;
}

bool SetPath(MenuEditor& editor, const std::vector<Finding>& findings, const std::string& path) {
    if (findings.empty() || !findings.front().field) return false;
    const TextField field = *findings.front().field;
    const std::string text = field == TextField::Program ? PartReference::Make(path) : path;
    return FieldEdit::Set(editor, EntriesOf(findings), field, text);
}

std::string FolderOf(const Finding& finding) {
    if (!finding.field) return "";
    std::string path(FieldText(*finding.entry, *finding.field));
    if (*finding.field != TextField::HistoryDir) path = modUtilities::ParentFolder(path);
    while (path.ends_with('\\'))
        path.pop_back();
    return path;
}

void MakeFolders(const std::vector<Finding>& findings) {
    for (const Finding& finding : findings)
        if (finding.kind == FindingKind::FolderMissing)
            modUtilities::MakePath(std::string(FieldText(*finding.entry, *finding.field)));
}

} // namespace nesk::ProblemFix
