#include "widgets/UiClipboard.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "widgets/UiUtilities.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

namespace nesk::Clipboard {

namespace {

NeskError Busy() {
    return {5000, "Clipboard", Message::ClipboardBusy};
}

} // namespace

void SetText(std::string_view text) {
    const wxClipboardLocker lock;
    if (!lock) throw Busy();
    if (!wxTheClipboard->SetData(new wxTextDataObject(modUtilities::ToWx(text)))) throw Busy();
    wxTheClipboard->Flush();
}

std::optional<std::string> Text() {
    const wxClipboardLocker lock;
    if (!lock) throw Busy();
    wxTextDataObject text;
    if (!wxTheClipboard->GetData(text)) return std::nullopt;
    return modUtilities::FromWx(text.GetText());
}

} // namespace nesk::Clipboard
