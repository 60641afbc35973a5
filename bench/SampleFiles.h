#pragma once

#include <string>

/// Files of the sample tree, one function a format. Each writes the file at a path of the host.
namespace nesk::bench {

void WriteBlockFile(const std::string& path, int items);
void WriteXmlFile(const std::string& path, int items);
void WriteJsonFile(const std::string& path, int items);
void WriteInfoFile(const std::string& path, int items);

} // namespace nesk::bench
