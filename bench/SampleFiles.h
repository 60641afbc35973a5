#pragma once

#include <string>

/// Writers of the sample tree, one function per file format. Each writes a file at a host path.
namespace nesk::bench {

void WriteBlockFile(const std::string& path, int items);
void WriteXmlFile(const std::string& path, int items);
void WriteJsonFile(const std::string& path, int items);
void WriteInfoFile(const std::string& path, int items);

} // namespace nesk::bench
