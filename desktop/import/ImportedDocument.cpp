#include "desktop/import/ImportedDocument.h"

#include "desktop/import/Masses.h"
#include "desktop/import/MeasureApart.h"
#include "desktop/import/ModelBuilder.h"
#include "desktop/import/TextDecoder.h"

#include <utility>

namespace desktop::step {

namespace {

constexpr const char* c_usualEncoding = "ISO-8859-1";

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
                                   FileRoots roots, const std::wstring& title,
                                   const StepOptions& options)
    : m_reader(std::move(reader)), m_structure(std::move(contents.structure)),
      m_hasSolids(contents.hasSolids), m_foreignTexts(std::move(contents.foreignTexts)),
      m_encoding(options.encoding.empty() ? c_usualEncoding : options.encoding),
      m_roots(std::move(roots)), m_objects(m_structure, m_roots.tops),
      m_model(BuildModel(m_structure, m_roots, m_objects, title, options.flatten)) {
    AddNote(contents.otherFiles.size(), "other file is", "other files are",
            " referred to and not followed");
    if (options.encoding.empty() && !m_foreignTexts.empty())
        m_notes.emplace_back("names that are no UTF-8 are read as Latin-1; another encoding can be "
                             "chosen (Text Encoding, --encoding)");
    AddNote(contents.unclearDensities, "density has", "densities have",
            " no unit of mass per volume and can't be used");
}

std::optional<std::wstring> ImportedDocument::Decode(const std::string& text,
                                                     const std::string& encoding) const {
    const std::optional<TextDecoder> decoder = TextDecoder::Make(encoding);
    return decoder ? std::optional(decoder->Decode(text)) : std::nullopt;
}

std::unique_ptr<Measuring> ImportedDocument::StartMeasuring(MeasuredParts parts,
                                                            const UniqueMetaObjectKey& below) {
    // Shells would be gone through for half a minute, to no end.
    std::vector<std::size_t> measured;
    if (m_hasSolids)
        measured = FindPartsToMeasure(m_structure, FindTops(below), parts);
    return std::make_unique<VolumeMeasuring>(*this, *m_reader, m_structure, std::move(measured));
}

std::variant<LineDrawing, FileError> ImportedDocument::Draw(const UniqueMetaObjectKey& object) {
    std::vector<int> entities;
    for (const std::size_t top : FindTops(object))
        entities.push_back(m_structure.definitions[top].entity);
    LineDrawing drawing = m_reader->Draw(entities);
    if (drawing.IsEmpty())
        return FileError{"no shape that can be drawn"};
    return drawing;
}

std::vector<std::size_t> ImportedDocument::FindTops(const UniqueMetaObjectKey& object) const {
    for (const ProductObject& known : m_objects.Get()) {
        if (known.key == object)
            return {known.definition};
    }
    return m_roots.tops;
}

Measures ImportedDocument::GetMeasures(const std::vector<std::optional<double>>& volumes) const {
    Measures result;
    for (const ProductObject& object : m_objects.Get()) {
        if (const std::optional<double> volume = volumes[object.definition])
            result.volumes.emplace_back(object.key, *volume);
    }
    return result;
}

void ImportedDocument::AddNote(std::size_t count, const char* one, const char* many,
                               const char* rest) {
    if (count > 0)
        m_notes.push_back(std::to_string(count) + " " + (count == 1 ? one : many) + rest);
}

} // namespace desktop::step
