// Shows all properties of one object in a table, each with where its value comes from, and lets the
// user change those that can be changed, in the editors that cells of the panel have. What was
// refused before is marked, with the reason.
#pragma once

#include "desktop/editors/CellEditors.h"
#include "platform/services/UserDecisions.h"

#include <QDialog>

#include <map>

class QLabel;
class QTableWidget;

namespace desktop {

class ItemPropertiesDialog final : public QDialog {
    Q_OBJECT

public:
    explicit ItemPropertiesDialog(const platform::ItemPropertiesRequest& request,
                                  QWidget* parent = nullptr);

    /// The lines that the user has changed.
    std::vector<platform::ItemPropertyInput> GetInputs() const;

    /// For the table's editors: that of a line, and what was left in it.
    EditorRequest MakeEditorRequest(int line) const;
    void Take(int line, const QVariant& input);

private:
    using Line = platform::ItemPropertiesRequest::Line;
    using Value = platform::ItemPropertiesRequest::Value;

    void Fill();
    void ShowLine(int line);
    void ShowRefusal();
    void OnBoxChanged(int line);
    const Value& ValueOf(int line) const;

    platform::ItemPropertiesRequest m_request;
    std::map<int, Value> m_inputs;
    QTableWidget* m_table;
    QLabel* m_refusal;
    /// What the table tells is no news.
    bool m_isFilling = false;
};

} // namespace desktop
