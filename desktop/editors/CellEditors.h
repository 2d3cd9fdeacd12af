// The editors of values, in the cells of rows and in the heads of columns. Each is filled when it
// is made and says afterwards what the user wants; what becomes of that is its maker's business.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <set>
#include <vector>

class QWidget;

namespace desktop {

enum class EditKind { None, Text, Moment, Int, Double, Bool, List, Designation };

/// An editor that is to be made.
struct EditorRequest {
    EditKind kind = EditKind::None;
    /// A text, a moment in ISO 8601, a number, a truth value, a place in the list, or seven texts;
    /// invalid for no value.
    QVariant value;
    /// What stands in an empty editor until something is typed.
    QString hint;

    /// Of texts: there is a menu to choose from as well.
    bool hasMenu = false;

    /// Of numbers: by how much a key changes one.
    double step = 1;
    /// Of numbers, truth values and lists.
    bool canBeEmpty = false;

    /// The values that a list offers.
    QStringList list;

    // Of a designation, by the numbers of its parts.
    std::set<int> lockedParts;
    std::vector<QString> partTips;
};

class CellEditor {
public:
    virtual ~CellEditor() = default;

    /// Of the same kind as EditorRequest::value; invalid when the user has taken the value away;
    /// the text itself when it is no number where there should be one. No value when he has changed
    /// nothing.
    virtual std::optional<QVariant> TakeInput() const = 0;
};

/// Null for a kind without an editor. The widget is a CellEditor too.
QWidget* MakeEditor(const EditorRequest& request, QWidget* parent);
/// What the editor says, if the widget is one.
std::optional<QVariant> TakeInput(const QWidget& widget);

} // namespace desktop
