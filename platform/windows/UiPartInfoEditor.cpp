#include "platform/PartInfoEditor.h"

#include "platform/windows/PartInfoObject.h"

#include <wx/utils.h>

namespace nesk::platform {

namespace {

windows::PartInfoObject& SharedObject() {
    static windows::PartInfoObject object(L"NeskMonitor.EditPIF");
    return object;
}

} // namespace

std::string PartInfoEditorName() {
    return "NeskMonitor.EditPIF";
}

PartInfoResult EditPartInfo(const std::string& partFolder, const std::string& iniPath,
                            std::int32_t languageId) {
    const wxBusyCursor busy;
    // While the call waits, messages for this program's windows are still handled.
    const wxWindowDisabler noInput;
    return SharedObject().Edit(partFolder, iniPath, languageId);
}

void ReleasePartInfoEditor() {
    SharedObject().Release();
}

} // namespace nesk::platform
