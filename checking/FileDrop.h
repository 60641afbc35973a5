#pragma once

#include "checking/FileLookup.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace nesk {

class MenuEntry;

/// Files that are dragged from the system's file manager, and what a drop of them does. While they are
/// dragged, workers look at them, so that a share that does not answer holds up no window. Until the answer
/// comes, a name decides.
class FileDrop {
public:
    /// @param paths  Windows paths of the files and folders
    explicit FileDrop(std::vector<std::string> paths,
                      std::shared_ptr<FileInspector> inspector = StationInspector());

    const std::vector<std::string>& Paths() const { return m_paths; }

    enum class Action {
        Refuse,
        SetPicture, ///< the only path is the picture of the entry or of the box
        AddParts,   ///< the part programs in and below the paths are added to the entry
        Look        ///< nothing is known about a file yet: the drop is allowed, and decides
    };

    /// What a drop does, or why it is refused.
    struct Effect {
        Action action = Action::Refuse;
        std::string text; ///< for the user
    };

    /// The effect of a drop on an entry.
    /// @param isOnEntry  false beside the entries of a submenu or of the root. A picture is refused there: it
    ///                   has to be dropped on the entry that it is for
    Effect At(const MenuEntry& entry, bool isOnEntry = true);

    /// The effect of a drop on a box that shows one picture.
    Effect OnPictureBox();

    /// Looks at the files now, which may take as long as the system needs. Afterwards no effect is Look.
    void LookNow();

private:
    enum class Kind { Unknown, Picture, Parts, Refused };
    struct Found {
        Kind kind = Kind::Unknown;
        int refusal = 0; ///< message number, when refused
    };

    Found LookUp(const std::string& path) const;
    static Found Judge(const std::string& path, const FileFacts* facts);
    Effect EffectOn(const MenuEntry* entry, bool takesPicture, bool takesParts);
    Effect Refusal(int messageId, const std::string& argument = "") const;
    Effect PictureEffect(const MenuEntry* entry) const;
    Effect PartsEffect(const MenuEntry& entry) const;
    std::string Shown(const std::string& path) const;

    std::vector<std::string> m_paths;
    std::shared_ptr<FileInspector> m_inspector;
    FileLookup m_lookup;
    std::map<std::string, FileFacts> m_facts; // after LookNow
    bool m_isLooked = false;
};

} // namespace nesk
