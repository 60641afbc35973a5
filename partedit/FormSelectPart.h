#pragma once

#include "partedit/PartScanner.h"
#include "shell/FormDialog.h"

#include <string>

#include <wx/stopwatch.h>
#include <wx/treebase.h>

class wxStaticText;
class wxTreeCtrl;
class wxTreeEvent;

namespace nesk {

/// Shows the part programs below the repository, or on a drive, as a tree and picks one.
class FormSelectPart : public FormDialog, private PartScanVisitor {
public:
    explicit FormSelectPart(wxWindow* parent);

    /// Shows the dialog and reads the repository.
    /// @return path of the partinfo.ini of the part program that was selected last, even when the dialog was
    ///         cancelled then; "" when a folder, or nothing, was
    std::string SelectPart();

    /// True while folders are being read.
    bool IsBusy() const { return m_busy; }

    // Controls.
    wxTreeCtrl* tvMain = nullptr;
    wxStaticText* lblProgress = nullptr; ///< number of folders read
    wxButton* cmdSelectDrive = nullptr;

protected:
    void OnOK() override;
    void OnCancel() override;

private:
    void BuildRepository();
    void BuildTree(const std::string& path, const wxString& text);
    wxTreeItemId StartTree(const wxString& text);
    void SelectDrive();
    void Choose(const wxTreeItemId& node);
    void Close(int result);
    void ShowProgress(std::size_t foldersRead);
    std::string TagOf(const wxTreeItemId& node) const;

    Node OnFolder(Node parent, const std::string& path, const std::string& name) override;
    void OnPart(Node parent, const std::string& path, const std::string& name) override;
    void OnUnreadable(const std::string& path, int code, std::uint32_t attributes) override;
    bool OnProgress(std::size_t foldersRead) override;

    std::string m_startFolder; // the folder under which the tree was built last
    std::string m_result;
    bool m_busy = false;
    bool m_cancelled = false;
    int m_closeResult = 0; // how the dialog closes when a scan that was called off has ended
    std::size_t m_foldersRead = 0;
    wxStopWatch m_sinceProgress;
    wxStopWatch m_sinceEvents;
};

} // namespace nesk
