// An open product: its document in memory and the panel that shows it, with or without a window.
// One exists at a time.
#pragma once

#include "desktop/Document.h"

#include <memory>

namespace platform {
class HostFrame;
class MemoryProduct;
class TreeTableView;
} // namespace platform

namespace desktop {

class Session {
public:
    /// The panel is built when this returns.
    explicit Session(Document document);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    platform::TreeTableView& GetView() const;
    const std::filesystem::path& GetPath() const { return m_path; }
    const std::vector<std::string>& GetNotes() const { return m_notes; }
    /// Null for a product file.
    import::StepDocument* GetStep() const {return m_step.get();
}

    void ExpandAll();
/// All but the root row, which alone would tell nothing of the product.
void CollapseAll();
/// Writes the masses into the document and builds the panel again: objects that differ in mass
/// alone are not alike.
void TakeMasses(const import::StepDocument::Masses& masses);

private:
std::filesystem::path m_path;
std::vector<std::string> m_notes;
std::unique_ptr<import::StepDocument> m_step;
std::shared_ptr<platform::MemoryProduct> m_product;
std::unique_ptr<platform::HostFrame> m_frame;
}; // namespace desktop

} // namespace desktop
