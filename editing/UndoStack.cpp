#include "editing/UndoStack.h"

#include "editing/CompoundChange.h"

#include <utility>

namespace nesk {

void UndoStack::Push(std::unique_ptr<MenuChange> change, ChangeName name,
                     std::unique_ptr<EditContext> before) {
    if (m_saved && *m_saved > m_done) m_saved.reset();
    DropRedo();
    Step& step = m_steps.emplace_back(Step{std::move(change), std::move(name), 0, std::move(before)});
    step.bytes = BytesOf(step);
    m_bytes += step.bytes;
    ++m_done;
    DropOldest();
}

std::size_t UndoStack::BytesOf(const Step& step) {
    std::size_t bytes = sizeof(Step) + step.change->Bytes();
    for (const std::string& argument : step.name.arguments)
        bytes += sizeof(std::string) + argument.size();
    return step.before ? bytes + step.before->Bytes() : bytes;
}

void UndoStack::MergeLastTwo(ChangeName name) {
    if (m_done < 2 || m_done != m_steps.size() || m_saved == m_done - 1) return;
    Step& first = m_steps[m_done - 2];
    std::vector<std::unique_ptr<MenuChange>> changes;
    changes.push_back(std::move(first.change));
    changes.push_back(std::move(m_steps.back().change));
    m_bytes -= first.bytes + m_steps.back().bytes;
    m_steps.pop_back();
    first.change = std::make_unique<CompoundChange>(std::move(changes));
    first.name = std::move(name);
    first.bytes = BytesOf(first);
    m_bytes += first.bytes;
    // The state after both keeps its mark.
    if (m_saved == m_done) --*m_saved;
    --m_done;
}

void UndoStack::DropRedo() {
    for (; m_steps.size() > m_done; m_steps.pop_back())
        m_bytes -= m_steps.back().bytes;
}

void UndoStack::DropOldest() {
    std::size_t dropped = 0;
    for (; m_bytes > m_limit && dropped + 1 < m_steps.size(); ++dropped)
        m_bytes -= m_steps[dropped].bytes;
    if (dropped == 0) return;
    m_steps.erase(m_steps.begin(), m_steps.begin() + static_cast<std::ptrdiff_t>(dropped));
    m_done -= dropped;
    if (m_saved && *m_saved < dropped)
        m_saved.reset();
    else if (m_saved)
        *m_saved -= dropped;
}

std::optional<std::size_t> UndoStack::StepsFromSaved() const {
    if (!m_saved) return std::nullopt;
    return *m_saved < m_done ? m_done - *m_saved : *m_saved - m_done;
}

void UndoStack::Clear() {
    m_steps.clear();
    m_bytes = 0;
    m_done = 0;
    m_saved = 0;
}

std::vector<ChangeName> UndoStack::UndoNames(std::size_t most) const {
    std::vector<ChangeName> names;
    for (std::size_t i = m_done; i > 0 && names.size() < most;)
        names.push_back(m_steps[--i].name);
    return names;
}

std::vector<ChangeName> UndoStack::RedoNames(std::size_t most) const {
    std::vector<ChangeName> names;
    for (std::size_t i = m_done; i < m_steps.size() && names.size() < most; ++i)
        names.push_back(m_steps[i].name);
    return names;
}

} // namespace nesk
