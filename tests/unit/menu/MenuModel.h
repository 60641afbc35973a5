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
    int key = 0; ///< unchanged when the entry moves and its id changes; 0 for the root
    std::string id;
    std::string caption;
    std::string menuType; ///< "" for the root
    PartFields fields;    ///< the root uses only the graphic
    std::vector<ModelEntry> children;

    bool IsPart() const { return !menuType.empty() && (menuType[0] == 'P' || menuType[0] == 'p'); }
};

/// A reference model of the open menu: the simplest program that supports the same edits.
class MenuModel {
public:
    MenuModel() { Clear(); }

    /// A menu without entries.
    void Clear();

    /// An entry and its position.
    struct Place {
        ModelEntry* entry = nullptr; ///< null if there is no such entry
        ModelEntry* parent = nullptr;
        std::size_t index = 0; ///< among the children of `parent`
    };
    Place Find(const std::string& id) { return FindBelow(m_root, id); }

    const ModelEntry& Root() const { return m_root; }

    /// Ids of all entries, in display order.
    std::vector<std::string> Ids() const;

    /// Each returns whether the edit is possible. An edit that is not possible changes nothing.
    bool Add(const std::string& parentId, const std::string& caption, std::string_view type);
    bool Remove(const std::string& id);
    bool Move(const std::string& id, bool up);
    bool MoveTo(const std::string& id, const std::string& parentId, int position);

    /// Copies an entry as text and inserts it before a position from 1 on.
    bool Insert(const ModelEntry& entry, const std::string& parentId, int position, const TextRules& rules);

    /// Gives the children of an entry another order.
    /// @param order  the former indexes of the children
    void Reorder(const std::string& id, const std::vector<std::size_t>& order);

    bool SetCaption(const std::string& id, const std::string& caption);
    bool SetGraphic(const std::string& id, const std::string& graphic);
    bool SetPart(const std::string& id, const PartFields& fields);

    /// Number of the message that refuses a move; 0 if the move is possible or an entry is missing.
    int MoveRefusal(const std::string& id, const std::string& parentId);

    /// Id that Add or MoveTo assigned last.
    const std::string& LastId() const { return m_lastId; }

    /// Restores an earlier or later tree of this model. Ids assigned since then stay used.
    void Restore(const ModelEntry& root) { m_root = root; }

    /// Changes the tree as saving and loading it does: texts are converted by the rules, ids are counted
    /// anew.
    /// @param histories  receives the history directories in the order in which the reader reads them
    void PassThroughFile(const TextRules& rules, std::vector<std::string>& histories);

    /// Returns true if saving and loading changes no text.
    bool IsUnchangedByFile(const TextRules& rules) const;

private:
    static void Rename(ModelEntry& entry, const std::string& id);
    ModelEntry CopyOf(const ModelEntry& entry, const std::string& id, const TextRules& rules);
    Place FindBelow(ModelEntry& entry, const std::string& id);
    void PassBelow(ModelEntry& entry, const TextRules& rules, std::vector<std::string>& histories);

    ModelEntry m_root;
    // Ids are never reused while a menu is open, so entries whose addition was undone still count.
    std::map<int, int> m_used; // indexed by the key of the parent
    int m_lastKey = 0;
    std::string m_lastId;
};

/// Describes the first difference between a menu and the model, for a failure message; "" if they are equal.
/// Also checks what the model does not store: parents, and that every entry is found by its id.
std::string FirstDifference(const MenuEntry& menu, const ModelEntry& model);

} // namespace nesk::testing
