#include "versions/DifferenceText.h"

#include "base/VersionMessages.h"
#include "menu/MenuEntry.h"
#include "menu/MenuText.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <array>
#include <utility>

namespace nesk::DifferenceText {

namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

std::string CaptionOf(const MenuEntry& entry) {
    return Value(std::string(entry.Caption()));
}

// In bytes. A longer value would hide what stands after it.
constexpr std::size_t MaxValueLength = 80;

} // namespace

std::string Summary(const MenuDiff& difference) {
    std::string text;
    for (const auto& [count, id] : std::array{std::pair(difference.Added(), Message::DifferenceAdded),
                                              std::pair(difference.Removed(), Message::DifferenceRemoved),
                                              std::pair(difference.Moved(), Message::DifferenceMoved),
                                              std::pair(difference.Changed(), Message::DifferenceChanged)}) {
        if (count == 0) continue;
        const std::string part = FormatResString(id, count);
        text = text.empty() ? part : FormatResString(Message::DifferenceJoin, text, part);
    }
    return text.empty() ? LoadResString(Message::DifferenceNone) : text;
}

std::string Of(const MenuDiff::Node& node) {
    const std::string caption = CaptionOf(node.Shown());
    if (node.IsAdded()) return FormatResString(Message::NodeAdded, caption);
    if (node.IsRemoved()) return FormatResString(Message::NodeRemoved, caption);
    if (!node.isMoved) return node.IsChanged() ? FormatResString(Message::NodeChanged, caption) : caption;
    if (!node.isInOther)
        return FormatResString(node.IsChanged() ? Message::NodeMovedWithinChanged : Message::NodeMovedWithin,
                               caption);
    return FormatResString(node.IsChanged() ? Message::NodeMovedFromChanged : Message::NodeMovedFrom, caption,
                           CaptionOf(*node.before->ParentMenu()));
}

std::string Of(const FieldDifference& difference) {
    return FormatResString(Message::FieldDiffers, FieldName(difference.field), Value(difference.before),
                           Value(difference.after));
}

std::string FieldName(MenuKey field) {
    return LoadResString(Message::VersionFieldCaption + static_cast<int>(field));
}

std::string Value(const std::string& value) {
    return value.empty() ? LoadResString(Message::FieldEmpty)
                         : modUtilities::Shortened(MenuText::OnOneLine(value), MaxValueLength);
}

} // namespace nesk::DifferenceText
