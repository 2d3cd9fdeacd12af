#include "desktop/import/ProductStructure.h"

#include <algorithm>
#include <utility>

namespace desktop::step {

namespace {

/// Visits definitions depth first without recursion, since files can nest as deep as they like.
class DepthFirst final {
public:
    explicit DepthFirst(const ProductStructure& structure)
        : m_structure(structure), m_states(structure.definitions.size(), State::New) {}

    /// Adds to GetFinished what `root` leads to, users after what they use. False when a cycle is
    /// met; GetCulprit tells where.
    bool Visit(std::size_t root) {
        if (m_states[root] == State::New)
            Open(root);
        while (!m_path.empty()) {
            auto& [definition, nextUse] = m_path.back();
            const std::vector<Use>& uses = m_structure.definitions[definition].uses;
            if (nextUse == uses.size()) {
                Close();
                continue;
            }
            const std::size_t child = uses[nextUse++].child;
            if (m_states[child] == State::Open) {
                m_culprit = child;
                return false;
            }
            if (m_states[child] == State::New)
                Open(child);
        }
        return true;
    }

    std::vector<std::size_t>& GetFinished() { return m_finished; }
    std::size_t GetCulprit() const { return m_culprit; }

private:
    enum class State : char { New, Open, Closed };

    void Open(std::size_t definition) {
        m_states[definition] = State::Open;
        m_path.emplace_back(definition, 0);
    }

    void Close() {
        const std::size_t definition = m_path.back().first;
        m_states[definition] = State::Closed;
        m_finished.push_back(definition);
        m_path.pop_back();
    }

    const ProductStructure& m_structure;
    std::vector<State> m_states;
    /// The open definitions, each with the place of its use that is to be visited next.
    std::vector<std::pair<std::size_t, std::size_t>> m_path;
    std::vector<std::size_t> m_finished;
    std::size_t m_culprit = 0;
};

} // namespace

std::vector<std::size_t> FindFreeRoots(const ProductStructure& structure) {
    std::vector<std::size_t> roots;
    for (std::size_t i = 0; i < structure.definitions.size(); ++i) {
        const Definition& definition = structure.definitions[i];
        if (!definition.isUsed && (definition.hasShape || definition.IsAssembly()))
            roots.push_back(i);
    }
    return roots;
}

std::optional<std::size_t> FindCycle(const ProductStructure& structure) {
    DepthFirst walk(structure);
    for (std::size_t i = 0; i < structure.definitions.size(); ++i) {
        if (!walk.Visit(i))
            return walk.GetCulprit();
    }
    return std::nullopt;
}

std::vector<std::size_t> SortByUse(const ProductStructure& structure,
                                   const std::vector<std::size_t>& roots) {
    DepthFirst walk(structure);
    for (const std::size_t root : roots)
        walk.Visit(root);
    std::vector<std::size_t> sorted = std::move(walk.GetFinished());
    std::ranges::reverse(sorted);
    return sorted;
}

} // namespace desktop::step
