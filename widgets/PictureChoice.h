#pragma once

#include <string>

/// Rules shared by the dialogs that choose a picture.
namespace nesk::PictureChoice {

/// True when the path can name a picture file: it is not empty and does not end in "\".
bool IsPictureName(const std::string& path);

/// The rectangle of a picture inside its host, in pixels.
struct Placement {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Placement&) const = default;
};

/// Places a picture of natural size `width` x `height` in the middle of a host. Each side that is too long is
/// shrunk to the host's side independently. A smaller picture is not enlarged.
Placement Place(int width, int height, int hostWidth, int hostHeight);

} // namespace nesk::PictureChoice
