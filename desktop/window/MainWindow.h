// A window of the program: one view of a product below its caption, menus, and a status line that
// tells what the product holds. It owns its session, and sees to it that nothing the user has done
// gets lost without his consent. Several windows may show one product.
#pragma once

#include "desktop/Document.h"
#include "desktop/Session.h"
#include "desktop/window/FileWatch.h"
#include "desktop/window/SourceDesk.h"
#include "platform/services/UserDecisions.h"

#include <QHash>
#include <QMainWindow>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QMenu;
class QModelIndex;

namespace platform {
struct ColumnHead;
class TreeTableRow;
} // namespace platform

namespace desktop {

/// How long the status line tells of something that has happened.
inline constexpr int c_messageMilliseconds = 10'000;

class AttributeActions;
class ContextMenus;
class DocumentPane;
class EmbodimentBar;
class LevelBar;
class MassIndicator;
class PanelTree;
class PartPictures;
class ProductActions;
class ToolStrips;
class TreeItemModel;
class WindowMemory;

class MainWindow final : public QMainWindow, private ISessionListener {
    Q_OBJECT

public:
    /// Without decisions made for it, the window asks by dialogs of its own.
    explicit MainWindow(std::unique_ptr<platform::IUserDecisions> decisions = nullptr);
    /// Stops the measuring of parts first, which may take seconds.
    ~MainWindow() override;

    /// Shows the product in place of the one before, of which nothing is asked.
    void Show(std::unique_ptr<Session> session);
    /// Asks what is to become of unsaved changes first. A file that can't be opened is told of;
    /// what was shown stays.
    void OpenFile(const std::filesystem::path& path, const step::StepOptions& options);
    /// Says that the file can't be opened.
    void TellUnopened(const std::filesystem::path& path, const FileError& error);
    /// Measures the parts in the background, from which masses follow. Nothing happens for a
    /// product file.
    void StartMasses();
    /// How files are left is remembered there, and how the one that is shown was left comes back.
    void RememberIn(std::unique_ptr<WindowMemory> memory);
    /// Rows and columns as the user left them in that file; of one that is shown for the first time
    /// the sections are unfolded, as far as their rows fit.
    void TakeUpView();
    /// Asks for the size that shows the rows without scrolling, within what a screen holds.
    void FitToRows();
    /// Another window with a view of the same product, which begins as this one is and belongs to
    /// itself. Null while an input in this one is refused.
    MainWindow* OpenView();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeFileMenu();
    QMenu* MakeEditMenu();
    QMenu* MakeViewMenu();
    void MakeWindowMenu();
    QWidget* MakePanel();
    void MakeEmbodimentBar();
    void MakeStatusBar();
    /// The tree with the box of documents below it.
    QWidget* MakeDocuments();
    void AddDocumentActions(QMenu& view);
    void ShowDocuments();
    void EditDocument(const std::wstring& file);
    void AddDocuments(const QStringList& files);

    void ChooseFile();
    /// Reads the file again with names as the user chooses.
    void ChooseEncoding();
    /// These two answer whether the product is saved now.
    bool Save();
    bool SaveAs();
    bool SaveTo(const std::filesystem::path& path);
    /// Whether the product may be left: it is as it was saved, or the user agrees.
    bool MayLeave();
    void OnFileTouched();
    void TakeFileNews();
    bool MayReload();
    void KeepView();
    void OnProductChanged() override;
    /// The parts go on being measured in another window with the product.
    void HandOverMasses();
    void TellError(const QString& title, const std::filesystem::path& path, const FileError& error);

    /// The product may have another source than before.
    void FollowSource();
    void TakeSourceNews();
    void StopMeasuring();
    void OnUpdated(const platform::SourceUpdate& update);

    void AddLevelActions(QMenu& view);
    void ShowLevel();
    /// Null for none.
    platform::TreeTableRow* CurrentRow() const;
    void OpenAssembly();
    /// Back to an entry of the session's way.
    void GoBack(int entry);
    void ShowAllParts(bool on);
    /// `go` changes the level, or says why not.
    void GoTo(const std::function<bool()>& go);
    /// How the user leaves a level, and how he finds it again after another one.
    void KeepPlace();
    void TakeUpPlace(const platform::ProductLevel& before);
    static QString PlaceKey(const platform::ProductLevel& level);

    /// A step back or forth, which may go to another level.
    void GoStep(void (Session::*go)());
    void MakeCommands();
    void AddCommands(QMenu& edit);
    void RunStripCommand(unsigned command);
    /// Does what the command does, and shows what has become of the product.
    void RunCommand(unsigned command, const std::function<void()>& run);
    void ChooseColumns();
    /// Does `work` at once, or when no editor and no dialog is open any more: what comes by itself
    /// waits for the user.
    void WhenIdle(std::function<void()> work);
    void DoWhatWaits();
    /// Tells of an input that was not taken, until the next one is.
    void OnInputAnswered(const platform::ColumnHead& column, const QVariant& input, bool isTaken);
    /// Tells of rows that did not take what others did.
    void OnHeadAnswered(const platform::ColumnHead& column, int takers, int rows);
    void OnHighlightChanged() override;
    void ShowHighlight();
    void OnMeasured(const step::Measures& measures);
    /// A part of a STEP file, as soon as it is drawn.
    QImage PictureOf(const platform::TreeTableRow& row);
    void MakePictures();
    /// Some window works something out that the user waits for.
    static bool IsAnyBusy();
    /// What a sum of masses lacks; empty where it lacks nothing.
    QString MassNote(const platform::TreeTableRow& row) const;
    void OfferMissingMasses();
    void AddMassCommand(QMenu& menu, const QModelIndex& cell);
    /// The parts without a mass from which that of the row is added up. An assembly is opened.
    void SelectWithoutMass(platform::TreeTableRow& row);
    void SelectAllWithoutMass();

    void ShowCaption();
    void ShowCounts();
    /// What can be undone and saved, and how the product is looked at.
    void ShowState();

    std::unique_ptr<platform::IUserDecisions> m_decisions;
    platform::UserDecisionsSlot m_slot;
    SourceDesk m_sourceDesk;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<TreeItemModel> m_model;
    FileWatch m_watch;
    FileWatch m_sourceWatch;
    std::filesystem::path m_watchedSource;
    /// No value when rows have come or gone since they were counted.
    std::optional<std::size_t> m_rowCount;
    /// Why the last input, or some of it, was not taken.
    QString m_refusal;
    /// What the status line says of the highlight.
    QString m_highlightText;
    struct Place {
        QStringList expanded;
        int scroll = 0;
    };
    /// How the levels of the product were left.
    QHash<QString, Place> m_places;
    /// Null where nothing is remembered.
    std::unique_ptr<WindowMemory> m_memory;
    std::vector<std::function<void()>> m_waiting;
    QAction* m_save = nullptr;
    QAction* m_encoding = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_embodiments = nullptr;
    AttributeActions* m_attributes = nullptr;
    ProductActions* m_productActions = nullptr;
    EmbodimentBar* m_embodimentBar = nullptr;
    QAction* m_embodimentTool = nullptr;
    QAction* m_open = nullptr;
    QAction* m_up = nullptr;
    QAction* m_direct = nullptr;
    QAction* m_allParts = nullptr;
    PanelTree* m_tree = nullptr;
    DocumentPane* m_documents = nullptr;
    ToolStrips* m_strips = nullptr;
    ContextMenus* m_menus = nullptr;
    LevelBar* m_levels = nullptr;
    MassIndicator* m_masses = nullptr;
    PartPictures* m_pictures = nullptr;
    QLabel* m_caption = nullptr;
    QLabel* m_file = nullptr;
    QLabel* m_counts = nullptr;
    QLabel* m_note = nullptr;
};

} // namespace desktop
