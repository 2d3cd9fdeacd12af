#include "desktop/import/ImportedDocument.h"

#include "desktop/import/Masses.h"
#include "desktop/import/MeasureApart.h"
#include "desktop/import/ModelBuilder.h"

#include <utility>

namespace desktop::step {

namespace {

/// `definitions` are those to measure.
class VolumeMeasuring final : public Measuring {
public:
    VolumeMeasuring(const ImportedDocument& document, StepReader& reader,
                    const ProductStructure& structure, std::vector<std::size_t> definitions)
        : m_document(document), m_reader(reader), m_structure(structure),
          m_definitions(std::move(definitions)),
          m_measuring(m_definitions.size(), [this](std::size_t part, const Progress& progress) {
              return m_reader.MeasureVolume(m_structure.definitions[m_definitions[part]].entity,
                                            progress);
          }) {}

    int GetDescriptor() const override { return m_measuring.GetDescriptor(); }
    bool Advance() override { return m_measuring.Advance(); }
    double GetShareDone() const override { return m_measuring.GetShareDone(); }
    Measures GetMeasures() const override {
        std::vector<std::optional<double>> volumes(m_structure.definitions.size());
        for (std::size_t i = 0; i < m_definitions.size(); ++i)
            volumes[m_definitions[i]] = m_measuring.GetValues()[i];
        return m_document.GetMeasures(volumes);
    }

private:
    const ImportedDocument& m_document;
    StepReader& m_reader;
    const ProductStructure& m_structure;
    std::vector<std::size_t> m_definitions;
    MeasuringApart m_measuring;
};

} // namespace

ImportedDocument::ImportedDocument(std::unique_ptr<StepReader> reader, StepContents contents,
                                   RootChoice choice, std::vector<Component> components,
                                   const std::wstring& title)
    : m_reader(std::move(reader)), m_structure(std::move(contents.structure)),
      m_hasSolids(contents.hasSolids), m_choice(std::move(choice)),
      m_components(std::move(components)),
      m_model(BuildModel(m_structure, m_choice, m_components, title)) {
    AddNote(contents.otherFiles.size(), "other file is", "other files are",
            " referred to and not followed");
    AddNote(contents.unclearDensities, "density has", "densities have",
            " no unit of mass per volume and can't be used");
    AddNote(m_choice.namesakes, "other assembly has", "other assemblies have",
            " the same name as the one shown");
    // The model has them; there may be millions.
    for (Component& component : m_components)
        component.occurrences = {};
}

std::unique_ptr<Measuring> ImportedDocument::StartMeasuring(MeasuredParts parts) {
    // Shells would be gone through for half a minute, to no end.
    std::vector<std::size_t> measured;
    if (m_hasSolids)
        measured = FindPartsToMeasure(m_structure, m_choice.tops, parts);
    return std::make_unique<VolumeMeasuring>(*this, *m_reader, m_structure, std::move(measured));
}

Measures ImportedDocument::GetMeasures(const std::vector<std::optional<double>>& volumes) const {
    const auto masses = ComputeDefinitionMasses(m_structure, m_choice.tops, volumes);
    Measures result;
    for (const Component& component : m_components) {
        const auto& values = component.isAssembly ? masses : volumes;
        if (const std::optional<double> value = values[component.definition]) {
            (component.isAssembly ? result.masses : result.volumes)
                .emplace_back(GetObjectKey(m_structure, component), *value);
        }
    }
    if (m_components.empty() && m_choice.root && volumes[*m_choice.root]) {
        result.volumes.emplace_back(m_model.root.key, *volumes[*m_choice.root]);
    }
    return result;
}

void ImportedDocument::AddNote(std::size_t count, const char* one, const char* many,
                               const char* rest) {
    if (count > 0)
        m_notes.push_back(std::to_string(count) + " " + (count == 1 ? one : many) + rest);
}

} // namespace desktop::step
