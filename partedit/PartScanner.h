#pragma once

#include "platform/ErrorCode.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace nesk {

/// The interface that receives the results of a scan, in display order.
class PartScanVisitor {
public:
    virtual ~PartScanVisitor() = default;

    /// The visitor's own representation of a folder.
    using Node = void*;

    /// Called for a folder below `parent`. Returns the node to use as parent for the contents of the folder.
    virtual Node OnFolder(Node parent, const std::string& path, const std::string& name) = 0;

    /// Called for a part program below `parent`.
    /// @param partName  the name in its partinfo.ini
    virtual void OnPart(Node parent, const std::string& path, const std::string& name,
                        const std::string& partName) = 0;

    /// Called for a part program as soon as its folder was read; OnPart follows later.
    /// @param files  the names of the files in the folder, as far as they could be read; the function may
    /// move
    ///               them away
    virtual void OnPartFiles(const std::string& path, std::vector<std::string>& files) {
        static_cast<void>(path);
        static_cast<void>(files);
    }

    /// Called for a file or folder whose attributes or entries could not be read. The scan continues.
    /// @param code        result code of the file system
    /// @param attributes  the attributes, as far as they could be read
    virtual void OnUnreadable(const std::string& path, platform::ErrorCode code,
                              std::uint32_t attributes) = 0;

    /// Called before each folder is read, before each folder or part is reported, and at the end. The calls
    /// are frequent, even in a folder that contains only parts, so this function must be fast.
    /// @param foldersRead  number of folders read so far, including parts
    /// @return false to stop the scan
    virtual bool OnProgress(std::size_t foldersRead) = 0;
};

/// Finds folders and part programs below a folder. A folder is a part program when its partinfo.ini contains
/// a part name; the scan does not enter part programs. For each folder, first its subfolders with all their
/// contents are reported, then its part programs, each in the order of the file system. Names that begin with
/// "." are skipped. A folder that a link leads back to, because it contains the link, is reported but not
/// entered. The same applies to a folder that was already entered through ten links.
/// @param root  folder to read; `node` is its node
/// @return false when the visitor stopped the scan
bool ScanParts(const std::string& root, PartScanVisitor::Node node, PartScanVisitor& visitor);

/// A folder that is a part program.
struct PartFolder {
    std::string partName;           ///< the name in its partinfo.ini
    std::vector<std::string> files; ///< the names of its files, as far as they could be read

    bool operator==(const PartFolder&) const = default;
};

/// Reads one folder; nothing when it is not a part program.
std::optional<PartFolder> ReadPartFolder(const std::string& folder);

/// Path of the file that describes the part in a folder.
std::string PartInfoPath(const std::string& folder);

} // namespace nesk
