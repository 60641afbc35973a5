#include "unit/menu/MenuModel.h"
#include "base/Messages.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/menu/MenuModelTexts.h"

#include <array>
#include <utility>

namespace nesk::testing {

namespace {

// The fields of an entry that a file stores as texts.
std::array<std::string*, 8> TextsOf(ModelEntry& entry) {
    PartFields& fields = entry.fields;
    return {&entry.caption,    &entry.menuType,  &fields.graphic,    &fields.preview,
            &fields.programId, &fields.helpFile, &fields.historyDir, &fields.historyTitle};
}

void AppendIds(const ModelEntry& entry, std::vector<std::string>& ids) {
    ids.push_back(entry.id);
    for (const ModelEntry& child : entry.children)
        AppendIds(child, ids);
}

bool IsUnchanged(ModelEntry entry, const TextRules& rules) {
    for (const std::string* text : TextsOf(entry))
        if (rules.AfterFile(*text) != *text) return false;
    for (ModelEntry& child : entry.children)
        if (!IsUnchanged(std::move(child), rules)) return false;
    return true;
}

std::string Differs(const ModelEntry& model, const char* what, std::string_view actual,
                    std::string_view expected) {
    if (actual == expected) return "";
    return model.id + " " + what + " is '" + std::string(actual) + "', not '" + std::string(expected) + "'";
}

std::string DifferenceOfItem(const MenuItem& item, const ModelEntry& model) {
    const PartFields& fields = model.fields;
    const std::pair<const char*, std::pair<std::string_view, std::string_view>> texts[] = {
        {"type", {item.MenuType(), model.menuType}},
        {"preview", {item.Preview(), fields.preview}},
        {"program", {item.ProgramID(), fields.programId}},
        {"help file", {item.HelpFile(), fields.helpFile}},
        {"history", {item.HistoryDir(), fields.historyDir}},
        {"history title", {item.HistoryTitle(), fields.historyTitle}},
    };
    for (const auto& [what, values] : texts)
        if (values.first != values.second) return Differs(model, what, values.first, values.second);
    if (item.HelpTopic() == fields.helpTopic) return "";
    return Differs(model, "help topic", std::to_string(item.HelpTopic()), std::to_string(fields.helpTopic));
}

std::string DifferenceBelow(const MenuEntry& root, const MenuEntry& entry, const ModelEntry& model) {
    std::string difference = Differs(model, "id", entry.ID(), model.id);
    if (difference.empty()) difference = Differs(model, "caption", entry.Caption(), model.caption);
    if (difference.empty()) difference = Differs(model, "graphic", entry.Graphic(), model.fields.graphic);
    if (const auto* item = dynamic_cast<const MenuItem*>(&entry); item != nullptr && difference.empty())
        difference = DifferenceOfItem(*item, model);
    if (difference.empty() && root.Find(model.id) != &entry) difference = model.id + " is not found";
    if (difference.empty() && entry.ChildCount() != static_cast<int>(model.children.size()))
        difference = Differs(model, "child count", std::to_string(entry.ChildCount()),
                             std::to_string(model.children.size()));
    for (int i = 0; difference.empty() && i < entry.ChildCount(); ++i) {
        const MenuItem& child = entry.Children()->Item(i + 1);
        if (child.ParentMenu() != &entry) return model.id + " is not the parent of its child";
        difference = DifferenceBelow(root, child, model.children[static_cast<std::size_t>(i)]);
    }
    return difference;
}

} // namespace

void MenuModel::Clear() {
    m_root = {};
    m_root.id = "R";
    m_root.caption = "Main Menu";
    m_used.clear();
}

MenuModel::Place MenuModel::FindBelow(ModelEntry& entry, const std::string& id) {
    if (entry.id == id) return {&entry, nullptr, 0};
    for (std::size_t i = 0; i < entry.children.size(); ++i) {
        if (entry.children[i].id == id) return {&entry.children[i], &entry, i};
        if (const Place place = FindBelow(entry.children[i], id); place.entry != nullptr) return place;
    }
    return {};
}

std::vector<std::string> MenuModel::Ids() const {
    std::vector<std::string> ids;
    AppendIds(m_root, ids);
    return ids;
}

bool MenuModel::Add(const std::string& parentId, const std::string& caption, std::string_view type) {
    ModelEntry* parent = Find(parentId).entry;
    if (parent == nullptr || parent->IsPart()) return false;
    ModelEntry entry;
    entry.key = ++m_lastKey;
    entry.id = m_lastId = parentId + "." + std::to_string(++m_used[parent->key]);
    entry.caption = caption;
    entry.menuType = type;
    parent->children.push_back(std::move(entry));
    return true;
}

bool MenuModel::Remove(const std::string& id) {
    const Place place = Find(id);
    if (place.parent == nullptr) return false;
    place.parent->children.erase(place.parent->children.begin() + static_cast<std::ptrdiff_t>(place.index));
    return true;
}

bool MenuModel::Move(const std::string& id, bool up) {
    const Place place = Find(id);
    if (place.parent == nullptr) return false;
    std::vector<ModelEntry>& siblings = place.parent->children;
    if (up ? place.index == 0 : place.index + 1 == siblings.size()) return false;
    std::swap(siblings[place.index], siblings[up ? place.index - 1 : place.index + 1]);
    return true;
}

int MenuModel::MoveRefusal(const std::string& id, const std::string& parentId) {
    const Place place = Find(id);
    ModelEntry* target = Find(parentId).entry;
    if (place.entry == nullptr || target == nullptr) return 0;
    if (place.parent == nullptr) return Message::RootStays;
    if (FindBelow(*place.entry, parentId).entry != nullptr) return Message::MoveIntoItself;
    return target->IsPart() ? Message::MoveIntoPart : 0;
}

bool MenuModel::MoveTo(const std::string& id, const std::string& parentId, int position) {
    const Place place = Find(id);
    m_lastId = id;
    if (place.parent == nullptr || Find(parentId).entry == nullptr || MoveRefusal(id, parentId) != 0)
        return false;
    const bool isSame = place.parent->id == parentId;
    ModelEntry moved = *place.entry;
    place.parent->children.erase(place.parent->children.begin() + static_cast<std::ptrdiff_t>(place.index));
    ModelEntry& parent = *Find(parentId).entry;
    const std::size_t count = parent.children.size();
    const std::size_t index = position < 1 || static_cast<std::size_t>(position) > count + 1
                                  ? count
                                  : static_cast<std::size_t>(position) - 1;
    if (!isSame) {
        m_lastId = parentId + "." + std::to_string(++m_used[parent.key]);
        Rename(moved, m_lastId);
    }
    parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(index), std::move(moved));
    return !isSame || index != place.index;
}

void MenuModel::Rename(ModelEntry& entry, const std::string& id) {
    for (ModelEntry& child : entry.children)
        Rename(child, id + child.id.substr(entry.id.size()));
    entry.id = id;
}

ModelEntry MenuModel::CopyOf(const ModelEntry& entry, const std::string& id, const TextRules& rules) {
    ModelEntry copy = entry;
    copy.key = ++m_lastKey;
    copy.id = id;
    for (std::string* text : TextsOf(copy))
        *text = rules.AfterFile(*text);
    for (ModelEntry& child : copy.children)
        child = CopyOf(child, id + "." + std::to_string(++m_used[copy.key]), rules);
    return copy;
}

bool MenuModel::Insert(const ModelEntry& entry, const std::string& parentId, int position,
                       const TextRules& rules) {
    ModelEntry* parent = Find(parentId).entry;
    if (parent == nullptr || parent->IsPart()) return false;
    m_lastId = parentId + "." + std::to_string(++m_used[parent->key]);
    parent->children.insert(parent->children.begin() + (position - 1), CopyOf(entry, m_lastId, rules));
    return true;
}

void MenuModel::Reorder(const std::string& id, const std::vector<std::size_t>& order) {
    std::vector<ModelEntry>& children = Find(id).entry->children;
    std::vector<ModelEntry> ordered;
    for (const std::size_t index : order)
        ordered.push_back(children[index]);
    children = std::move(ordered);
}

bool MenuModel::SetCaption(const std::string& id, const std::string& caption) {
    ModelEntry* entry = Find(id).entry;
    if (entry != nullptr) entry->caption = caption;
    return entry != nullptr;
}

bool MenuModel::SetGraphic(const std::string& id, const std::string& graphic) {
    ModelEntry* entry = Find(id).entry;
    if (entry != nullptr) entry->fields.graphic = graphic;
    return entry != nullptr;
}

bool MenuModel::SetPart(const std::string& id, const PartFields& fields) {
    const Place place = Find(id);
    if (place.parent == nullptr) return false;
    place.entry->fields = fields;
    return true;
}

void MenuModel::PassThroughFile(const TextRules& rules, std::vector<std::string>& histories) {
    m_used.clear();
    PassBelow(m_root, rules, histories);
}

void MenuModel::PassBelow(ModelEntry& entry, const TextRules& rules, std::vector<std::string>& histories) {
    for (std::string* text : TextsOf(entry))
        *text = rules.AfterFile(*text);
    for (ModelEntry& child : entry.children) {
        child.key = ++m_lastKey;
        child.id = entry.id + "." + std::to_string(++m_used[entry.key]);
        PassBelow(child, rules, histories);
    }
    // An item is complete when its block ends, which is after its children's blocks.
    if (!entry.fields.historyDir.empty()) histories.push_back(entry.fields.historyDir);
}

bool MenuModel::IsUnchangedByFile(const TextRules& rules) const {
    return IsUnchanged(m_root, rules);
}

std::string FirstDifference(const MenuEntry& menu, const ModelEntry& model) {
    return DifferenceBelow(menu, menu, model);
}

} // namespace nesk::testing
