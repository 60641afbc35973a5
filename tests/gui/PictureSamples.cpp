#include "gui/PictureSamples.h"

#include <gtest/gtest.h>

#include <wx/imagjpeg.h>
#include <wx/imagpng.h>
#include <wx/mstream.h>

namespace nesk::testing {

std::string PictureSample(int width, int height, const wxColour& colour, wxBitmapType type) {
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
    if (wxImage::FindHandler(wxBITMAP_TYPE_JPEG) == nullptr) wxImage::AddHandler(new wxJPEGHandler);
    wxImage image(width, height);
    image.SetRGB(wxRect(0, 0, width, height), colour.Red(), colour.Green(), colour.Blue());
    wxMemoryOutputStream stream;
    EXPECT_TRUE(image.SaveFile(stream, type));
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

} // namespace nesk::testing
