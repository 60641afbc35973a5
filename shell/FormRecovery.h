#pragma once

#include "editing/MenuEditor.h"
#include "journal/MenuJournal.h"
#include "journal/OpenMark.h"
#include "journal/UnsavedChanges.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <wx/timer.h>

class wxWindow;

namespace nesk {

/// Keeps the unsaved changes of the main window's menu on disk, offers those that a killed editor left,
/// and tells who else has the menu open.
class FormRecovery : private MenuEditorListener {
public:
    /// @param window  in front of which dialogs are shown
    FormRecovery(wxWindow& window, MenuEditor& editor);
    ~FormRecovery() override;
    FormRecovery(const FormRecovery&) = delete;
    FormRecovery& operator=(const FormRecovery&) = delete;

    /// Offers the unsaved changes that a killed editor left of this menu, if there are any.
    void Offer();

    /// Removes the unsaved changes from the disk, because the user has given them up.
    void Discard() { m_journal.Discard(); }

    /// Path of a file with the menu before the unsaved changes, or "".
    std::string BasePath() const;

    /// What the user has to know; "" for nothing.
    const std::string& Warning() const { return m_warning; } ///< why unsaved changes are not kept
    std::string OthersText() const;                          ///< who else has the menu open

    /// Looks whether others have opened or closed the menu.
    void LookForOthers();

    /// Called when one of these texts has changed.
    std::function<void()> onTexts;

private:
    // What an offer is about. The menus are read when they are first needed.
    struct Offered;

    void OnMenuReplaced() override;
    void OnMenuEvent(const MenuEvent&) override {}
    void OnStateChanged() override;

    void Mark();
    bool Read(Offered& offered);
    void Look(Offered& offered);
    bool Restore(Offered& offered);
    bool MergeWithFile(Offered& offered);
    static void PutAside(const FoundJournal& found, int messageId);
    static void Tell(const std::string& text);

    wxWindow& m_window;
    MenuEditor& m_editor;
    JournalOptions m_options;
    MenuJournal m_journal;
    std::unique_ptr<OpenMark> m_mark;
    std::string m_markedPlace;
    std::string m_warning;
    wxTimer m_timer;
};

} // namespace nesk
