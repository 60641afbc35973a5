#pragma once

#include "widgets/FormDialog.h"

#include <functional>
#include <memory>
#include <string>

#include <wx/timer.h>

class wxHtmlWindow;

namespace nesk {

class MenuCheck;
class MenuEditor;
class UiReportPages;

/// Shows a report about the open menu, saves it as a page for browsers, and prints it.
class FormReport : public FormDialog {
public:
    /// @param editor  with an open menu
    /// @param check   of that menu; both must outlive the dialog
    FormReport(wxWindow* parent, const MenuEditor& editor, const MenuCheck& check);
    ~FormReport() override;

    /// Shows the window, makes the report in it, and returns when the user has closed it.
    /// @param prepare  called before the report is made; may be null
    void Invoke(std::function<void()> prepare = nullptr);

    /// True when the report is shown.
    bool IsMade() const { return m_isMade; }

    // Controls.
    wxHtmlWindow* htmReport = nullptr;
    wxButton* cmdPages = nullptr;
    wxButton* cmdPrint = nullptr;

protected:
    /// Saves the report.
    void OnOK() override;

private:
    class Pictures;

    enum class Target { Window, File, Paper };

    std::string Page(Target target);
    void OnPages();
    void OnPrint();
    UiReportPages& Printing();

    void MakePage();

    const MenuEditor& m_editor;
    const MenuCheck& m_check;
    std::function<void()> m_prepare;
    wxTimer m_makeTimer;
    bool m_isMade = false;
    std::unique_ptr<Pictures> m_pictures;
    std::unique_ptr<UiReportPages> m_printing;
};

} // namespace nesk
