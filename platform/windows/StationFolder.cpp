#include "platform/StationFolder.h"

#include "platform/ErrorCode.h"

// The station is the computer itself.
namespace nesk::platform {

bool StationIsFolder() {
    return false;
}

std::string StationFolderName() {
    return "";
}

std::string UsualStationFolder() {
    return "";
}

StationFolderState LookUpStationFolder(const std::string&) {
    return StationFolderState::NotApplicable;
}

ErrorCode UseStationFolder(const std::string&) {
    return ErrorCode::InvalidParameter;
}

bool HasExampleStation() {
    return false;
}

ErrorCode BeginStationFolder(const std::string&, bool, std::unique_ptr<NewStationFolder>&) {
    return ErrorCode::InvalidParameter;
}

} // namespace nesk::platform
