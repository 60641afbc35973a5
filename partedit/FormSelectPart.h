#pragma once

#include "partedit/PartScanner.h"
#include "platform/UiTreeView.h"
#include "widgets/FormDialog.h"

#include <string>
#include <vector>

#include <wx/stopwatch.h>

class wxStaticText;

namespace nesk {

/// A dialog that shows the part programs of the repository or of a drive as a tree, to select one of them.
class FormSelectPart : public FormDialog, private PartScanVisitor {
public:
    explicit FormSelectPart(wxWindow* parent);
    ~FormSelectPart() override;

    /// Sets the part program to select as soon as the scan finds it, by the path of its partinfo.ini. It
    /// becomes the result only when the user confirms it.
    void SetCurrent(const std::string& partInfo) { m_current = partInfo; }

    /// Shows the dialog and reads the repository.
    /// @return path of the partinfo.ini of the part program that the user selected last, even when the dialog
    ///         was then cancelled; "" when a folder or nothing was selected
    std::string SelectPart();

    /// True while a scan is running.
    bool IsBusy() const { return m_busy; }

    // Controls.
    platform::TreeView* tvMain = nullptr; ///< the key of a part is the path of its partinfo.ini
    wxStaticText* lblProgress = nullptr;  ///< number of folders read
    wxButton* cmdSelectDrive = nullptr;

protected:
    void OnOK() override;
    void OnCancel() override;

private:
    void BuildRepository();
    void BuildTree(const std::string& path, const std::string& text);
    platform::TreeNode& StartTree(const std::string& text);
    void SelectDrive();
    void Choose(const platform::TreeNode* node);
    void Preselect(platform::TreeNode& part);
    void ListUnreadable();
    void Close(int result);
    void ShowProgress(std::size_t foldersRead);

    Node OnFolder(Node parent, const std::string& path, const std::string& name) override;
    void OnPart(Node parent, const std::string& path, const std::string& name,
                const std::string& partName) override;
    void OnUnreadable(const std::string& path, platform::ErrorCode code, std::uint32_t attributes) override;
    bool OnProgress(std::size_t foldersRead) override;

    std::string m_current;
    std::string m_startFolder; // the folder of the last scan
    std::string m_result;
    bool m_touched = false;         // true when the user has selected something since the scan began
    bool m_skipsUnreadable = false; // true when unreadable folders are reported only at the end of the scan
    std::vector<std::string> m_unreadable; // the messages to report then
    bool m_busy = false;
    bool m_cancelled = false;
    int m_closeResult = 0; // result of the dialog when it closes after a cancelled scan
    std::size_t m_foldersRead = 0;
    wxStopWatch m_sinceProgress;
    wxStopWatch m_sinceEvents;
};

} // namespace nesk
