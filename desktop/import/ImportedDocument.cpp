#include "desktop/import/ImportedDocument.h"

#include "desktop/import/Masses.h"
#include "desktop/import/MeasureApart.h"
#include "desktop/import/ModelBuilder.h"

#include <utility>

namespace desktop::import {

ImportedDocument::ImportedDocument(std::unique_ptr<StepReader> reader, StepContents contents,
                                   RootChoice choice, std::vector<Component> components,
                                   const std::wstring& title)
    : m_reader(std::move(reader)), m_structure(std::move(contents.structure)),
      m_choice(std::move(choice)), m_components(std::move(components)),
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

StepDocument::Masses ImportedDocument::ComputeMasses(const Progress& progress) {
    const std::vector<std::size_t> parts = FindPartsToMeasure(m_structure, m_choice.tops);
    const Measure measure = [&](std::size_t part, const Progress& share) {
        return m_reader->MeasureVolume(m_structure.definitions[parts[part]].entity, share);
    };
    const auto measured = MeasureApart(parts.size(), measure, progress);
    if (!measured)
        return {};
    std::vector<std::optional<double>> volumes(m_structure.definitions.size());
    for (std::size_t i = 0; i < parts.size(); ++i)
        volumes[parts[i]] = (*measured)[i];
    return MassesOfObjects(ComputeDefinitionMasses(m_structure, m_choice.tops, volumes));
}

StepDocument::Masses
ImportedDocument::MassesOfObjects(const std::vector<std::optional<double>>& masses) const {
    Masses result;
    for (const Component& component : m_components) {
        if (const std::optional<double> mass = masses[component.definition])
            result.emplace_back(GetObjectKey(m_structure, component), *mass);
    }
    if (const std::optional<double> mass = RootMass(masses))
        // A key of its own: copies of the model's are counted on another thread.
        result.emplace_back(UniqueMetaObjectKey(std::string(m_model.root.key.String())), *mass);
    return result;
}

std::optional<double>
ImportedDocument::RootMass(const std::vector<std::optional<double>>& masses) const {
    double sum = 0;
    for (const std::size_t top : m_choice.tops) {
        if (!masses[top])
            return std::nullopt;
        sum += *masses[top];
    }
    return sum;
}

void ImportedDocument::AddNote(std::size_t count, const char* one, const char* many,
                               const char* rest) {
    if (count > 0)
        m_notes.push_back(std::to_string(count) + " " + (count == 1 ? one : many) + rest);
}

} // namespace desktop::import
