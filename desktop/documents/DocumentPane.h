// The box below the tree: a bar that folds it, with the commands of the list, the list of documents
// and the preview of one. It shows the box in memory and tells that of what the user does; what
// changes the product is handed to the window, which shows what has become of it.
#pragma once

#include "desktop/icons/CommandIcons.h"
#include "platform/view/DocumentBox.h"

#include <QMap>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <string>

class QAction;
class QMenu;
class QSplitter;
class QToolBar;
class QToolButton;

namespace platform {
class TreeTableView;
}

namespace desktop {

class DocumentList;
struct StepPart;
class PreviewPane;

class DocumentPane final : public QWidget, private platform::DocumentBoxObserver {
    Q_OBJECT

public:
    /// What only the product knows of a document, which is named by its file.
    struct Questions {
        /// By which the file is opened; empty for none.
        std::function<QString(const std::wstring& file)> findPath;
        std::function<bool(const std::wstring& file)> canEdit;
        /// What of the file is shown; empty for all of it.
        std::function<StepPart(const std::wstring& file)> findPart;
    };
    /// As the user has left the box.
    struct State {
        bool isOpen = false;
        /// In pixels; 0 as at first.
        int height = 0;
        /// How list and preview share the width, and the columns; empty as at first.
        QByteArray parts;
        QByteArray columns;
    };

    explicit DocumentPane(QWidget* parent = nullptr);
    ~DocumentPane() override;

    /// The box of a view, in which the rows are selected; both null for none. They must outlive
    /// their stay here.
    void ShowBox(platform::DocumentBox* box, const platform::TreeTableView* view);
    void SetQuestions(Questions questions) { m_questions = std::move(questions); }
    State GetState() const;
    void Restore(const State& state);
    /// A preview is being worked out.
    bool IsBusy() const;
    /// Unfolds the box and folds it, and goes to the list and back.
    QAction* GetFoldAction() const { return m_fold; }
    QAction* GetGoAction() const { return m_go; }

signals:
    /// A command that may change the product is to be run now.
    void Wanted(unsigned command, const std::function<void()>& run);
    void EditWanted(const std::wstring& file);
    /// Files are to be added, by their paths: they were dropped or pasted.
    void FilesDropped(const QStringList& paths);
    /// Nothing was done, for that reason.
    void Told(const QString& reason);
    /// The keys are to go elsewhere.
    void Left();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void OnDocumentsChanged() override;
    void OnPreviewChanged() override;

    QWidget* MakeBar();
    void FillStrip();
    void SetOpen(bool isOpen);
    void GoToList();
    /// What has changed is shown once, when the event that is being handled is over.
    void UpdateLater();
    void Update();
    void ShowCommands();
    void ShowPreview();
    bool IsKnownKey(const QKeyEvent& event) const;
    bool RunKey(const QKeyEvent& event);
    bool CanRun(unsigned command) const;
    /// Runs the command or says why not.
    void Run(unsigned command);
    void EditSelected();
    void CopySelected();
    void Paste();
    void ShowMenu(QPoint place);
    /// 0 is to edit the document.
    QString WhyNot(unsigned command) const;
    QString WhyNotFor(unsigned command, int row) const;
    QString WhyEmpty() const;

    /// Held: a session may go before the pane is told of another one.
    boost::intrusive_ptr<platform::DocumentBox> m_box;
    const platform::TreeTableView* m_view = nullptr;
    Questions m_questions;
    CommandIcons m_icons;
    QMap<unsigned, QAction*> m_actions;
    QAction* m_fold;
    QAction* m_go;
    QToolButton* m_foldButton = nullptr;
    QToolBar* m_strip = nullptr;
    QSplitter* m_parts;
    DocumentList* m_list;
    PreviewPane* m_preview;
    /// What the preview shows now was asked for then; 0 while it shows nothing.
    unsigned m_previewTurn = 0;
    QPointer<QMenu> m_menu;
    int m_height = 0;
    bool m_isOpen = false;
    bool m_isUpdating = false;
};

} // namespace desktop
