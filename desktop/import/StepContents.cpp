#include "desktop/import/StepContents.h"

#include "desktop/import/ReadMaterial.h"
#include "desktop/import/ReadText.h"
#include "desktop/import/TextDecoder.h"
#include "platform/values/Utf8.h"

#include <Standard_Failure.hxx>
#include <StepBasic_DocumentFile.hxx>
#include <StepBasic_Product.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepBasic_ProductDefinitionFormation.hxx>
#include <StepBasic_ProductDefinitionOrReference.hxx>
#include <StepBasic_ProductDefinitionReference.hxx>
#include <StepData_StepModel.hxx>
#include <StepRepr_CharacterizedDefinition.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepRepr_ProductDefinitionShape.hxx>
#include <StepRepr_PropertyDefinitionRepresentation.hxx>
#include <StepShape_SolidModel.hxx>
#include <TCollection_HAsciiString.hxx>

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace desktop::step {

namespace {

using EntityRef = const Standard_Transient*;

/// Enough to see what they are.
constexpr std::size_t c_mostForeignTexts = 100;

class ContentsReader final {
public:
    ContentsReader(const StepData_StepModel& model, const TextDecoder& decoder)
        : m_model(model), m_decoder(decoder) {}

    std::variant<StepContents, FileError> Read() {
        // Definitions first: records may stand in any order.
        for (int i = 1; i <= m_model.NbEntities(); ++i)
            AddDefinition(i);
        for (int i = 1; i <= m_model.NbEntities(); ++i)
            AddRelation(m_model.Value(i));
        if (m_brokenUse)
            return FileError{"damaged: the use of a product in record #" +
                             std::to_string(*m_brokenUse) + " leads to nothing"};
        return std::move(m_contents);
    }

private:
    void AddDefinition(int rank) {
        const Handle(Standard_Transient)& entity = m_model.Value(rank);
        if (const auto local = Handle(StepBasic_ProductDefinition)::DownCast(entity))
            AddLocal(*local, rank);
        else if (const auto other = Handle(StepBasic_ProductDefinitionReference)::DownCast(entity))
            AddExternal(*other, rank);
    }

    void AddLocal(const StepBasic_ProductDefinition& definition, int rank) {
        if (definition.Formation().IsNull())
            return;
        const Handle(StepBasic_Product) product = definition.Formation()->OfProduct();
        if (product.IsNull())
            return;
        const auto [known, isNew] =
            m_products.emplace(product.get(), m_contents.structure.products.size());
        if (isNew)
            AddProduct(product, product->Id(), product->Name());
        Add(definition, rank, known->second);
    }

    /// The stand-in for a product of another file, of which only the id is known here.
    void AddExternal(const StepBasic_ProductDefinitionReference& reference, int rank) {
        const std::size_t product = m_contents.structure.products.size();
        AddProduct(m_model.Value(rank), reference.ProductId(), {});
        Add(reference, rank, product);
        m_contents.otherFiles.insert(RawText(reference.ProductId().get()));
    }

    void AddProduct(const Handle(Standard_Transient) & record,
                    const Handle(TCollection_HAsciiString) & id,
                    const Handle(TCollection_HAsciiString) & name) {
        m_contents.structure.products.push_back(
            {m_model.IdentLabel(record), ToText(id), ToText(name)});
    }

    void Add(const Standard_Transient& record, int rank, std::size_t product) {
        m_definitions.emplace(&record, m_contents.structure.definitions.size());
        Definition definition;
        definition.entity = rank;
        definition.product = product;
        m_contents.structure.definitions.push_back(std::move(definition));
    }

    void AddRelation(const Handle(Standard_Transient) & entity) {
        if (const auto use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(entity))
            AddUse(use);
        else if (const auto shape = Handle(StepRepr_ProductDefinitionShape)::DownCast(entity))
            AddShape(*shape);
        else if (const auto property =
                     Handle(StepRepr_PropertyDefinitionRepresentation)::DownCast(entity))
            AddMaterial(*property);
        else if (entity->IsKind(STANDARD_TYPE(StepShape_SolidModel)))
            m_contents.hasSolids = true;
        else if (const auto file = Handle(StepBasic_DocumentFile)::DownCast(entity))
            m_contents.otherFiles.insert(RawText(file->Id().get()));
    }

    void AddUse(const Handle(StepRepr_NextAssemblyUsageOccurrence) & use) {
        Definition* parent = Find(use->RelatingProductDefinitionAP242().Value().get());
        Definition* child = Find(use->RelatedProductDefinitionAP242().Value().get());
        const int number = m_model.IdentLabel(use);
        if (!parent || !child) {
            m_brokenUse = m_brokenUse.value_or(number);
            return;
        }
        child->isUsed = true;
        const Definition* first = m_contents.structure.definitions.data();
        parent->uses.push_back({number, static_cast<std::size_t>(child - first)});
    }

    void AddShape(const StepRepr_ProductDefinitionShape& shape) {
        if (Definition* definition = Find(shape.Definition().ProductDefinition().get()))
            definition->hasShape = true;
    }

    void AddMaterial(const StepRepr_PropertyDefinitionRepresentation& property) {
        Definition* definition = Find(GetDefinitionOf(property));
        if (!definition)
            return;
        const MaterialFacts facts = ReadMaterial(property);
        Material& material = definition->material;
        if (material.name.empty())
            material.name = Decode(facts.name);
        if (!material.density)
            material.density = facts.density;
        m_contents.unclearDensities += facts.isDensityUnclear ? 1 : 0;
    }

    /// Null for nothing and for a definition without product.
    Definition* Find(EntityRef record) {
        const auto found = m_definitions.find(record);
        return found == m_definitions.end() ? nullptr
                                            : &m_contents.structure.definitions[found->second];
    }

    std::wstring ToText(const Handle(TCollection_HAsciiString) & text) {
        return Decode(RawText(text.get()));
    }

    std::wstring Decode(const std::string& text) {
        std::vector<std::string>& foreign = m_contents.foreignTexts;
        if (!platform::FromUtf8(text) && foreign.size() < c_mostForeignTexts &&
            std::ranges::find(foreign, text) == foreign.end())
            foreign.push_back(text);
        return m_decoder.Decode(text);
    }

    const StepData_StepModel& m_model;
    const TextDecoder& m_decoder;
    StepContents m_contents;
    std::unordered_map<EntityRef, std::size_t> m_products;
    std::unordered_map<EntityRef, std::size_t> m_definitions;
    std::optional<int> m_brokenUse;
};

} // namespace

std::variant<StepContents, FileError> ReadContents(const StepData_StepModel& model,
                                                   const TextDecoder& decoder) {
    try {
        return ContentsReader(model, decoder).Read();
    } catch (const Standard_Failure& failure) {
        return FileError{std::string("damaged: ") + failure.DynamicType()->Name()};
    }
}

} // namespace desktop::step
