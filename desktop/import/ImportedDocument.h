// A STEP file in memory as the program holds it: its document for the panel, and what is needed to
// weigh it later.
#pragma once

#include "desktop/import/ProductSelection.h"
#include "desktop/import/StepContents.h"
#include "desktop/import/StepImport.h"
#include "desktop/import/StepReader.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace desktop::step {

class ImportedDocument final : public StepDocument {
public:
    /// `title` names the root where no product of the file does.
    ImportedDocument(std::unique_ptr<StepReader> reader, StepContents contents, RootChoice choice,
                     std::vector<Component> components, const std::wstring& title);

    const platform::ProductModel& GetModel() const override { return m_model; }
    const std::vector<std::string>& GetNotes() const override { return m_notes; }
    std::unique_ptr<Measuring> StartMeasuring(MeasuredParts parts) override;

    /// From volumes in m3, by definition.
    Measures GetMeasures(const std::vector<std::optional<double>>& volumes) const;

private:
    void AddNote(std::size_t count, const char* one, const char* many, const char* rest);

    std::unique_ptr<StepReader> m_reader;
    ProductStructure m_structure;
    bool m_hasSolids;
    RootChoice m_choice;
    std::vector<Component> m_components;
    platform::ProductModel m_model;
    std::vector<std::string> m_notes;
};

} // namespace desktop::step
