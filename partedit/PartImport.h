#pragma once

#include "base/NeskError.h"
#include "editing/EntryIds.h"
#include "menu/PartFields.h"
#include "partedit/FoundParts.h"
#include "partedit/PartImportOptions.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace nesk {

class Menu;
class MenuEditor;
class MenuEntry;
class MenuItem;

/// One line of a plan: a folder or a part program, and what it becomes in the menu.
struct PartImportRow {
    bool isPart = false;
    std::size_t parent = FoundPart::NoParent; ///< row of the folder that contains it
    std::size_t end = 0;                      ///< the row after everything below it
    std::size_t level = 0;                    ///< 0 for what is directly in the folder that was searched
    std::string name;                         ///< of the folder

    /// Part: caption of its button. Folder: caption of its submenu; "" when folders become no submenus.
    std::string caption;
    PartFields fields; ///< of a part's button

    /// Part: the entry of the menu that has the same part program. Folder: the submenu that is used for it.
    /// Null if there is no such entry.
    const MenuItem* existing = nullptr;

    /// Why the part, or the submenu of the folder, cannot be added.
    std::optional<NeskError> problem;

    /// Part: it will be added. Folder: all parts below it that can be chosen at once will be added.
    bool isTicked = false;

    std::size_t parts = 0;       ///< folder: number of parts below it that can be added
    std::size_t tickedParts = 0; ///< folder: number of parts below it that will be added

    /// True when a tick changes something.
    bool CanTick() const { return isPart ? !problem : parts > 0; }
};

/// The plan for adding many parts: which part programs become buttons, with which captions, pictures and
/// histories, in which submenus. The plan is made when the options or the ticks change; Apply carries it out.
class PartImport {
public:
    /// Plans to add parts below an entry. Part programs that the menu has already are not ticked; all others
    /// are.
    /// @param menu   must neither change nor be destroyed before Apply
    /// @param target id of the submenu, or of the root
    PartImport(const Menu& menu, const std::string& target, const std::vector<FoundPart>& found,
               PartImportOptions options);

    const std::vector<PartImportRow>& Rows() const { return m_rows; }
    const PartImportOptions& Options() const { return m_options; }

    /// Plans again with other options. The ticks stay.
    void SetOptions(PartImportOptions options);

    /// Sets or removes the tick of a part, or of all parts below a folder. A folder does not tick the parts
    /// that the menu has already, unless it has no others.
    void Tick(std::size_t row, bool isTicked);

    /// Does the same for several rows.
    void Tick(const std::vector<std::size_t>& rows, bool isTicked);

    /// Does the same for all rows.
    void TickAll(bool isTicked);

    /// What the plan amounts to.
    struct Counts {
        std::size_t parts = 0;       ///< parts that will be added
        std::size_t submenus = 0;    ///< submenus of folders that contain them, directly or not
        std::size_t newSubmenus = 0; ///< those of them that will be added
        std::size_t existing = 0;    ///< parts that the menu has already
        std::size_t problems = 0;    ///< parts that cannot be added

        bool operator==(const Counts&) const = default;
    };
    const Counts& Count() const { return m_counts; }

    /// Adds the ticked parts and their submenus as one change. Raises the errors of MenuEditor::AddPart; the
    /// menu is then unchanged.
    /// @param editor  has the menu of the constructor open
    /// @return ids of the added entries, in the order of the rows
    EntryIds Apply(MenuEditor& editor) const;

private:
    void IndexMenu(const Menu& menu);
    void PlanTexts();
    void PlanRow(std::size_t index);
    std::string PictureOf(const FoundPart& part) const;
    void FindSubmenus();
    void PlanTicks();
    bool MakeRoom(const PartImportRow& part, std::optional<NeskError>& problem);
    const MenuEntry* EntryFor(std::size_t folder) const;
    std::size_t ChildrenOf(std::size_t folder) const;
    std::string UniqueTitle(const std::string& caption);
    void CountFolders();
    void TickRows(std::size_t first, std::size_t end, bool isTicked);

    const MenuEntry& m_target;
    std::vector<FoundPart> m_found; // in the order of the rows
    PartImportOptions m_options;
    std::vector<PartImportRow> m_rows;
    std::vector<bool> m_isChosen;                         // by the user, whether it can be added or not
    std::vector<std::optional<NeskError>> m_textProblems; // of the texts alone
    std::unordered_map<std::string, const MenuItem*> m_programs; // by the path of the partinfo.ini
    std::unordered_set<std::string> m_titles;                    // history titles of the menu
    Counts m_counts;

    // While ticks are planned: by row of a folder, or NoParent for the target.
    std::unordered_map<std::size_t, std::size_t> m_children; // number of children of a submenu
    std::unordered_set<std::string> m_usedTitles;
    std::unordered_map<std::string, int> m_titleNumbers; // the last number given to a title
};

} // namespace nesk
