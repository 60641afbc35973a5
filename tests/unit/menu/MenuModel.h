#pragma once

#include "menu/PartFields.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {
class MenuEntry;
}

namespace nesk::testing {

struct TextRules;

/// An entry of a menu and everything below it, as plain values.
struct ModelEntry {
    int key = 0; ///< stays when the entry moves and its id changes; 0 for the root
    std::string id;
    std::string caption;
    std::string menuType; ///< "" for the root
    PartFields fields;    ///< of which the root has a graphic alone
    std::vector<ModelEntry> children;

    bool IsPart() const { return !menuType.empty() && (menuType[0] == 'P' || menuType[0] == 'p'); }
};

/// What the open menu should be: the simplest program that could do the same edits.
class MenuModel {
public:
    MenuModel() { Clear(); }

    /// A menu without entries.
    void Clear();

    /// An entry and where it stands.
    struct Place {
        ModelEntry* entry = nullptr; ///< null when there is no such entry
        ModelEntry* parent = nullptr;
        std::size_t index = 0; ///< among the children of `parent`
    };
    Place Find(const std::string& id) { return FindBelow(m_root, id); }

    const ModelEntry& Root() const { return m_root; }

    /// Ids of all entries, in display order.
    std::vector<std::string> Ids() const;

    /// Each answers whether it is possible; nothing has changed otherwise.
    bool Add(const std::string& parentId, const std::string& caption, std::string_view type);
    bool Remove(const std::string& id);
    bool Move(const std::string& id, bool up);
    bool MoveTo(const std::string& id, const std::string& parentId, int position);
    bool SetCaption(const std::string& id, const std::string& caption);
    bool SetGraphic(const std::string& id, const std::string& graphic);
    bool SetPart(const std::string& id, const PartFields& fields);

    /// Number of the message that refuses a move; 0 when it is possible or an entry is missing.
    int MoveRefusal(const std::string& id, const std::string& parentId);

    /// Id that Add or MoveTo gave last.
    const std::string& LastId() const { return m_lastId; }

    /// Goes back or forward to a tree that this model had; ids that were given since stay used.
    void Restore(const ModelEntry& root) { m_root = root; }

    /// The tree takes the way through a file: texts come back as the rules say, ids are counted anew.
    /// @param histories  gets the history directories in the order in which the reader meets them
    void PassThroughFile(const TextRules& rules, std::vector<std::string>& histories);

    /// True when no text changes on the way through a file.
    bool IsUnchangedByFile(const TextRules& rules) const;

private:
    static void Rename(ModelEntry& entry, const std::string& id);
    Place FindBelow(ModelEntry& entry, const std::string& id);
    void PassBelow(ModelEntry& entry, const TextRules& rules, std::vector<std::string>& histories);

    ModelEntry m_root;
    // Ids are never given twice while a menu is open, so what was taken back still counts.
    std::map<int, int> m_used; // by the key of the parent
    int m_lastKey = 0;
    std::string m_lastId;
};

/// The first thing in which a menu is not what the model says, for a message; "" when they are the same. Also
/// looks at what the model has not: parents, and that every entry is found by its id.
std::string FirstDifference(const MenuEntry& menu, const ModelEntry& model);

} // namespace nesk::testing
