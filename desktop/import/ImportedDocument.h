// A STEP file in memory as the program holds it: its document for the panel, and what is needed to
// weigh it later.
#pragma once

#include "desktop/import/ProductObjects.h"
#include "desktop/import/StepContents.h"
#include "desktop/import/StepImport.h"
#include "desktop/import/StepReader.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace desktop::step {

class ImportedDocument final : public StepDocument {
public:
    /// `title` names the root where no product of the file does.
    ImportedDocument(std::unique_ptr<StepReader> reader, StepContents contents, FileRoots roots,
                     const std::wstring& title, const StepOptions& options);

    const platform::ProductModel& GetModel() const override { return m_model; }
    const std::vector<std::string>& GetNotes() const override { return m_notes; }
    const std::vector<std::string>& GetForeignTexts() const override { return m_foreignTexts; }
    const std::string& GetEncoding() const override { return m_encoding; }
    std::optional<std::wstring> Decode(const std::string& text,
                                       const std::string& encoding) const override;
    std::unique_ptr<Measuring> StartMeasuring(MeasuredParts parts,
                                              const UniqueMetaObjectKey& below) override;
    std::variant<LineDrawing, FileError> Draw(const UniqueMetaObjectKey& object) override;

    /// From volumes in m3, by definition.
    Measures GetMeasures(const std::vector<std::optional<double>>& volumes) const;

private:
    /// What the key stands for: the definition of its object, else all that nothing else uses.
    std::vector<std::size_t> FindTops(const UniqueMetaObjectKey& object) const;
    void AddNote(std::size_t count, const char* one, const char* many, const char* rest);

    std::unique_ptr<StepReader> m_reader;
    ProductStructure m_structure;
    bool m_hasSolids;
    std::vector<std::string> m_foreignTexts;
    std::string m_encoding;
    FileRoots m_roots;
    ProductObjects m_objects;
    platform::ProductModel m_model;
    std::vector<std::string> m_notes;
};

} // namespace desktop::step
