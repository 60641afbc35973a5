#include "editing/MenuEditor.h"

#include "base/BackupNames.h"
#include "base/Messages.h"
#include "editing/SamePlace.h"
#include "menu/MenuFile.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuText.h"
#include "platform/ErrorCode.h"
#include "shell/modUtilities.h"

#include <new>
#include <utility>
#include <vector>

namespace nesk {

namespace {

const MenuItem* AsItem(const MenuEntry* entry) {
    return dynamic_cast<const MenuItem*>(entry);
}

// The error of a menu that does not fit into memory.
NeskError NoMemory(const char* source, int messageId, const std::string& path) {
    NeskError error(RuntimeError::OutOfMemory, source, messageId, {path});
    error.file = path;
    return error;
}

} // namespace

MenuEditor::MenuEditor(platform::FileSystem& files) : m_files(files) {}

MenuEditor::~MenuEditor() = default;

std::optional<NeskError> MenuEditor::Open(const std::string& rootDirectory, const std::string& path) {
    m_files.RestoreInterrupted(path);
    auto menu = std::make_unique<Menu>();
    menu->Initialize(rootDirectory);
    // Taken before reading: what another program writes from now on is a change that a save must ask about.
    const FileHash hash = FileHash::Of(path, m_files);
    std::optional<NeskError> failure;
    if (hash.Exists()) {
        try {
            if (modUtilities::DirectoryExists(path, m_files))
                menu->LoadFromFile(path, m_files); // says that there is no file
            else
                menu->ReadFile(path, m_files);
        } catch (const NeskError& error) {
            failure = error;
        } catch (const std::bad_alloc&) {
            failure = NoMemory("MenuEditor.Open", Message::OutOfMemory, path);
        }
    }
    m_menu = std::move(menu);
    m_path = hash.Exists() ? path : "";
    m_place = path;
    m_hash = hash;
    m_dirty = false;
    m_incomplete = failure.has_value() || m_menu->EndIsMissing();
    if (m_listener != nullptr) m_listener->OnMenuReplaced();
    return failure;
}

void MenuEditor::Close() {
    if (m_menu) m_menu->Terminate();
    m_menu.reset();
    m_path.clear();
    m_place.clear();
    m_hash = {};
    m_dirty = false;
    m_incomplete = false;
    if (m_listener != nullptr) m_listener->OnMenuReplaced();
}

SavePlan MenuEditor::PlanSave(const std::string& path) const {
    SavePlan plan;
    plan.onDisk = FileHash::Of(path, m_files);
    const bool isOther = IsOpen() && !m_place.empty() && !IsSamePlace(path, m_place);
    plan.backup = BackupFor(path);
    if (!plan.onDisk.Exists()) {
        plan.hazard = isOther ? SaveHazard::OtherPlace : SaveHazard::None;
    } else if (isOther) {
        plan.hazard = SaveHazard::OtherPlaceReplaces;
        plan.backup = DatedBackupOf(path);
    } else if (m_incomplete) {
        plan.hazard = SaveHazard::Incomplete;
    } else if (plan.onDisk != m_hash) {
        plan.hazard = SaveHazard::ChangedByOther;
        plan.backup = DatedBackupOf(path);
    }
    return plan;
}

Backup MenuEditor::BackupFor(const std::string& path) const {
    // The last good version stays in the ".bak"; what could not be read never replaces an older one of its
    // kind.
    return m_incomplete ? DamagedBackupOf(path) : BackupOf(path);
}

void MenuEditor::Save(const std::string& path, const SavePlan& plan) {
    // The user may have thought about a question for a long time.
    const SavePlan now = PlanSave(path);
    const SavePlan& used = now.onDisk == plan.onDisk && now.hazard == plan.hazard ? plan : now;
    SaveWith(path, used.backup, used.onDisk);
}

void MenuEditor::Save(const std::string& path) {
    SaveWith(path, BackupFor(path), m_hash);
}

void MenuEditor::SaveWith(const std::string& path, const Backup& backup, const FileHash& known) {
    if (!m_menu) return;
    m_hash = Write(path, backup, known);
    m_path = path;
    m_place = path;
    m_dirty = false;
    m_incomplete = false;
    StateChanged();
}

void MenuEditor::SaveCopy(const std::string& path) {
    if (!m_menu) return;
    const SavePlan plan = PlanSave(path);
    const FileHash written = Write(path, plan.backup, plan.onDisk);
    // In the menu's own place, what was just written is no change by another program.
    if (IsSamePlace(path, m_place)) m_hash = written;
}

FileHash MenuEditor::Write(const std::string& path, const Backup& backup, const FileHash& known) {
    if (path.empty()) throw NeskError(RuntimeError::PathNotFound, "MenuEditor.Save", Message::NoMenuRoot);
    try {
        return SaveMenuFile(*m_menu, path, backup, known, m_files);
    } catch (NeskError& error) {
        if (error.file.empty()) error.file = path;
        throw;
    } catch (const std::bad_alloc&) {
        throw NoMemory("MenuEditor.Save", Message::NoMemoryToSave, path);
    }
}

const MenuEntry* MenuEditor::Find(const std::string& id) const {
    return m_menu ? std::as_const(*m_menu).Find(id) : nullptr;
}

MenuCommands MenuEditor::CommandsFor(const std::string& id) const {
    MenuCommands commands;
    const MenuEntry* entry = Find(id);
    if (entry == nullptr) return commands;
    const MenuItem* item = AsItem(entry);
    commands.addPart = commands.addSubmenu = item == nullptr || !item->IsPart();
    commands.rename = true;
    if (item == nullptr) return commands;
    const MenuItemCollection& siblings = *item->ParentMenu()->Children();
    const int position = siblings.PositionOf(*item);
    commands.moveUp = position > 1;
    commands.moveDown = position < siblings.Count();
    commands.edit = commands.remove = true;
    return commands;
}

std::string MenuEditor::Add(const std::string& parentId, const std::string& caption, std::string_view type) {
    if (!CommandsFor(parentId).addPart) return "";
    MenuText::Check(caption, "MenuEditor.Add");
    return Make(std::make_unique<AddChange>(parentId, caption, std::string(type))).id;
}

std::string MenuEditor::AddPart(const std::string& parentId, const std::string& caption) {
    return Add(parentId, caption, MenuItem::PartType);
}

std::string MenuEditor::AddSubmenu(const std::string& parentId, const std::string& caption) {
    return Add(parentId, caption, MenuItem::SubmenuType);
}

bool MenuEditor::MoveUp(const std::string& id) {
    return Make(std::make_unique<MoveChange>(id, MoveChange::Direction::Up)).kind != MenuEvent::Kind::None;
}

bool MenuEditor::MoveDown(const std::string& id) {
    return Make(std::make_unique<MoveChange>(id, MoveChange::Direction::Down)).kind != MenuEvent::Kind::None;
}

bool MenuEditor::Remove(const std::string& id) {
    return Make(std::make_unique<RemoveChange>(id)).kind != MenuEvent::Kind::None;
}

bool MenuEditor::SetCaption(const std::string& id, const std::string& caption) {
    const MenuEntry* entry = Find(id);
    if (entry == nullptr) return false;
    if (entry->Caption() == caption) return true;
    MenuText::Check(caption, "MenuEditor.SetCaption");
    return Make(std::make_unique<CaptionChange>(id, caption)).kind != MenuEvent::Kind::None;
}

bool MenuEditor::SetGraphic(const std::string& id, const std::string& graphic) {
    const MenuEntry* entry = Find(id);
    if (entry == nullptr) return false;
    MenuText::CheckChange(graphic, entry->Graphic(), "MenuEditor.SetGraphic");
    return Make(std::make_unique<GraphicChange>(id, graphic)).kind != MenuEvent::Kind::None;
}

bool MenuEditor::SetPart(const std::string& id, const PartFields& fields) {
    const MenuItem* item = AsItem(Find(id));
    if (item == nullptr) return false;
    CheckPartFields(fields, PartFieldsOf(*item));
    return Make(std::make_unique<PartChange>(id, fields)).kind != MenuEvent::Kind::None;
}

MenuEvent MenuEditor::Make(std::unique_ptr<MenuChange> change) {
    if (!m_menu) return {};
    MenuEvent event = change->Apply(*m_menu);
    if (event.kind != MenuEvent::Kind::None && m_keeper) m_keeper(std::move(change));
    Report(event);
    return event;
}

bool MenuEditor::Redo(MenuChange& change) {
    return m_menu && Report(change.Apply(*m_menu));
}

bool MenuEditor::Undo(MenuChange& change) {
    return m_menu && Report(change.Revert(*m_menu));
}

bool MenuEditor::Report(const MenuEvent& event) {
    if (event.kind == MenuEvent::Kind::None) return false;
    m_dirty = true;
    if (m_listener != nullptr) m_listener->OnMenuEvent(event);
    StateChanged();
    return true;
}

void MenuEditor::StateChanged() {
    if (m_listener != nullptr) m_listener->OnStateChanged();
}

} // namespace nesk
