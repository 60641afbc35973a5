#pragma once

#include <vector>

class wxButton;

namespace nesk {

class FormPicture;

/// Binds the two buttons of a picture. One chooses a file. The other removes the picture, and is enabled
/// while there is a picture.
void BindPictureButtons(FormPicture& picture, wxButton& select, wxButton& remove);

/// Sets the access keys of buttons whose captions have none, as the same caption stands at several buttons:
/// the first letter of the caption that equals the key without regard to case. A caption without that letter
/// gets it at its end, in brackets.
/// @param keysId  number of the text with one letter for each button
void SetAccessKeys(const std::vector<wxButton*>& buttons, int keysId);

} // namespace nesk
