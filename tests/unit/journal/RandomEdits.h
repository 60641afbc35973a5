#pragma once

#include "editing/MenuEditor.h"

#include <cstddef>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace nesk::testing {

/// Random edits of an open menu. The same seed makes the same edits of the same menu.
class RandomEdits {
public:
    RandomEdits(MenuEditor& editor, unsigned seed) : m_editor(editor), m_random(seed) {}

    /// Makes an edit, an undo or a redo. It may change nothing.
    void Make();

    /// A number from 0 to `limit` - 1.
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(m_random()) % limit; }

private:
    std::vector<std::string> Ids() const;
    std::string SomeId();
    std::string Text();
    PartFields Fields();
    EntryIds SomeIds();
    void MakeOne();
    void EditOne(const std::string& id, std::size_t kind);
    void EditSeveral(const std::string& id, std::size_t kind);
    void RollBack();

    MenuEditor& m_editor;
    std::mt19937 m_random;
};

/// Calls a function after each change of an open menu. One edit may make two changes.
class ChangeWatch final : public MenuEditorListener {
public:
    explicit ChangeWatch(MenuEditor& editor) : m_editor(editor) { editor.AddListener(*this); }
    ~ChangeWatch() override { m_editor.RemoveListener(*this); }
    ChangeWatch(const ChangeWatch&) = delete;
    ChangeWatch& operator=(const ChangeWatch&) = delete;

    std::function<void()> onChange;

    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent&) override {}
    void OnStateChanged() override {
        if (m_editor.IsOpen() && onChange) onChange();
    }

private:
    MenuEditor& m_editor;
};

} // namespace nesk::testing
