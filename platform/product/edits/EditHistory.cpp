#include "platform/product/edits/EditHistory.h"

#include <utility>

namespace platform {

void Step::Swap(ModelEditor& editor, Direction direction) {
    if (direction == Direction::Forth) {
        for (const auto& edit : edits)
            edit->Swap(editor, direction);
        return;
    }
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit)
        (*edit)->Swap(editor, direction);
}

void EditHistory::Add(Step step) {
    if (m_saved && *m_saved > m_made)
        m_saved.reset();
    m_steps.resize(m_made);
    m_steps.push_back(std::move(step));
    ++m_made;
}

Step* EditHistory::StepBack() {
    return m_made == 0 ? nullptr : &m_steps[--m_made];
}

Step* EditHistory::StepForth() {
    return m_made == m_steps.size() ? nullptr : &m_steps[m_made++];
}

const Step* EditHistory::PeekBack() const {
    return m_made == 0 ? nullptr : &m_steps[m_made - 1];
}

const Step* EditHistory::PeekForth() const {
    return m_made == m_steps.size() ? nullptr : &m_steps[m_made];
}

void EditHistory::Clear() {
    m_steps.clear();
    m_made = 0;
    m_saved = 0;
}

} // namespace platform
