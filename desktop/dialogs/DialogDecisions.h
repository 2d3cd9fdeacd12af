// Answers what the program needs decided with dialogs on the screen.
#pragma once

#include "platform/services/UserDecisions.h"

#include <memory>

class QWidget;

namespace desktop {

class MaterialBook;

class DialogDecisions final : public platform::IUserDecisions {
public:
    /// Dialogs stand in front of the window, which must outlive this.
    explicit DialogDecisions(QWidget& window);
    ~DialogDecisions() override;

    std::optional<std::size_t> Ask(const platform::Question& question) override;
    std::optional<std::filesystem::path> ChooseFile(const platform::FileRequest& request) override;
    std::vector<std::filesystem::path> ChooseFiles(const platform::FileRequest& request) override;
    std::optional<SharedText> EnterText(const platform::TextRequest& request) override;
    std::optional<UniqueMetaObjectKey>
    ChooseObject(const platform::ObjectRequest& request) override;
    std::optional<platform::PropertyChoice>
    ChooseProperty(const platform::PropertyRequest& request) override;
    std::optional<platform::SectionDecision>
    ChooseSection(const platform::SectionRequest& request) override;
    std::optional<platform::RoughnessDecision>
    ChooseRoughness(const platform::RoughnessRequest& request) override;
    std::optional<platform::MaterialDecision>
    ChooseMaterial(const platform::MaterialRequest& request) override;
    std::optional<std::vector<bool>> ChooseSeveral(const platform::ListRequest& request) override;
    std::optional<std::vector<platform::ItemPropertyInput>>
    EditItemProperties(const platform::ItemPropertiesRequest& request) override;
    std::optional<platform::DocumentTexts>
    EditDocument(const platform::DocumentRequest& request) override;
    void Tell(const SharedText& title, const SharedText& text) override;

private:
    QWidget& m_window;
    /// Null until somebody looks into it.
    std::unique_ptr<MaterialBook> m_materials;
};

} // namespace desktop
