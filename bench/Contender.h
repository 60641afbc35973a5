#pragma once

#include <memory>
#include <string>

namespace nesk::bench {

/// A contender of the benchmark: one representation of the sample tree.
class Contender {
public:
    virtual ~Contender() = default;

    /// Reads the file of this contender's format. Ends the program with a message when that fails.
    virtual void Load(const std::string& path) = 0;

    /// Writes the loaded tree.
    virtual void Save(const std::string& path) = 0;

    /// Number of loaded items; not measured.
    virtual int Count() = 0;
};

std::unique_ptr<Contender> MakeNesk();
std::unique_ptr<Contender> MakePugixml();
std::unique_ptr<Contender> MakeRapidJson();
std::unique_ptr<Contender> MakeBoostInfo();

/// Reads a file into memory and finds the ends of its lines: the minimal work of any reader.
std::unique_ptr<Contender> MakeScan();

} // namespace nesk::bench
