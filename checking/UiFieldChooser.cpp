#include "checking/UiFieldChooser.h"

#include "base/Messages.h"
#include "partedit/FormBrowse.h"
#include "partedit/FormSelectPart.h"
#include "partedit/HelpFileChoice.h"
#include "partedit/HistoryChoice.h"
#include "platform/OpenFileDialog.h"
#include "settings/NeskRegistry.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

namespace nesk {

using modStringRes::LoadResString;

namespace {

std::string ChoosePart(wxWindow* parent, const std::string& now) {
    FormSelectPart dialog(parent);
    dialog.SetCurrent(now);
    const std::string chosen = dialog.SelectPart();
    // The dialog tells a part that was clicked even after Cancel. Here nothing follows in which the user
    // could take that back.
    return dialog.GetReturnCode() == wxID_OK ? chosen : "";
}

std::string ChooseHelpFile(wxWindow* parent, const std::string& now) {
    const std::string folder = HelpFileChoice::BrowseFolder(now, HelpFileChoice::DefaultFolder());
    return platform::ShowOpenFileDialog(parent, {LoadResString(Message::HelpFileChooseTitle), folder, now,
                                                 LoadResString(Message::HelpFileFilter)});
}

std::string ChoosePicture(wxWindow* parent, const std::string& now) {
    const std::string folder =
        modUtilities::ExistingFolderOf(now, NeskRegistry::Instance().DefaultBitmapDirectory);
    return platform::ShowOpenFileDialog(parent,
                                        {LoadResString(Message::PictureChoosePictureTitle), folder, now, ""});
}

} // namespace

std::string ChooseFieldPath(wxWindow* parent, TextField field, const std::string& now) {
    switch (field) {
    case TextField::Program: return ChoosePart(parent, now);
    case TextField::Picture:
    case TextField::Preview: return ChoosePicture(parent, now);
    case TextField::HelpFile: return ChooseHelpFile(parent, now);
    case TextField::HistoryDir:
        return FormBrowse(parent).Invoke(LoadResString(Message::HistoryBrowsePrompt),
                                         HistoryChoice::BrowseFolder(now));
    default: return "";
    }
}

} // namespace nesk
