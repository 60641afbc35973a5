// What the main window does about unsaved changes that a killed editor left and about changes of the file by
// others.

#include "shell/FormMain.h"

#include "base/Messages.h"
#include "base/UnsavedMessages.h"
#include "platform/FileSystem.h"
#include "settings/VersionSettings.h"
#include "shell/FormFileNews.h"
#include "shell/FormMenuTree.h"
#include "shell/FormRecovery.h"
#include "shell/FormVersions.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "versions/SaveKeepingVersion.h"
#include "versions/VersionStore.h"

#include <optional>

#include <wx/dialog.h>
#include <wx/icon.h>

namespace nesk {

void FormMain::BuildRecovery() {
    m_recovery = std::make_unique<FormRecovery>(*this, m_editor);
    m_recovery->onTexts = [this] {
        ShowBar(ibUnsaved, m_recovery->Warning(), wxICON_WARNING);
        ShowBar(ibOthers, m_recovery->OthersText(), wxICON_INFORMATION);
    };
    m_fileNews = std::make_unique<FormFileNews>(*this, m_editor);
    m_fileNews->basePath = [this] { return m_recovery->BasePath(); };
    m_fileNews->onText = [this](const std::string& text) { ShowBar(ibFile, text, wxICON_INFORMATION); };
}

// Not while a caption or a field is edited: a change of the menu would end that. The next time, or a save,
// will do.
void FormMain::LookAtFile() {
    if (IsBeingDeleted() || !IsActive() || tvMain->View().Edited() != nullptr || IsEditingDetails()) return;
    try {
        m_recovery->LookForOthers();
        m_fileNews->Look();
    } catch (const NeskError& error) {
        ShowError(Message::CommandFailed, error);
    }
}

void FormMain::Versions() {
    if (!FinishLabelEdit()) return;
    FormVersions(this, m_editor).Invoke();
}

void FormMain::SaveWithVersion(const std::string& path, const SavePlan& plan) {
    const VersionSettings settings = VersionSettings::Read();
    VersionStore store(path, platform::StationFiles(),
                       {static_cast<std::size_t>(settings.newest), settings.days});
    const VersionStore::Kept kept = SaveKeepingVersion(m_editor, path, plan, store);
    ShowBar(ibFile,
            kept.error ? modStringRes::FormatResString(Message::VersionsNotKept,
                                                       modUtilities::MessageText(*kept.error), store.Folder())
                       : "",
            wxICON_WARNING);
}

} // namespace nesk
