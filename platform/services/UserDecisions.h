// How anything asks the user to decide: a question with buttons, a text to enter, a file to open or
// to write, a property to link to, a section, a roughness, a material, values of properties, what a
// document is called, a message to take note of. The program answers with real dialogs, a test with
// a script. Code that needs a decision is given an IUserDecisions and knows no dialog.
#pragma once

#include "host/SharedText.h"
#include "host/UniqueMetaObjectKey.h"

#include <cstddef>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace platform {

struct Question {
    SharedText title;
    SharedText text;
    /// Captions, from the answer that is the usual one on.
    std::vector<SharedText> buttons;
};

struct FileRequest {
    SharedText title;
    /// File name patterns, for instance L"*.step"; empty: any file.
    std::vector<std::wstring> patterns;
    /// Where to begin; empty: wherever the user was last.
    std::filesystem::path start;
    /// The file is to be written; the user has agreed if it is there already.
    bool forWriting = false;
};

struct TextRequest {
    SharedText title;
    /// What is asked for.
    SharedText text;
    /// What stands in the field at first.
    SharedText present;
};

/// A property of an object.
struct PropertyChoice {
    UniqueMetaObjectKey object;
    /// Column id.
    SharedText propertyId;

    friend bool operator==(const PropertyChoice&, const PropertyChoice&) = default;
};

/// An object as the user knows it.
struct OfferedObject {
    UniqueMetaObjectKey key;
    /// Both may be empty.
    SharedText name;
    SharedText designation;
};

/// One of these objects is to be chosen.
struct ObjectRequest {
    SharedText title;
    std::vector<OfferedObject> objects;
};

/// One of these objects with one of these properties is to be chosen.
struct PropertyRequest {
    struct Property {
        /// Column id.
        SharedText id;
        SharedText caption;
    };

    SharedText title;
    std::vector<OfferedObject> objects;
    std::vector<Property> properties;
    /// What is chosen now; no value: nothing. It need not be among those offered.
    std::optional<PropertyChoice> present;
};

/// One of these sections is to be chosen, and whether names follow it.
struct SectionRequest {
    struct Section {
        SharedText name;
        /// 0 on the top level; else the section stands in the last one before it with less.
        std::size_t depth = 0;
    };

    SharedText title;
    std::vector<Section> sections;
    /// The place of the one that is chosen now; no value: none of them, or several.
    std::optional<std::size_t> present;
    /// What the user is asked beside the section, and the answer that stands there at first.
    SharedText linkText;
    bool isNameLinked = false;
};

struct SectionDecision {
    /// The place of the chosen section.
    std::size_t section = 0;
    bool isNameLinked = false;
};

/// Any of these lines are to be chosen.
struct ListRequest {
    struct Line {
        SharedText text;
        bool isChosen = false;
    };

    SharedText title;
    std::vector<Line> lines;
};

/// The properties of one object, of which the user may change some.
struct ItemPropertiesRequest {
    enum class Kind { Text, Moment, Int, Double, Bool, List };
    /// Nothing, a text or a moment in ISO 8601, a number as it is shown, a truth value, or the
    /// place of one of a list. In place of a number also the text that was typed for one.
    using Value = std::variant<std::monostate, SharedText, int, double, bool, std::size_t>;
    struct Line {
        /// With the unit in which the value is shown.
        SharedText caption;
        Kind kind = Kind::Text;
        Value value;
        /// What may be chosen, for a list.
        std::vector<SharedText> list;
        bool canChange = false;
        /// Where the value comes from, in words.
        SharedText source;
        /// Why the value that stands here was not taken; empty for one that nobody has refused.
        SharedText refusal;
    };

    SharedText title;
    std::vector<Line> lines;
};

/// What the user has made of one of the lines, by its place.
struct ItemPropertyInput {
    std::size_t line = 0;
    ItemPropertiesRequest::Value value;
};

struct RoughnessDecision {
    /// The place of the sign in the list; no value: there is none.
    std::optional<std::size_t> sign;
    SharedText text;
};

/// The roughness of a surface is to be given: how it may be made, and its parameter with a value.
struct RoughnessRequest {
    enum class Process { Any, Machined, NotMachined, Other };
    struct Sign {
        SharedText text;
        /// What the sign says; other ones have no picture.
        Process process = Process::Other;
    };

    SharedText title;
    std::vector<Sign> signs;
    RoughnessDecision present;
    bool canChangeSign = true;
    bool canChangeText = true;
    /// Why what stands here was not taken; empty for what nobody has refused.
    SharedText refusal;
};

/// Material, density and mass of some objects are to be chosen together. Numbers are as they are
/// shown.
struct MaterialRequest {
    struct Material {
        /// As it stands in the column.
        SharedText name;
        std::optional<double> density;

        friend bool operator==(const Material&, const Material&) = default;
    };
    /// What can be said of one property of all the objects.
    struct Field {
        /// Why it can't be changed for any of them; empty where it can.
        SharedText fixed;
        /// They have different values.
        bool isMixed = false;
    };
    struct Number : Field {
        /// What all of them have; no value: they have none, or not the same.
        std::optional<double> value;
        SharedText unit;
        /// What is multiplied with a number of kg or kg/m3 to be shown.
        double coefficient = 1;
        /// What is allowed.
        double min = 0;
        double max = 0;
    };
    /// For how many of the objects a volume is known.
    enum class Volumes { None, Some, All };

    SharedText title;
    std::size_t objectCount = 0;
    Field material;
    /// What all of them have; empty: none, or not the same.
    SharedText materialName;
    Number density;
    Number mass;
    Volumes volumes = Volumes::None;
    /// In cubic metres, where all of them have the same.
    std::optional<double> volume;
    /// What the user should know beforehand, a sentence each: what some of the objects keep.
    std::vector<SharedText> notes;
    /// The materials that stand in the product, each of them once.
    std::vector<Material> fromFile;
};

/// What of it is to be set. No value: it stays as it is.
struct MaterialDecision {
    /// Empty: there is to be none.
    std::optional<SharedText> name;
    /// An inner no value: there is to be none. Of the mass also: it follows from volume and density
    /// where it can.
    std::optional<std::optional<double>> density;
    std::optional<std::optional<double>> mass;
};

/// What the user says of a document.
struct DocumentTexts {
    SharedText designation;
    SharedText name;
    SharedText format;
    SharedText comment;

    friend bool operator==(const DocumentTexts&, const DocumentTexts&) = default;
};

struct DocumentRequest {
    SharedText title;
    /// What stands in the fields at first.
    DocumentTexts texts;
    /// Why they were not taken; empty where nobody has refused them.
    SharedText refusal;
};

class IUserDecisions {
public:
    virtual ~IUserDecisions() = default;

    /// The place of the chosen button; no value when the user has closed the question.
    virtual std::optional<std::size_t> Ask(const Question& question) = 0;
    /// No value when the user has chosen nothing.
    virtual std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) = 0;
    /// Several that are there, where the request is not one for writing; none when the user has
    /// chosen nothing.
    virtual std::vector<std::filesystem::path> ChooseFiles(const FileRequest& request) = 0;
    /// No value when the user has cancelled. An empty text is an answer.
    virtual std::optional<SharedText> EnterText(const TextRequest& request) = 0;
    virtual std::optional<UniqueMetaObjectKey> ChooseObject(const ObjectRequest& request) = 0;
    virtual std::optional<PropertyChoice> ChooseProperty(const PropertyRequest& request) = 0;
    virtual std::optional<SectionDecision> ChooseSection(const SectionRequest& request) = 0;
    virtual std::optional<RoughnessDecision> ChooseRoughness(const RoughnessRequest& request) = 0;
    virtual std::optional<MaterialDecision> ChooseMaterial(const MaterialRequest& request) = 0;
    /// Which lines are chosen now, as many as were offered.
    virtual std::optional<std::vector<bool>> ChooseSeveral(const ListRequest& request) = 0;
    /// The lines that the user has changed; no value when he has cancelled.
    virtual std::optional<std::vector<ItemPropertyInput>>
    EditItemProperties(const ItemPropertiesRequest& request) = 0;
    /// All texts as they are to be; no value when he has cancelled.
    virtual std::optional<DocumentTexts> EditDocument(const DocumentRequest& request) = 0;
    /// Returns when the user has taken note.
    virtual void Tell(const SharedText& title, const SharedText& text) = 0;
};

/// Who decides for the host's own functions, which are given nobody; null while nobody does.
IUserDecisions* GetUserDecisions();

class UserDecisionsSlot {
public:
    /// `decisions` decide until others come or this object goes, then others that are there.
    explicit UserDecisionsSlot(IUserDecisions& decisions);
    UserDecisionsSlot(const UserDecisionsSlot&) = delete;
    UserDecisionsSlot& operator=(const UserDecisionsSlot&) = delete;
    ~UserDecisionsSlot();

    /// They decide again: the user works there.
    void MakeCurrent();

private:
    IUserDecisions& m_decisions;
};

/// Answers from a script, in its order, and keeps what it was asked. When the script has run out
/// every question is closed without an answer.
class ScriptedDecisions final : public IUserDecisions {
public:
    void AnswerNext(std::optional<std::size_t> button) { m_buttons.push_back(button); }
    void ChooseNext(std::optional<std::filesystem::path> file) {
        m_files.push_back(std::move(file));
    }

    void ChooseNextFiles(std::vector<std::filesystem::path> files) {
        m_severalFiles.emplace_back(std::move(files));
    }
    void EnterNext(std::optional<SharedText> text) { m_texts.push_back(std::move(text)); }
    void ChooseNextObject(std::optional<UniqueMetaObjectKey> object) {
        m_objects.push_back(std::move(object));
    }
    void ChooseNextProperty(std::optional<PropertyChoice> choice) {
        m_properties.push_back(std::move(choice));
    }
    void ChooseNextSeveral(std::optional<std::vector<bool>> lines) {
        m_lines.push_back(std::move(lines));
    }
    void ChooseNextSection(std::optional<SectionDecision> decision) {
        m_sections.push_back(decision);
    }
    void ChooseNextRoughness(std::optional<RoughnessDecision> decision) {
        m_roughness.push_back(std::move(decision));
    }

    void ChooseNextMaterial(std::optional<MaterialDecision> decision) {
        m_materials.push_back(std::move(decision));
    }

    void EditNextDocument(std::optional<DocumentTexts> texts) {
        m_documents.push_back(std::move(texts));
    }
    void EditNextItemProperties(std::optional<std::vector<ItemPropertyInput>> inputs) {
        m_itemProperties.push_back(std::move(inputs));
    }

    const std::vector<Question>& GetQuestions() const { return m_questions; }
    const std::vector<FileRequest>& GetFileRequests() const { return m_fileRequests; }
    const std::vector<TextRequest>& GetTextRequests() const { return m_textRequests; }
    const std::vector<ObjectRequest>& GetObjectRequests() const { return m_objectRequests; }
    const std::vector<PropertyRequest>& GetPropertyRequests() const { return m_propertyRequests; }
    const std::vector<SectionRequest>& GetSectionRequests() const { return m_sectionRequests; }
    const std::vector<RoughnessRequest>& GetRoughnessRequests() const {
        return m_roughnessRequests;
    }
    const std::vector<MaterialRequest>& GetMaterialRequests() const { return m_materialRequests; }
    const std::vector<ListRequest>& GetListRequests() const { return m_listRequests; }
    const std::vector<ItemPropertiesRequest>& GetItemPropertiesRequests() const {
        return m_itemPropertiesRequests;
    }
    const std::vector<DocumentRequest>& GetDocumentRequests() const { return m_documentRequests; }
    const std::vector<SharedText>& GetMessages() const { return m_messages; }

    std::optional<std::size_t> Ask(const Question& question) override;
    std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override;
    std::vector<std::filesystem::path> ChooseFiles(const FileRequest& request) override;
    std::optional<SharedText> EnterText(const TextRequest& request) override;
    std::optional<UniqueMetaObjectKey> ChooseObject(const ObjectRequest& request) override;
    std::optional<PropertyChoice> ChooseProperty(const PropertyRequest& request) override;
    std::optional<SectionDecision> ChooseSection(const SectionRequest& request) override;
    std::optional<RoughnessDecision> ChooseRoughness(const RoughnessRequest& request) override;
    std::optional<MaterialDecision> ChooseMaterial(const MaterialRequest& request) override;
    std::optional<std::vector<bool>> ChooseSeveral(const ListRequest& request) override;
    std::optional<std::vector<ItemPropertyInput>>
    EditItemProperties(const ItemPropertiesRequest& request) override;
    std::optional<DocumentTexts> EditDocument(const DocumentRequest& request) override;
    void Tell(const SharedText& title, const SharedText& text) override;

private:
    std::deque<std::optional<std::size_t>> m_buttons;
    std::deque<std::optional<std::filesystem::path>> m_files;
    std::deque<std::optional<std::vector<std::filesystem::path>>> m_severalFiles;
    std::deque<std::optional<SharedText>> m_texts;
    std::deque<std::optional<UniqueMetaObjectKey>> m_objects;
    std::deque<std::optional<PropertyChoice>> m_properties;
    std::deque<std::optional<SectionDecision>> m_sections;
    std::deque<std::optional<RoughnessDecision>> m_roughness;
    std::deque<std::optional<MaterialDecision>> m_materials;
    std::deque<std::optional<std::vector<bool>>> m_lines;
    std::deque<std::optional<std::vector<ItemPropertyInput>>> m_itemProperties;
    std::deque<std::optional<DocumentTexts>> m_documents;
    std::vector<Question> m_questions;
    std::vector<FileRequest> m_fileRequests;
    std::vector<TextRequest> m_textRequests;
    std::vector<ObjectRequest> m_objectRequests;
    std::vector<PropertyRequest> m_propertyRequests;
    std::vector<SectionRequest> m_sectionRequests;
    std::vector<RoughnessRequest> m_roughnessRequests;
    std::vector<MaterialRequest> m_materialRequests;
    std::vector<ListRequest> m_listRequests;
    std::vector<ItemPropertiesRequest> m_itemPropertiesRequests;
    std::vector<DocumentRequest> m_documentRequests;
    std::vector<SharedText> m_messages;
};

} // namespace platform
