// The window of the program: the panel of one product below its caption, a menu, and a status line
// that tells what the product holds and how far the masses are. It owns the open session.
#pragma once

#include "desktop/Document.h"
#include "desktop/Session.h"
#include "platform/services/UserDecisions.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QProgressBar;
class QToolButton;

namespace desktop {

class MassJob;
class PanelTree;
class TreeItemModel;

class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// Without decisions made for it, the window asks by dialogs of its own.
    explicit MainWindow(std::unique_ptr<platform::IUserDecisions> decisions = nullptr);
    /// Stops a running calculation of masses first, which may take seconds.
    ~MainWindow() override;

    /// Shows the product in place of the one before.
    void Show(std::unique_ptr<Session> session);
    /// A file that can't be opened is told of; what was shown stays.
    void OpenFile(const std::filesystem::path& path, const import::StepOptions& options);
    /// Works the masses out in the background. Nothing happens for a product file.
    void StartMasses();
    /// Asks for the size that shows the rows without scrolling, within what a screen holds.
    void FitToRows();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeMenus();
    QWidget* MakePanel();
    void MakeStatusBar();
    void ChooseFile();
    void StopMasses();
    void OnMassesEnded(const import::StepDocument::Masses& masses);
    void ShowCaption();
    void ShowCounts();

    std::unique_ptr<platform::IUserDecisions> m_decisions;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<TreeItemModel> m_model;
    std::unique_ptr<MassJob> m_massJob;
    bool m_areMassesCancelled = false;
    PanelTree* m_tree = nullptr;
    QLabel* m_caption = nullptr;
    QLabel* m_file = nullptr;
    QLabel* m_counts = nullptr;
    QLabel* m_note = nullptr;
    QLabel* m_massLabel = nullptr;
    QProgressBar* m_massProgress = nullptr;
    QToolButton* m_massCancel = nullptr;
};

} // namespace desktop
