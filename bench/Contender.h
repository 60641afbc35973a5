#pragma once

#include <memory>
#include <string>

namespace nesk::bench {

/// One way to hold the sample tree.
class Contender {
public:
    virtual ~Contender() = default;

    /// Reads the file of this contender's format. Ends the program with a message when that fails.
    virtual void Load(const std::string& path) = 0;

    /// Writes what was loaded.
    virtual void Save(const std::string& path) = 0;

    /// Number of items that were loaded; not measured.
    virtual int Count() = 0;
};

std::unique_ptr<Contender> MakeNesk();
std::unique_ptr<Contender> MakePugixml();
std::unique_ptr<Contender> MakeRapidJson();
std::unique_ptr<Contender> MakeBoostInfo();

/// Reads a file into memory and looks for the ends of its lines, the least that any reader does.
std::unique_ptr<Contender> MakeScan();

} // namespace nesk::bench
