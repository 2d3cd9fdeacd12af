// The steps that the user has made, to be gone back and forth, and where among them the document
// was saved.
#pragma once

#include "platform/product/edits/ModelEdits.h"

#include <memory>
#include <vector>

namespace platform {

/// One action of the user's, however many objects it changed.
struct Step {
    /// What it did, in the user's words.
    SharedText name;
    /// In the order in which they went forth.
    std::vector<std::unique_ptr<IModelEdit>> edits;
    /// Where it was made: its keys are those of that level.
    ProductLevel level = {};

    void Swap(ModelEditor& editor, Direction direction);
};

class EditHistory {
public:
    /// A step that was just made. What could be redone is forgotten.
    void Add(Step step);
    /// Null when there is none. The caller lets it swap.
    Step* StepBack();
    Step* StepForth();
    const Step* PeekBack() const;
    const Step* PeekForth() const;

    bool IsAtSaved() const { return m_saved == m_made; }
    void MarkSaved() { m_saved = m_made; }
    /// No steps, and saved.
    void Clear();

private:
    std::vector<Step> m_steps;
    /// How many of them are made and not taken back.
    std::size_t m_made = 0;
    /// How many of them were when the document was saved; no value: the way there is forgotten.
    std::optional<std::size_t> m_saved = 0;
};

} // namespace platform
