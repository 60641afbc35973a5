#pragma once

#include "versions/MenuMerge.h"

#include <cstdint>
#include <unordered_map>

namespace nesk {

/// The conflicts of a merge, found by their kind, their node and their field.
class MergeQuestions {
public:
    void Add(const MergeNodes& nodes, MergeConflict::Kind kind, int node, MenuKey field = MenuKey::Caption);

    /// The chosen side; ours when there is no such conflict.
    Side Chosen(MergeConflict::Kind kind, int node, MenuKey field = MenuKey::Caption) const;

    std::vector<MergeConflict>& All() { return m_all; }
    const std::vector<MergeConflict>& All() const { return m_all; }

private:
    static std::uint64_t KeyOf(MergeConflict::Kind kind, int node, MenuKey field);

    std::vector<MergeConflict> m_all;
    std::unordered_map<std::uint64_t, std::size_t> m_places;
};

} // namespace nesk
