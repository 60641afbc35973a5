#include "versions/MergeQuestions.h"

namespace nesk {

std::uint64_t MergeQuestions::KeyOf(MergeConflict::Kind kind, int node, MenuKey field) {
    return static_cast<std::uint64_t>(node) << 16 | static_cast<std::uint64_t>(kind) << 8 |
           static_cast<std::uint64_t>(field);
}

void MergeQuestions::Add(const MergeNodes& nodes, MergeConflict::Kind kind, int node, MenuKey field) {
    m_places.emplace(KeyOf(kind, node, field), m_all.size());
    m_all.push_back({kind, field, nodes.BaseEntry(node), nodes.Entry(Side::Ours, node),
                     nodes.Entry(Side::Theirs, node), Side::Ours});
}

Side MergeQuestions::Chosen(MergeConflict::Kind kind, int node, MenuKey field) const {
    const auto found = m_places.find(KeyOf(kind, node, field));
    return found != m_places.end() ? m_all[found->second].chosen : Side::Ours;
}

} // namespace nesk
