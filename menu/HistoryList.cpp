#include "menu/HistoryList.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "base/modConvert.h"
#include "menu/MenuItem.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"

#include <cmath>
#include <limits>

namespace nesk {

namespace {

const std::string ListKey = "Neskworks\\Historys";
const std::string CountName = "NumberOfHistorys";

} // namespace

void HistoryList::Register(const MenuItem& item) {
    if (!item.HistoryDir().empty()) Append(std::string(item.HistoryDir()), std::string(item.HistoryTitle()));
}

void HistoryList::Append(const std::string& directory, const std::string& title) {
    RegEntry entry;
    try {
        Append(entry, directory, title);
    } catch (const NeskError& error) {
        const platform::ErrorCode result = entry.LastResult();
        if (result == platform::ErrorCode::Success || result == platform::ErrorCode::FileNotFound) throw;
        // The name of the value alone does not help the user, so the message also says why and where the
        // registry failed.
        const NeskError reason = FileError(result, error.source, platform::StationRegistry().Location());
        throw NeskError(error.number, error.source, Message::HistoryNotRegistered,
                        {modUtilities::MessageText(error), modUtilities::MessageText(reason)});
    }
}

void HistoryList::Append(RegEntry& entry, const std::string& directory, const std::string& title) {
    if (entry.TestKey(ListKey)) {
        entry.OpenKey(ListKey);
    } else {
        entry.CreateKey(ListKey);
        entry.SetString(CountName, "0");
    }
    using Limits = std::numeric_limits<std::int32_t>;
    const double count = std::trunc(modConvert::Val(entry.GetString(CountName)));
    if (count < Limits::min() || count >= Limits::max())
        throw NeskError(RuntimeError::Overflow, "HistoryList.Append", Message::Overflow);
    const std::string number = std::to_string(static_cast<std::int32_t>(count) + 1);
    entry.SetString(number + "Directory", directory);
    entry.SetString(number + "Title", title);
    entry.SetString(CountName, number);
}

} // namespace nesk
