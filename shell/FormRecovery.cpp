#include "shell/FormRecovery.h"

#include "base/Messages.h"
#include "base/UnsavedMessages.h"
#include "journal/JournalPlaces.h"
#include "menu/Menu.h"
#include "platform/UserFolder.h"
#include "shell/FormDifference.h"
#include "shell/FormMerge.h"
#include "shell/FormUnsaved.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "versions/FindVersion.h"
#include "versions/MenuDiff.h"
#include "versions/MenuMerge.h"
#include "versions/MenuUpdate.h"
#include "widgets/UiUtilities.h"

#include <array>
#include <ctime>
#include <utility>

#include <wx/datetime.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;

namespace {

// A power cut must not lose more than ten seconds of work.
constexpr int FlushMilliseconds = 5000;

// Who uses this program, for other users.
std::string OwnerName() {
    const std::string user = FromWx(wxGetUserId());
    const std::string computer = FromWx(wxGetHostName());
    return computer.empty() ? user : FormatResString(Message::UnsavedOwnerName, user, computer);
}

JournalOptions Options() {
    JournalOptions options;
    options.folder = platform::UserDataFolder();
    options.owner = OwnerName();
    return options;
}

// The time of today's changes, the date and the time of older ones.
std::string TimeText(const std::tm& time) {
    const wxDateTime then(time);
    return FromWx(then.IsSameDate(wxDateTime::Now()) ? then.Format("%H:%M") : then.Format("%x %H:%M"));
}

std::string QuestionText(const FoundJournal& found) {
    const std::string time = TimeText(found.time);
    return found.changes == 1 ? FormatResString(Message::UnsavedQuestionOne, time)
                              : FormatResString(Message::UnsavedQuestion, time, found.changes);
}

std::string NotesText(const FoundJournal& found, const std::string& owner) {
    std::string text;
    const auto add = [&text](const std::string& note) { text.append(text.empty() ? "" : "\n").append(note); };
    if (!found.owner.empty() && found.owner != owner)
        add(FormatResString(Message::UnsavedOwner, found.owner));
    if (!found.isOfThisFile) add(LoadResString(Message::UnsavedOtherFile));
    if (found.isDamaged) add(LoadResString(Message::UnsavedDamaged));
    return text;
}

} // namespace

struct FormRecovery::Offered {
    FoundJournal found;
    std::unique_ptr<Menu> base;
    RestoredMenu restored;
};

FormRecovery::FormRecovery(wxWindow& window, MenuEditor& editor)
    : m_window(window), m_editor(editor), m_options(Options()), m_journal(editor, m_options) {
    m_editor.AddListener(*this);
    m_journal.onFailure = [this](const NeskError& error) {
        m_warning = FormatResString(Message::UnsavedNotKept, modUtilities::MessageText(error));
        if (onTexts) onTexts();
    };
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        m_journal.Flush();
        if (m_journal.IsStopped()) m_journal.TryAgain();
        OnStateChanged();
    });
    m_timer.Start(FlushMilliseconds);
}

FormRecovery::~FormRecovery() {
    m_editor.RemoveListener(*this);
}

void FormRecovery::OnMenuReplaced() {
    Mark();
}

void FormRecovery::OnStateChanged() {
    Mark();
    if (m_warning.empty() || m_journal.IsStopped()) return;
    m_warning.clear();
    if (onTexts) onTexts();
}

// A save may have put the menu into another folder.
void FormRecovery::Mark() {
    const std::string& place = m_editor.Place();
    if (place == m_markedPlace) return;
    m_markedPlace = place;
    m_mark.reset();
    if (!place.empty()) m_mark = std::make_unique<OpenMark>(place, m_options.owner);
    if (onTexts) onTexts();
}

void FormRecovery::LookForOthers() {
    if (m_mark && m_mark->Refresh() && onTexts) onTexts();
}

std::string FormRecovery::OthersText() const {
    if (!m_mark || m_mark->Others().empty()) return "";
    std::string names;
    for (const std::string& other : m_mark->Others())
        names.append(names.empty() ? "" : ", ").append(other);
    return FormatResString(Message::OtherOpen, names);
}

std::string FormRecovery::BasePath() const {
    const std::string journal = m_journal.Path();
    return journal.empty() ? "" : JournalPlaces::BaseOf(journal);
}

void FormRecovery::Offer() {
    if (!m_editor.IsOpen()) return;
    Offered offered;
    {
        const wxBusyCursor busy;
        std::optional<FoundJournal> found = UnsavedChanges::Find(m_editor.Place(), m_options);
        if (!found) return;
        offered.found = *std::move(found);
    }
    if (offered.found.changes == 0) return PutAside(offered.found, Message::UnsavedUnreadable);
    for (;;) {
        FormUnsaved dialog(&m_window, QuestionText(offered.found), NotesText(offered.found, m_options.owner));
        switch (dialog.Invoke([&] { Look(offered); })) {
        case FormUnsaved::Answer::Restore:
            if (Restore(offered)) return Offer(); // others may have left some too
            break;
        case FormUnsaved::Answer::Discard:
            namespace Option
            = modMessageBox::Option;
            if (modMessageBox::ShowMessage(LoadResString(Message::UnsavedDiscardConfirm),
                                           Option::YesNo | Option::Question | Option::SecondDefault,
                                           LoadResString(Message::UnsavedTitle)) ==
                modMessageBox::Result::Yes) {
                static_cast<void>(UnsavedChanges::Remove(offered.found));
                return Offer();
            }
            break;
        case FormUnsaved::Answer::Later: return;
        }
    }
}

// Reads the menu to which the changes apply, and makes them in it. Says so when that is not possible.
bool FormRecovery::Read(Offered& offered) {
    if (offered.restored.menu) return true;
    const wxBusyCursor busy;
    const std::string& root = m_editor.OpenMenu()->RootDirectory();
    offered.base = UnsavedChanges::ReadBase(offered.found, root);
    if (!offered.base) offered.base = FindVersion(m_editor.Place(), offered.found.hash, root, {});
    if (!offered.base) return false;
    offered.restored = UnsavedChanges::RestoreInto(offered.found, *offered.base);
    return offered.restored.menu != nullptr;
}

void FormRecovery::Look(Offered& offered) {
    if (!Read(offered)) return Tell(LoadResString(Message::UnsavedNoBase));
    const MenuDiff difference(*offered.base, *offered.restored.menu);
    FormDifference(&m_window, difference,
                   FormatResString(Message::UnsavedHeading, TimeText(offered.found.time)))
        .Invoke();
}

// Returns false when the user has to decide again.
bool FormRecovery::Restore(Offered& offered) {
    const FoundJournal& found = offered.found;
    if (!Read(offered)) {
        PutAside(found, Message::UnsavedNoBaseKept);
        return true;
    }
    try {
        // The menu may have the changes of another editor already.
        if (found.isOfThisFile && !m_editor.IsDirty()) {
            const wxBusyCursor busy;
            UpdateOpenMenu(m_editor, *offered.restored.menu, {Message::UnsavedRestored, {}});
        } else if (!MergeWithFile(offered)) {
            return false;
        }
    } catch (const NeskError& error) {
        Tell(FormatResString(Message::UnsavedFailed, modUtilities::MessageText(error), found.path));
        return true;
    }
    if (found.isDamaged || offered.restored.isDamaged)
        PutAside(found, Message::UnsavedDamagedKept);
    else
        static_cast<void>(UnsavedChanges::Remove(found));
    return true;
}

bool FormRecovery::MergeWithFile(Offered& offered) {
    MenuMerge merge(*offered.base, *offered.restored.menu, *m_editor.OpenMenu());
    if (!FormMerge(&m_window, merge, *offered.base, *offered.restored.menu, *m_editor.OpenMenu()).Invoke())
        return false;
    const wxBusyCursor busy;
    UpdateOpenMenu(m_editor, *merge.Result(), {Message::UnsavedRestored, {}});
    return true;
}

void FormRecovery::PutAside(const FoundJournal& found, int messageId) {
    std::string kept;
    const bool isKept = UnsavedChanges::SetAside(found, kept) == platform::ErrorCode::Success;
    Tell(FormatResString(messageId, isKept ? kept : found.path));
}

void FormRecovery::Tell(const std::string& text) {
    modMessageBox::ShowMessage(text, modMessageBox::Option::Exclamation,
                               LoadResString(Message::UnsavedTitle));
}

} // namespace nesk
