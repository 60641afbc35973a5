#include "bench/ui/SamplePicture.h"

#include "bench/ui/Windows.h"

#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/mstream.h>

namespace nesk::bench {

std::string SamplePicture() {
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
    wxImage image(320, 240);
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x)
            image.SetRGB(x, y, static_cast<unsigned char>(x), static_cast<unsigned char>(y),
                         static_cast<unsigned char>(x * y));
    wxMemoryOutputStream stream;
    Demand(image.SaveFile(stream, wxBITMAP_TYPE_PNG), "no picture was made");
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

} // namespace nesk::bench
