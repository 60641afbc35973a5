#include "editing/MenuEditor.h"

#include "base/BackupNames.h"
#include "base/Messages.h"
#include "editing/CompoundChange.h"
#include "editing/InsertChange.h"
#include "editing/MoveToChange.h"
#include "editing/SamePlace.h"
#include "menu/MenuFile.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuText.h"
#include "platform/ErrorCode.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace nesk {

namespace {

const MenuItem* AsItem(const MenuEntry* entry) {
    return dynamic_cast<const MenuItem*>(entry);
}

// The error for a menu that does not fit into memory.
NeskError NoMemory(const char* source, int messageId, const std::string& path) {
    NeskError error(RuntimeError::OutOfMemory, source, messageId, {path});
    error.file = path;
    return error;
}

} // namespace

MenuEditor::MenuEditor(platform::FileSystem& files, std::size_t undoLimit)
    : m_files(files), m_deadMemoryLimit(undoLimit), m_history(undoLimit) {}

MenuEditor::~MenuEditor() = default;

void MenuEditor::AddListener(MenuEditorListener& listener) {
    m_listeners.push_back(&listener);
}

void MenuEditor::RemoveListener(MenuEditorListener& listener) {
    std::erase(m_listeners, &listener);
}

std::optional<NeskError> MenuEditor::Open(const std::string& rootDirectory, const std::string& path) {
    m_files.RestoreInterrupted(path);
    auto menu = std::make_unique<Menu>();
    menu->Initialize(rootDirectory);
    // The hash is computed before reading. If another program writes the file from now on, a save detects it
    // and asks the user.
    const FileHash hash = FileHash::Of(path, m_files);
    std::optional<NeskError> failure;
    if (hash.Exists()) {
        try {
            if (modUtilities::DirectoryExists(path, m_files))
                menu->LoadFromFile(path, m_files); // shows a message that there is no file
            else
                menu->ReadFile(path, m_files);
        } catch (const NeskError& error) {
            failure = error;
        } catch (const std::bad_alloc&) {
            failure = NoMemory("MenuEditor.Open", Message::OutOfMemory, path);
        }
    }
    ForgetChanges();
    m_menu = std::move(menu);
    m_bytesBefore = m_menu->Memory()->Bytes();
    m_path = hash.Exists() ? path : "";
    m_place = path;
    m_hash = hash;
    m_incomplete = failure.has_value() || m_menu->EndIsMissing();
    MenuReplaced();
    return failure;
}

void MenuEditor::Close() {
    ForgetChanges();
    if (m_menu) m_menu->Terminate();
    m_menu.reset();
    m_path.clear();
    m_place.clear();
    m_hash = {};
    m_incomplete = false;
    MenuReplaced();
}

// The arena frees no memory while the menu is open, and hundreds of thousands of edits would fill it.
void MenuEditor::CompactWhenWasteful() {
    if (m_menu->Memory()->Bytes() < m_bytesBefore + m_deadMemoryLimit) return;
    try {
        std::unique_ptr<Menu> compacted = m_menu->Compacted();
        ForgetChanges();
        m_menu = std::move(compacted);
    } catch (const std::bad_alloc&) {
        // The menu is already saved. The next save tries again.
        return;
    }
    m_bytesBefore = m_menu->Memory()->Bytes();
}

// Ids start again with each menu, so the changes of one menu do not fit another.
void MenuEditor::ForgetChanges() {
    m_history.Clear();
    m_group.reset();
    m_grouped.clear();
    m_groupContext.reset();
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
    // The ".bak" keeps the last good version. A damaged file is backed up under a name of its own and never
    // replaces an older backup of a damaged file.
    return m_incomplete ? DamagedBackupOf(path) : BackupOf(path);
}

void MenuEditor::Save(const std::string& path, const SavePlan& plan) {
    // The file may have changed while the user was answering the question.
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
    m_history.MarkSaved();
    m_incomplete = false;
    CompactWhenWasteful();
    FileWritten();
    StateChanged();
}

void MenuEditor::Adopt(const FileHash& hash, bool isSame) {
    if (!m_menu) return;
    m_hash = hash;
    m_path = m_place;
    if (isSame)
        m_history.MarkSaved();
    else
        m_history.ForgetSaved();
    Tell([](MenuEditorListener& listener) { listener.OnFileAdopted(); });
    StateChanged();
}

void MenuEditor::SaveCopy(const std::string& path) {
    if (!m_menu) return;
    const SavePlan plan = PlanSave(path);
    const FileHash written = Write(path, plan.backup, plan.onDisk);
    // A copy written to the menu's own path must not count as a change by another program.
    if (!IsSamePlace(path, m_place)) return;
    m_hash = written;
    FileWritten();
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
    commands.pasteInside = commands.addPart;
    commands.sort = !SortTarget({id}).empty();
    commands.addParts = true;   // beside a part
    commands.pasteAfter = true; // the root has no place after it: there it is the end of the menu
    if (item == nullptr) return commands;
    const MenuItemCollection& siblings = *item->ParentMenu()->Children();
    const int position = siblings.PositionOf(*item);
    commands.moveUp = position > 1;
    commands.moveDown = position < siblings.Count();
    commands.moveOut = item->ParentMenu()->ParentMenu() != nullptr;
    commands.moveIn = SubmenuBefore(*item) != nullptr;
    commands.edit = commands.remove = commands.copy = true;
    return commands;
}

std::string MenuEditor::Add(const std::string& parentId, const std::string& caption, std::string_view type) {
    if (!CommandsFor(parentId).addPart) return "";
    MenuText::Check(caption, "MenuEditor.Add");
    return Make(std::make_unique<AddChange>(parentId, caption, std::string(type)),
                {Message::ChangeAdd, {caption}})
               ? m_lastIds.back()
               : "";
}

std::string MenuEditor::AddPart(const std::string& parentId, const std::string& caption) {
    return Add(parentId, caption, MenuItem::PartType);
}

std::string MenuEditor::AddSubmenu(const std::string& parentId, const std::string& caption) {
    return Add(parentId, caption, MenuItem::SubmenuType);
}

std::string MenuEditor::AddPart(const std::string& parentId, const std::string& caption,
                                const PartFields& fields) {
    MenuEntry* parent = m_menu ? m_menu->Find(parentId) : nullptr;
    const MenuItem* item = AsItem(parent);
    if (parent == nullptr || (item != nullptr && item->IsPart())) return "";
    MenuText::Check(caption, "MenuEditor.Add");
    CheckPartFields(fields, {});
    auto part = parent->SubMenus().NewItem();
    part->SetCaption(caption);
    part->SetMenuType(MenuItem::PartType);
    ApplyPartFields(*part, fields);
    std::string id = part->ID();
    Make(std::make_unique<InsertChange>(std::move(part), parentId, parent->ChildCount() + 1),
         {Message::ChangeAdd, {caption}});
    return id;
}

bool MenuEditor::MoveUp(const std::string& id) {
    return Make(std::make_unique<MoveChange>(id, MoveChange::Direction::Up),
                NameFor(Message::ChangeMove, id));
}

bool MenuEditor::MoveDown(const std::string& id) {
    return Make(std::make_unique<MoveChange>(id, MoveChange::Direction::Down),
                NameFor(Message::ChangeMove, id));
}

std::string MenuEditor::MoveTo(const std::string& id, const std::string& parentId, int position) {
    if (Find(id) == nullptr || Find(parentId) == nullptr) return "";
    return Make(std::make_unique<MoveToChange>(id, parentId, position), NameFor(Message::ChangeMove, id))
               ? m_lastIds.back()
               : id;
}

std::string MenuEditor::MoveOut(const std::string& id) {
    const MenuItem* item = AsItem(Find(id));
    const auto* submenu = item != nullptr ? AsItem(item->ParentMenu()) : nullptr;
    if (submenu == nullptr) return "";
    const MenuEntry& target = *submenu->ParentMenu();
    return MoveTo(id, target.ID(), target.Children()->PositionOf(*submenu) + 1);
}

// The submenu directly before an entry, or null.
const MenuItem* MenuEditor::SubmenuBefore(const MenuItem& item) {
    const MenuItemCollection& siblings = *item.ParentMenu()->Children();
    const int position = siblings.PositionOf(item);
    if (position <= 1) return nullptr;
    const MenuItem& before = siblings.Item(position - 1);
    return before.IsPart() ? nullptr : &before;
}

std::string MenuEditor::MoveIn(const std::string& id) {
    const MenuItem* item = AsItem(Find(id));
    const MenuItem* submenu = item != nullptr ? SubmenuBefore(*item) : nullptr;
    return submenu != nullptr ? MoveTo(id, submenu->ID(), 0) : "";
}

std::optional<NeskError> MenuEditor::WhyNotMoveTo(const std::string& id, const std::string& parentId) const {
    return m_menu ? MoveToChange::WhyNot(*m_menu, id, parentId) : std::nullopt;
}

bool MenuEditor::Remove(const std::string& id) {
    return Make(std::make_unique<RemoveChange>(id), NameFor(Message::ChangeRemove, id));
}

bool MenuEditor::SetCaption(const std::string& id, const std::string& caption) {
    const MenuEntry* entry = Find(id);
    if (entry == nullptr) return false;
    if (entry->Caption() == caption) return true;
    MenuText::Check(caption, "MenuEditor.SetCaption");
    return Make(std::make_unique<CaptionChange>(id, caption), NameFor(Message::ChangeCaption, id));
}

bool MenuEditor::SetGraphic(const std::string& id, const std::string& graphic) {
    const MenuEntry* entry = Find(id);
    if (entry == nullptr) return false;
    MenuText::CheckChange(graphic, entry->Graphic(), "MenuEditor.SetGraphic");
    if (entry->Graphic() == graphic) return Confirm();
    return Make(std::make_unique<GraphicChange>(id, graphic), NameFor(Message::ChangeGraphic, id));
}

bool MenuEditor::SetPart(const std::string& id, const PartFields& fields) {
    const MenuItem* item = AsItem(Find(id));
    if (item == nullptr) return false;
    const PartFields before = PartFieldsOf(*item);
    CheckPartFields(fields, before);
    if (fields == before) return Confirm();
    return Make(std::make_unique<PartChange>(id, fields), NameFor(Message::ChangePart, id));
}

// The name of a change to an existing entry, with the entry's current caption.
bool MenuEditor::NameAdded(const std::string& id, const std::string& caption) {
    if (Find(id) == nullptr) return false;
    const std::vector<ChangeName> before = m_history.UndoNames(1);
    SetCaption(id, caption);
    const std::vector<ChangeName> after = m_history.UndoNames(2);
    const bool isNamed =
        after.size() == 2 && after[0].textId == Message::ChangeCaption && after[1] == before[0];
    if (!isNamed || after[1].textId != Message::ChangeAdd) return true;
    m_history.MergeLastTwo({Message::ChangeAdd, {caption}});
    StateChanged();
    return true;
}

// A confirmed dialog makes the menu dirty, even if nothing was changed in it. There is nothing to undo then.
bool MenuEditor::Confirm() {
    m_history.ForgetSaved();
    StateChanged();
    return true;
}

ChangeName MenuEditor::NameFor(int textId, const std::string& id) const {
    const MenuEntry* entry = Find(id);
    return {textId, {std::string(entry != nullptr ? entry->Caption() : "")}};
}

bool MenuEditor::Make(std::unique_ptr<MenuChange> change, ChangeName name) {
    if (!m_menu) return false;
    std::unique_ptr<EditContext> before = m_group ? nullptr : Context();
    if (!m_group) m_lastIds.clear();
    if (!change->Apply(*m_menu, [this](const MenuEvent& event) { Report(event); })) return false;
    if (m_group) {
        m_grouped.push_back(std::move(change));
        return true;
    }
    m_history.Push(std::move(change), std::move(name), std::move(before));
    StateChanged();
    return true;
}

bool MenuEditor::MakePrepared(const std::function<std::unique_ptr<MenuChange>(Menu&)>& prepare) {
    return m_menu && m_group && Make(prepare(*m_menu), {});
}

void MenuEditor::BeginGroup(ChangeName name, std::size_t events) {
    m_group = std::move(name);
    m_groupContext = Context();
    m_lastIds.clear();
    ChangeBegins(events);
}

void MenuEditor::CommitGroup() {
    if (!m_grouped.empty()) {
        m_history.Push(std::make_unique<CompoundChange>(std::move(m_grouped)), *std::move(m_group),
                       std::move(m_groupContext));
        m_grouped.clear();
        StateChanged();
    }
    m_group.reset();
}

void MenuEditor::RollBackGroup() {
    for (; !m_grouped.empty(); m_grouped.pop_back())
        m_grouped.back()->Revert(*m_menu, [this](const MenuEvent& event) { Report(event); });
    if (const auto context = std::move(m_groupContext)) context->Restore();
    m_group.reset();
    m_lastIds.clear();
    StateChanged();
}

bool MenuEditor::Undo() {
    MenuChange* const change = m_history.ToUndo();
    if (change == nullptr) return false;
    m_lastIds.clear();
    ChangeBegins(change->EventCount());
    if (!change->Revert(*m_menu, [this](const MenuEvent& event) { Report(event); })) return false;
    if (EditContext* before = m_history.Undone()) before->Restore();
    StateChanged();
    return true;
}

bool MenuEditor::Redo() {
    MenuChange* const change = m_history.ToRedo();
    if (change == nullptr) return false;
    m_lastIds.clear();
    ChangeBegins(change->EventCount());
    if (!change->Apply(*m_menu, [this](const MenuEvent& event) { Report(event); })) return false;
    m_history.Redone();
    StateChanged();
    return true;
}

void MenuEditor::Report(const MenuEvent& event) {
    if (event.kind != MenuEvent::Kind::Removed) m_lastIds.push_back(event.id);
    Tell([&](MenuEditorListener& listener) { listener.OnMenuEvent(event); });
}

void MenuEditor::MenuReplaced() {
    Tell([](MenuEditorListener& listener) { listener.OnMenuReplaced(); });
}

void MenuEditor::ChangeBegins(std::size_t events) {
    if (events > 1) Tell([events](MenuEditorListener& listener) { listener.OnChangeBegins(events); });
}

void MenuEditor::FileWritten() {
    Tell([](MenuEditorListener& listener) { listener.OnFileWritten(); });
}

void MenuEditor::StateChanged() {
    Tell([](MenuEditorListener& listener) { listener.OnStateChanged(); });
}

// Calls all listeners. A listener that was removed before its turn is skipped.
template <typename Call>
void MenuEditor::Tell(Call call) {
    for (MenuEditorListener* listener : std::vector(m_listeners))
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end()) call(*listener);
}

} // namespace nesk
