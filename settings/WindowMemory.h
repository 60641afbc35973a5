#pragma once

#include <map>
#include <optional>
#include <string>

namespace nesk {

/// What windows remember from one run to the next: sizes, places, shown panes, widths of columns. Each is a
/// text value of the registry key NeskManager. Failures of the registry are ignored: a window that forgets
/// its place must not disturb the user.
class WindowMemory {
public:
    /// Reads all values. There are none when the key is missing or cannot be read.
    void Load();

    /// A number that is remembered; nothing when the value is missing or not a whole number of 32 bits.
    std::optional<int> Number(const std::string& name) const;

    /// A switch that is remembered; `otherwise` when the value is missing or neither "true" nor "false".
    bool Flag(const std::string& name, bool otherwise) const;

    /// A text that is remembered; nothing when the value is missing.
    std::optional<std::string> Text(const std::string& name) const;

    void SetNumber(const std::string& name, int value);

    /// An empty text is forgotten. So is one that cannot be stored in the station's code page.
    void SetText(const std::string& name, const std::string& value);

    /// @param otherwise  the value that Flag has without a stored one; it is not stored unless another one
    /// was
    void SetFlag(const std::string& name, bool value, bool otherwise);

    /// Writes the values that differ from the stored ones, all together; nothing when there are none. Where
    /// there is no station, none is created. Returns false when the values could not be written.
    bool Save();

private:
    using Values = std::map<std::string, std::string>;

    Values m_values;
    Values m_stored;
};

} // namespace nesk
