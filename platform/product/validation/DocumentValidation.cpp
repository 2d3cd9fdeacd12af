#include "platform/product/validation/DocumentValidation.h"

#include "platform/product/model/DocumentNames.h"
#include "platform/product/model/ValueFitting.h"
#include "platform/product/validation/ModelPath.h"
#include "platform/values/Utf8.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace platform {

namespace {

bool IsSoundText(const std::wstring& text) {
    return text.size() <= c_maxTextSize && std::ranges::all_of(text, [](wchar_t c) {
               return IsCodePoint(static_cast<char32_t>(c));
           });
}

class DocumentsOfObject final {
public:
    DocumentsOfObject(const ModelPath& path, const ObjectRecord& object)
        : m_path(path, "documents"), m_object(object) {}

    std::optional<ModelFault> Validate() {
        std::set<std::string_view> files;
        int sources = 0;
        int formats = 0;
        for (std::size_t i = 0; i < m_object.documents.size() && !m_fault; ++i) {
            const DocumentRecord& document = m_object.documents[i];
            const ModelPath place(m_path, i);
            Check({place, "file"}, IsSoundFile(document.file),
                  "a path is expected, of 4096 bytes of UTF-8 at most");
            Check({place, "file"}, files.insert(document.file).second,
                  "the file stands here twice");
            Check({place, "designation"}, IsSoundText(document.marking.GetDisplayName()),
                  c_textExpected);
            Check({place, "name"}, IsSoundText(document.name), c_textExpected);
            Check({place, "format"}, IsSoundText(document.format), c_textExpected);
            Check({place, "comment"}, IsSoundText(document.comment), c_textExpected);
            sources += document.isSource ? 1 : 0;
            Check({place, "isSource"}, sources <= 1, "another document is the source already");
            formats += document.formatUsed ? 1 : 0;
            Check({place, "formatUsed"}, formats <= 1,
                  "the format is that of another document already");
        }
        return std::move(m_fault);
    }

private:
    static constexpr std::string_view c_textExpected =
        "a Unicode text of at most 10000 characters is expected";

    void Check(const ModelPath& path, bool isRight, std::string_view reason) {
        if (!isRight && !m_fault)
            m_fault = ModelFault{path.ToText(), m_object.key, std::string(reason)};
    }

    ModelPath m_path;
    const ObjectRecord& m_object;
    std::optional<ModelFault> m_fault;
};

} // namespace

std::optional<ModelFault> ValidateDocuments(const ProductModel& model) {
    const ModelPath product;
    const ModelPath root(product, "product");
    if (auto fault = DocumentsOfObject(root, model.root).Validate())
        return fault;
    const ModelPath objects(product, "objects");
    const ModelPath below(product, "objectsBelow");
    for (const auto& [path, list] :
         {std::pair(&objects, &model.objects), std::pair(&below, &model.objectsBelow)}) {
        for (std::size_t i = 0; i < list->size(); ++i) {
            if ((*list)[i].documents.empty())
                continue;
            const ModelPath place(*path, i);
            if (auto fault = DocumentsOfObject(place, (*list)[i]).Validate())
                return fault;
        }
    }
    return std::nullopt;
}

} // namespace platform
