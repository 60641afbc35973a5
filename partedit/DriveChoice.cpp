#include "partedit/DriveChoice.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "platform/Drives.h"
#include "platform/ErrorCode.h"

namespace nesk::DriveChoice {

namespace {

constexpr int NotReadyNumber = 71;

} // namespace

std::vector<std::string> Labels() {
    std::vector<std::string> labels;
    for (const char letter : platform::DriveLetters())
        labels.push_back({letter, ':'});
    return labels;
}

char Letter(const std::string& label) {
    if (label.empty()) return 0;
    const char capital = static_cast<char>(label[0] & ~0x20);
    return capital >= 'A' && capital <= 'Z' ? capital : '\0';
}

std::string Root(const std::string& label) {
    const char letter = Letter(label);
    return letter == 0 ? "" : std::string{letter, ':', '\\'};
}

int IndexOf(const std::vector<std::string>& labels, char letter) {
    const char wanted = Letter({letter});
    for (std::size_t i = 0; i < labels.size(); ++i)
        if (Letter(labels[i]) == wanted) return static_cast<int>(i);
    return -1;
}

void RequireReady(char letter) {
    if (platform::CheckDrive(letter) == platform::ErrorCode::Success) return;
    throw NeskError(NotReadyNumber, "DriveChoice.RequireReady", Message::DriveNotReady, {Root({letter})});
}

} // namespace nesk::DriveChoice
