#pragma once

#include "platform/LetterCase.h"

#include <string>

namespace nesk {

class WindowMemory;

/// What new buttons for part programs get.
struct PartImportOptions {
    enum class Caption {
        PartName, ///< the name in partinfo.ini
        Folder,   ///< the name of the part's folder
    };

    Caption caption = Caption::PartName;
    platform::LetterCase letters = platform::LetterCase::Unchanged;

    /// Each folder becomes a submenu; otherwise all parts go into one.
    bool submenus = true;

    /// Patterns of picture files in the part's folder, separated by ";", in which "%part%" stands for the
    /// name of that folder. The first file in the order of names becomes the picture. "" for none.
    std::string pictures = "*.bmp;*.gif;*.jpg;*.png";

    /// Picture of parts that have none in their folder; "" for none.
    std::string defaultPicture;

    /// History directory, in which "%part%" stands for the name of the part's folder; "" for the history of
    /// the options. Parts with a directory get their caption as history title, made unique by a number.
    std::string historyDir;

    /// The part of the history directory that is the same for all parts: everything before the folder whose
    /// name contains "%part%". Without that name, the whole directory.
    std::string CommonHistoryDir() const;

    bool operator==(const PartImportOptions&) const = default;

    /// The options that were used last; the default for each that is missing.
    static PartImportOptions In(const WindowMemory& memory);

    /// Remembers the options.
    void PutInto(WindowMemory& memory) const;
};

} // namespace nesk
