#pragma once

class wxButton;
class wxString;

namespace nesk {

class FormPicture;

/// Binds the two buttons of a picture: one chooses a file, the other one removes the picture and can be
/// pressed as long as there is one.
void BindPictureButtons(FormPicture& picture, wxButton& select, wxButton& remove);

/// Gives a button an access key where its text marks none: the first letter of the text that equals `key`
/// without regard to case. A text without that letter is left alone.
void SetAccessKey(wxButton& button, char key);

} // namespace nesk
