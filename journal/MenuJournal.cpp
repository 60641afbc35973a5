#include "journal/MenuJournal.h"

#include "base/FileErrors.h"
#include "journal/JournalCode.h"
#include "journal/JournalEvents.h"
#include "journal/JournalPlaces.h"
#include "journal/JournalTree.h"
#include "platform/ErrorCode.h"
#include "platform/FileTime.h"

#include <cstddef>
#include <new>
#include <tuple>
#include <utility>

namespace nesk {

using platform::ErrorCode;

namespace {

// A change of many entries leaves a large buffer behind, which the next changes do not need.
constexpr std::size_t LargestKeptBuffer = std::size_t{1} << 20;

} // namespace

MenuJournal::MenuJournal(MenuEditor& editor, JournalOptions options, platform::FileSystem& files)
    : m_editor(editor), m_options(std::move(options)), m_files(files) {
    m_editor.AddListener(*this);
    Restart();
}

MenuJournal::~MenuJournal() {
    m_editor.RemoveListener(*this);
}

void MenuJournal::OnMenuEvent(const MenuEvent& event) {
    m_hasEvents = true;
    if (m_isStopped || m_needsWhole) return;
    try {
        JournalEncoder out(m_events);
        JournalEvents::Append(out, event, *m_editor.OpenMenu());
    } catch (const std::bad_alloc&) {
        m_needsWhole = true;
    } catch (const JournalDamage&) {
        m_needsWhole = true;
    }
}

void MenuJournal::OnStateChanged() {
    if (!m_editor.IsOpen()) return;
    if (!IsUnsaved()) {
        RemoveFiles();
        Forget();
        m_needsWhole = false;
    } else if (!m_isStopped && (m_hasEvents || IsNumberNew())) {
        Record();
    }
    m_hasEvents = false;
    m_events.clear();
    if (m_events.capacity() > LargestKeptBuffer) m_events = {};
}

// The file contains the menu as it is, so there is nothing to restore.
void MenuJournal::OnFileWritten() {
    RemoveFiles();
    Forget();
    ReadBase();
    m_isFileNewer = m_editor.IsDirty();
    try {
        m_counters = JournalCounters::Of(*m_editor.OpenMenu());
        m_needsWhole = false;
    } catch (const std::bad_alloc&) {
        m_needsWhole = true;
    }
}

// The changes apply to another file now, so they are recorded anew.
void MenuJournal::OnFileAdopted() {
    if (m_editor.IsDirty())
        Restart();
    else
        OnFileWritten();
}

void MenuJournal::Restart() {
    // The journal of the former menu stays until there is a new one: the menu may have been restored from it.
    const std::unique_ptr<JournalFile> former = std::move(m_file);
    const std::unique_ptr<JournalFile> broken = std::move(m_broken);
    Forget();
    m_counters.clear();
    m_isFailureTold = false;
    m_isFileNewer = false;
    m_needsWhole = m_editor.IsDirty();
    ReadBase();
    if (m_needsWhole) Record();
    for (JournalFile* file : {former.get(), broken.get()})
        if (file != nullptr) file->Remove(JournalRecord::End());
}

void MenuJournal::Forget() {
    m_hasEvents = false;
    m_events.clear();
    m_steps = 0;
    m_isStopped = false;
}

void MenuJournal::RemoveFiles() {
    for (std::unique_ptr<JournalFile>* file : {&m_file, &m_broken}) {
        if (*file) (*file)->Remove(JournalRecord::End());
        file->reset();
    }
}

void MenuJournal::Flush() {
    if (!m_file) return;
    const ErrorCode result = m_file->FlushInBackground();
    if (result == ErrorCode::Success) return;
    GiveUpFile();
    RecordInNewFile(result);
}

void MenuJournal::Discard() {
    RemoveFiles();
    Forget();
    m_needsWhole = true;
}

bool MenuJournal::TryAgain() {
    if (!m_isStopped) return true;
    m_isStopped = false;
    m_needsWhole = true;
    if (m_editor.IsOpen() && IsUnsaved()) Record();
    return !m_isStopped;
}

// The number of changes that Undo or Redo would have to take back; 0 when they cannot.
std::uint64_t MenuJournal::StepsFromFile() const {
    return m_isFileNewer ? 0 : m_editor.History().StepsFromSaved().value_or(0);
}

// Two changes may have become one.
bool MenuJournal::IsNumberNew() const {
    const std::uint64_t steps = StepsFromFile();
    return m_file && steps > 0 && steps != m_lastChanges;
}

JournalStep MenuJournal::NextStep() const {
    JournalStep step;
    step.time = platform::LocalTime();
    const std::uint64_t steps = StepsFromFile();
    step.changes = steps > 0 ? steps : m_steps + 1;
    step.events = m_events;
    return step;
}

void MenuJournal::Record() {
    ErrorCode result = ErrorCode::Success;
    if (m_file) {
        result = RecordInFile();
        if (result == ErrorCode::Success) return;
        GiveUpFile();
    }
    RecordInNewFile(result);
}

// When some changes are in no record, the next record contains the whole menu.
void MenuJournal::FillEvents() {
    if (!m_needsWhole) return;
    m_events.clear();
    JournalEncoder out(m_events);
    JournalEvents::AppendWhole(out, *m_editor.OpenMenu());
}

ErrorCode MenuJournal::RecordInFile() {
    try {
        FillEvents();
        const JournalStep step = NextStep();
        std::string bytes;
        JournalRecord::AppendStep(bytes, step);
        const ErrorCode result = m_file->Append(bytes);
        if (result == ErrorCode::Success) Recorded(step);
        return result;
    } catch (const std::bad_alloc&) {
        return ErrorCode::OutOfMemory;
    }
}

// Begins a journal, beside the menu or in the user's folder.
// @param former  why the former journal ended; unless Success, the folder of the menu is not tried again
void MenuJournal::RecordInNewFile(ErrorCode former) {
    const std::string place = m_editor.Place();
    std::string failed = place;
    ErrorCode result = former;
    try {
        FillEvents();
        const JournalStep step = NextStep();
        std::string bytes =
            JournalRecord::Begin({m_options.owner, place, m_editor.HashOnDisk().Text(), m_counters});
        JournalRecord::AppendStep(bytes, step);
        if (former == ErrorCode::Success) result = CreateIn(JournalPlaces::Beside(place), bytes);
        if (result != ErrorCode::Success && !m_options.folder.empty()) {
            MakeFolder();
            failed = m_options.folder;
            result = CreateIn(JournalPlaces::InFolder(m_options.folder, place), bytes);
        }
        if (result == ErrorCode::Success) Recorded(step);
    } catch (const std::bad_alloc&) {
        result = ErrorCode::OutOfMemory;
    }
    if (result != ErrorCode::Success) return Stop(result, failed);
    if (m_broken) m_broken->Remove(JournalRecord::End());
    m_broken.reset();
    if (m_options.keepsBase) m_file->KeepBase(m_base.Bytes());
}

void MenuJournal::ReadBase() {
    m_base.Clear();
    if (m_options.keepsBase && m_editor.IsOpen())
        m_base.Read(m_editor.Place(), m_editor.HashOnDisk(), m_files, m_options.inBackground);
}

void MenuJournal::Recorded(const JournalStep& step) {
    m_lastChanges = step.changes;
    ++m_steps;
    m_needsWhole = false;
    m_isFailureTold = false;
}

// Creates the journal at the first place where nothing is.
ErrorCode MenuJournal::CreateIn(const std::vector<std::string>& paths, const std::string& bytes) {
    ErrorCode result = ErrorCode::AlreadyExists;
    for (const std::string& path : paths) {
        result = JournalFile::Create(path, bytes, m_files, m_options.inBackground, m_file);
        if (result != ErrorCode::AlreadyExists) break;
    }
    return result;
}

// Creates what is missing of the user's folder. Whether that succeeded is seen when a file is created there.
void MenuJournal::MakeFolder() {
    const std::string& folder = m_options.folder;
    std::uint32_t attributes = 0;
    if (m_files.Attributes(folder, attributes) == ErrorCode::Success) return;
    for (std::size_t at = folder.find('\\'); at != std::string::npos; at = folder.find('\\', at + 1))
        std::ignore = m_files.MakeFolder(folder.substr(0, at));
    std::ignore = m_files.MakeFolder(folder);
}

// The journal stays on disk with the changes that it has, but takes no more.
void MenuJournal::GiveUpFile() {
    m_broken = std::move(m_file);
    m_needsWhole = true;
}

void MenuJournal::Stop(ErrorCode result, const std::string& path) {
    m_isStopped = true;
    if (std::exchange(m_isFailureTold, true) || !onFailure) return;
    onFailure(FileError(result, "MenuJournal.Record", path));
}

} // namespace nesk
