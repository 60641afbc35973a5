#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace nesk {

/// Gets what a scan finds, in the order in which it is to be shown.
class PartScanVisitor {
public:
    virtual ~PartScanVisitor() = default;

    /// A folder as the visitor knows it.
    using Node = void*;

    /// A folder below `parent`. The node returned is the parent of what the folder holds.
    virtual Node OnFolder(Node parent, const std::string& path, const std::string& name) = 0;

    /// A part program below `parent`.
    /// @param partName  what its partinfo.ini calls it
    virtual void OnPart(Node parent, const std::string& path, const std::string& name,
                        const std::string& partName) = 0;

    /// A file or folder whose attributes or entries could not be read; the scan goes on.
    /// @param code        result code (platform/ErrorCode.h)
    /// @param attributes  what was read all the same
    virtual void OnUnreadable(const std::string& path, int code, std::uint32_t attributes) = 0;

    /// Called before each folder is read, before each folder or part is told of, and at the end: often, even
    /// where a folder holds nothing but parts. It should take no longer than it must.
    /// @param foldersRead  number of folders read so far, those that are parts among them
    /// @return false to end the scan
    virtual bool OnProgress(std::size_t foldersRead) = 0;
};

/// Finds folders and part programs below a folder. A folder is a part program when its partinfo.ini names the
/// part; part programs are not looked into. Below each folder come the folders with all they hold, then the
/// part programs, each in the order of the file system. Names that begin with "." are left out. A folder that
/// is one of those it lies in, through a link, is listed but not entered; so is one that was entered through
/// ten ways before.
/// @param root  folder to read; `node` is its node
/// @return false when the visitor ended the scan
bool ScanParts(const std::string& root, PartScanVisitor::Node node, PartScanVisitor& visitor);

/// Path of the file that describes the part in a folder.
std::string PartInfoPath(const std::string& folder);

} // namespace nesk
