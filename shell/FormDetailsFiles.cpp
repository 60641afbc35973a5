// Picture files that are dropped on the small pictures of the details.

#include "base/FileDropMessages.h"
#include "checking/FileDrop.h"
#include "shell/FormDetails.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;

platform::FileDragEvents FormDetails::FileEvents(DetailField field) {
    platform::FileDragEvents events;
    events.over = [this, field](const std::vector<std::string>& paths, wxPoint) {
        return DragFiles(field, paths);
    };
    events.left = [this] {
        m_dragged.reset();
        MarkView(std::nullopt);
        if (on.dropText) on.dropText("");
    };
    events.dropped = [this, field](const std::vector<std::string>& paths, wxPoint) {
        DropFiles(field, paths);
    };
    return events;
}

bool FormDetails::DragFiles(DetailField field, const std::vector<std::string>& paths) {
    if (!m_dragged || m_dragged->Paths() != paths) m_dragged = std::make_unique<FileDrop>(paths);
    FileDrop::Effect effect = m_dragged->OnPictureBox();
    if (!m_details.ValueOf(field).isEnabled)
        effect = {FileDrop::Action::Refuse, modStringRes::LoadResString(Message::FileDropNoField)};
    const bool allowed = effect.action != FileDrop::Action::Refuse;
    MarkView(allowed ? std::optional(field) : std::nullopt);
    if (on.dropText) on.dropText(effect.text);
    return allowed;
}

void FormDetails::MarkView(std::optional<DetailField> field) {
    if (field == m_dropField) return;
    m_dropField = field;
    for (const Row& row : m_rows)
        if (row.view != nullptr) row.view->Refresh();
}

void FormDetails::DropFiles(DetailField field, const std::vector<std::string>& paths) {
    if (!Commit()) return;
    FileDrop drop(paths);
    {
        const wxBusyCursor busy;
        drop.LookNow();
    }
    const FileDrop::Effect effect = drop.OnPictureBox();
    std::string reason = effect.text;
    if (effect.action == FileDrop::Action::SetPicture) {
        try {
            m_details.Set(field, paths.front());
            return ShowValues();
        } catch (const NeskError& error) {
            reason = modUtilities::MessageText(error);
        }
    }
    modMessageBox::ShowMessage(FormatResString(Message::FileDropFailed, reason),
                               modMessageBox::Option::Critical);
}

} // namespace nesk
