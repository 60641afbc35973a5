#include "checking/FileDrop.h"

#include "base/FileDropMessages.h"
#include "base/NeskError.h"
#include "menu/MenuItem.h"
#include "menu/MenuText.h"
#include "platform/TextEncoding.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace nesk {

using modStringRes::FormatResString;
using platform::EqualNoCase;
using State = FileFacts::State;

namespace {

constexpr std::size_t LongestCaption = 25;
constexpr std::size_t LongestName = 40;

// Of more paths than this, the others are looked at only when they are dropped.
constexpr std::size_t MostLookedAt = 1000;

std::string_view NameOf(std::string_view path) {
    while (path.ends_with('\\'))
        path.remove_suffix(1);
    return path.substr(path.find_last_of("\\/") + 1);
}

bool IsPartInfo(std::string_view name) {
    return EqualNoCase(name, "partinfo.ini");
}

bool HasPictureEnding(std::string_view name) {
    static constexpr std::array<std::string_view, 6> endings{".bmp", ".png", ".jpg", ".jpeg", ".gif", ".ico"};
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return false;
    return std::any_of(endings.begin(), endings.end(),
                       [&](std::string_view ending) { return EqualNoCase(name.substr(dot), ending); });
}

std::string ShortCaption(const MenuEntry& entry) {
    return modUtilities::Shortened(std::string(entry.Caption()), LongestCaption);
}

bool IsPart(const MenuEntry& entry) {
    const auto* item = dynamic_cast<const MenuItem*>(&entry);
    return item != nullptr && item->IsPart();
}

} // namespace

FileDrop::FileDrop(std::vector<std::string> paths, std::shared_ptr<FileInspector> inspector)
    : m_paths(std::move(paths)), m_inspector(std::move(inspector)), m_lookup(m_inspector) {
    // Whether something is a folder or a picture is known from one look at it as a picture.
    for (std::size_t i = 0; i < std::min(m_paths.size(), MostLookedAt); ++i)
        m_lookup.IndexOf(m_paths[i], FileUse::Picture);
    m_lookup.Begin();
}

void FileDrop::LookNow() {
    for (const std::string& path : m_paths)
        if (const auto [place, isNew] = m_facts.try_emplace(path); isNew)
            place->second = m_inspector->Look(path, FileUse::Picture);
    m_isLooked = true;
}

// --- what was found ---

FileDrop::Found FileDrop::LookUp(const std::string& path) const {
    const auto found = m_facts.find(path);
    return Judge(path, found != m_facts.end() ? &found->second : m_lookup.Known(path, FileUse::Picture));
}

// @param facts  null while they are not known
FileDrop::Found FileDrop::Judge(const std::string& path, const FileFacts* facts) {
    const std::string_view name = NameOf(path);
    const bool isNamedPicture = HasPictureEnding(name);
    if (facts == nullptr) {
        if (isNamedPicture) return {Kind::Picture};
        return {IsPartInfo(name) ? Kind::Parts : Kind::Unknown};
    }
    switch (facts->state) {
    case State::Good: return {Kind::Picture};
    case State::WrongKind: return {Kind::Parts}; // a folder
    case State::Missing: return {Kind::Refused, Message::FileDropMissing};
    case State::Unreadable: return {Kind::Refused, Message::FileDropUnreadable};
    case State::NoPicture:
    case State::TooLarge: break;
    }
    if (IsPartInfo(name)) return {Kind::Parts};
    if (!isNamedPicture) return {Kind::Refused, Message::FileDropOther};
    return {Kind::Refused,
            facts->state == State::TooLarge ? Message::FileDropTooLarge : Message::FileDropNoPicture};
}

// --- effects ---

FileDrop::Effect FileDrop::At(const MenuEntry& entry, bool isOnEntry) {
    return EffectOn(&entry, isOnEntry, !IsPart(entry));
}

FileDrop::Effect FileDrop::OnPictureBox() {
    return EffectOn(nullptr, true, false);
}

// @param entry  null for a picture box
FileDrop::Effect FileDrop::EffectOn(const MenuEntry* entry, bool takesPicture, bool takesParts) {
    if (m_paths.empty()) return Refusal(Message::FileDropNoFiles);
    m_lookup.TakeAnswers();
    std::array<const std::string*, 3> first{}; // the first of each kind that is not refused
    for (const std::string& path : m_paths) {
        const Found found = LookUp(path);
        if (found.kind == Kind::Refused)
            return Refusal(entry == nullptr && found.refusal == Message::FileDropOther
                               ? Message::FileDropPictureOnly
                               : found.refusal,
                           path);
        const std::string*& place = first.at(static_cast<std::size_t>(found.kind));
        if (place == nullptr) place = &path;
    }
    const auto [unknown, picture, parts] = first;
    if (picture != nullptr && parts != nullptr) return Refusal(Message::FileDropMixed);
    if (picture != nullptr && m_paths.size() > 1) return Refusal(Message::FileDropSeveralPictures);
    if (picture != nullptr && !takesPicture) return Refusal(Message::FileDropNoEntry);
    if (picture != nullptr) return PictureEffect(entry);
    if (parts != nullptr && !takesParts)
        return entry == nullptr ? Refusal(Message::FileDropPictureOnly, *parts)
                                : Effect{Action::Refuse,
                                         FormatResString(Message::FileDropNotOnPart, ShortCaption(*entry))};
    if (unknown != nullptr) return {Action::Look, FormatResString(Message::FileDropLooking, Shown(*unknown))};
    if (entry == nullptr)
        return Refusal(Message::FileDropPictureOnly, m_paths.empty() ? "" : m_paths.front());
    return PartsEffect(*entry);
}

FileDrop::Effect FileDrop::Refusal(int messageId, const std::string& argument) const {
    return {Action::Refuse, FormatResString(messageId, Shown(argument))};
}

FileDrop::Effect FileDrop::PictureEffect(const MenuEntry* entry) const {
    const std::string& path = m_paths.front();
    try {
        MenuText::Check(path, "FileDrop.PictureEffect");
    } catch (const NeskError& error) {
        return {Action::Refuse, modUtilities::MessageText(error)};
    }
    if (entry == nullptr)
        return {Action::SetPicture, FormatResString(Message::FileDropSetsThisPicture, Shown(path))};
    return {Action::SetPicture,
            FormatResString(Message::FileDropSetsPicture, ShortCaption(*entry), Shown(path))};
}

FileDrop::Effect FileDrop::PartsEffect(const MenuEntry& entry) const {
    if (m_paths.size() > 1)
        return {Action::AddParts,
                FormatResString(Message::FileDropAddsSeveral, ShortCaption(entry), m_paths.size())};
    return {Action::AddParts,
            FormatResString(Message::FileDropAddsParts, ShortCaption(entry), Shown(m_paths.front()))};
}

// A status bar has room for a name. A message box, which follows the look at the drop, shows the whole path.
std::string FileDrop::Shown(const std::string& path) const {
    return m_isLooked ? path : modUtilities::Shortened(std::string(NameOf(path)), LongestName);
}

} // namespace nesk
