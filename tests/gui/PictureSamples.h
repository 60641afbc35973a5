#pragma once

#include <string>

#include <wx/colour.h>
#include <wx/image.h>

namespace nesk::testing {

/// The bytes of a picture file of one colour.
std::string PictureSample(int width, int height, const wxColour& colour = *wxRED,
                          wxBitmapType type = wxBITMAP_TYPE_PNG);

} // namespace nesk::testing
