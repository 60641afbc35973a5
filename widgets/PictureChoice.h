#pragma once

#include <string>

/// What the dialogs that choose a picture have in common.
namespace nesk::PictureChoice {

/// True when the path can name a picture file: it is not empty and does not end in "\".
bool NamesPicture(const std::string& path);

/// Where a picture is drawn inside its host, in pixels.
struct Placement {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Placement&) const = default;
};

/// Places a picture of natural size `width` x `height` in the middle of a host. Each side that is too long is
/// squeezed to the host's, by itself; a smaller picture is not enlarged.
Placement Place(int width, int height, int hostWidth, int hostHeight);

} // namespace nesk::PictureChoice
