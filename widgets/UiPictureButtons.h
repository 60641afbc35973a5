#pragma once

class wxButton;
class wxString;

namespace nesk {

class FormPicture;

/// Binds the two buttons of a picture. One chooses a file. The other removes the picture, and is enabled
/// while there is a picture.
void BindPictureButtons(FormPicture& picture, wxButton& select, wxButton& remove);

/// Sets an access key for a button whose text has none: the first letter of the text that equals `key`
/// without regard to case. A text without that letter is left unchanged.
void SetAccessKey(wxButton& button, char key);

} // namespace nesk
