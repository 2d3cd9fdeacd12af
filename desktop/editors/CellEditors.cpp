#include "desktop/editors/CellEditors.h"

#include "desktop/editors/DesignationEdit.h"
#include "desktop/editors/MomentEdit.h"
#include "desktop/editors/ValueEdits.h"

namespace desktop {

QWidget* MakeEditor(const EditorRequest& request, QWidget* parent) {
    switch (request.kind) {
    case EditKind::None:
        return nullptr;
    case EditKind::Text:
        return new TextEdit(request, parent);
    case EditKind::Moment:
        return new MomentEdit(request, parent);
    case EditKind::Int:
    case EditKind::Double:
        return new NumberEdit(request, parent);
    case EditKind::Bool:
    case EditKind::List:
        return new ChoiceEdit(request, parent);
    case EditKind::Designation:
        return new DesignationEdit(request, parent);
    }
    return nullptr;
}

std::optional<QVariant> TakeInput(const QWidget& widget) {
    const auto* editor = dynamic_cast<const CellEditor*>(&widget);
    return editor ? editor->TakeInput() : std::nullopt;
}

} // namespace desktop
