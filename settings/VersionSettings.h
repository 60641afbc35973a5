#pragma once

namespace nesk {

/// How many earlier versions of the menu are kept. The numbers are decimal texts in the options' registry
/// key, which this program reads but does not write.
struct VersionSettings {
    static constexpr int Most = 10000;

    int newest = 50; ///< "MenuVersions": so many of the newest versions, from 1
    int days = 365;  ///< "MenuVersionDays": the last version of each day, for so many days, from 0

    /// Reads the numbers. A number that is missing, malformed or out of bounds has its usual value.
    static VersionSettings Read();
};

} // namespace nesk
