// The editors of single values: a line of text, a number, a choice from a list.
#pragma once

#include "desktop/editors/CellEditors.h"
#include "desktop/icons/ControlPictures.h"

#include <QComboBox>
#include <QLineEdit>

namespace desktop {

/// One line, in which line breaks and other control characters show as letters. Shift and Enter
/// types a line break. Where there is a menu to choose from, the arrow at its end, Alt and Down and
/// F4 ask for it.
class TextEdit final : public QLineEdit, public CellEditor {
    Q_OBJECT

public:
    TextEdit(const EditorRequest& request, QWidget* parent);

    std::optional<QVariant> TakeInput() const override;
    static bool TypesLineBreak(const QKeyEvent& event);
    /// The key opens what there is to choose from, here and at cells.
    static bool OpensMenu(const QKeyEvent& event);

signals:
    void MenuWanted();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    ControlPictures m_pictures;
    bool m_hasMenu;
};

/// A number in the user's locale. Up and Down change it by a step; what is no number is red. Limits
/// are not its business: whether they bind is not known here.
class NumberEdit final : public QLineEdit, public CellEditor {
    Q_OBJECT

public:
    NumberEdit(const EditorRequest& request, QWidget* parent);

    std::optional<QVariant> TakeInput() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool IsWhole() const { return m_request.kind == EditKind::Int; }
    /// Invalid for an empty text, no value for one that is no number.
    std::optional<QVariant> Parse() const;
    void Step(double by);
    void ShowWhetherNumber();

    EditorRequest m_request;
};

/// One of a list, or yes and no.
class ChoiceEdit final : public QComboBox, public CellEditor {
    Q_OBJECT

public:
    ChoiceEdit(const EditorRequest& request, QWidget* parent);

    std::optional<QVariant> TakeInput() const override;

private:
    int m_first = -1;
};

} // namespace desktop
