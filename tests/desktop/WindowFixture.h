// A window with one product in it, and the hands of its user.
#pragma once

#include "desktop/tree/PanelTree.h"
#include "desktop/window/MainWindow.h"
#include "platform/product/model/ProductModel.h"
#include "platform/services/UserDecisions.h"

#include <QModelIndex>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

class QAction;

namespace window_tests {

/// A case, and a pin with that many uses, in one section.
platform::ProductModel SmallGearbox(int pins);

class WindowFixture : public testing::Test {
protected:
    WindowFixture();

    /// `step` makes it a STEP document.
    platform::TreeTableView& Show(const platform::ProductModel& model,
                                  std::unique_ptr<desktop::step::StepDocument> step = nullptr,
                                  const std::filesystem::path& path = "small.json");
    desktop::PanelTree& Tree() const { return *m_window->findChild<desktop::PanelTree*>(); }
    /// The cell of the row that the numbers lead to from the root row on.
    QModelIndex At(std::initializer_list<int> path, int column = 0) const;
    /// The column of that caption; -1 for none.
    int Column(const QString& caption) const;
    QString TextAt(std::initializer_list<int> path, int column) const;

    /// The menu's action whose text, without its shortcut, begins so.
    QAction* Action(const QString& text) const;
    void Trigger(const QString& text) const;
    bool ShowsText(const QString& text) const;
    /// Handles events until the window shows the text.
    void WaitForText(const QString& text) const;

    /// A click into the middle of the cell, or so many pixels from its right end.
    void Click(const QModelIndex& index, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void ClickFromRight(const QModelIndex& index, int pixels) const;
    /// Into whatever has the keys, that is an open editor or the tree.
    void Type(const QString& text) const;
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Writes a picture into the folder of the environment variable PRODUCT_TREE_SHOTS, if it is
    /// set.
    void Shoot(const char* name) const;

    platform::ScriptedDecisions* m_decisions = nullptr;
    std::unique_ptr<desktop::MainWindow> m_window;
};

} // namespace window_tests
