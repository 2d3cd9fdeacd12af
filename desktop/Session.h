// One view of an open product: the panel that shows it, with or without a window, on the document
// in memory and the file that it is saved to, which it has in common with other views of the
// product. It asks nobody: what to do about unsaved changes is the caller's business.
#pragma once

#include "desktop/AttachedFiles.h"
#include "desktop/Document.h"
#include "desktop/StepPart.h"
#include "desktop/StepSource.h"
#include "platform/product/answers/MemoryProduct.h"

#include <memory>
#include <optional>
#include <vector>

class IPopupMenuTracker;

namespace platform {
class DocumentBox;
class HostFrame;
class IUserDecisions;
class TreeTableRow;
class TreeTableView;
} // namespace platform

namespace desktop {

/// Both in the unit that the column shows; no value where there is no limit on that side.
struct ValueLimits {
    std::optional<double> min;
    std::optional<double> max;
};

/// Hears of what a panel does not show, at the end of what has changed it. It may ask the session,
/// and not change it.
class ISessionListener {
public:
    virtual ~ISessionListener() = default;

    /// What can be undone, what is saved and where, or how many views there are.
    virtual void OnProductChanged() = 0;
    /// Something is highlighted in the document, or nothing any more.
    virtual void OnHighlightChanged() = 0;
};

enum class FileNews {
    None,
    /// Its contents are others.
    Changed,
    /// It was deleted or renamed: the product is to be saved again.
    Gone
};

enum class SourceNews {
    None,
    /// The product does not agree with its source any more, or does so again.
    Changed,
    Agrees,
    /// It can't be looked at; nothing else is known of it.
    Gone
};

class Session final : private platform::IProductObserver {
public:
    /// The panel is built when this returns.
    explicit Session(Document document);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() override;

    /// Another view of the same product, which begins as this one is: with columns, folds and a
    /// level of its own. What is edited in one is in the other at once; what is selected, too.
    std::unique_ptr<Session> MakeView() const;
    /// The only view of the product: what is not saved goes with it.
    bool IsAlone() const { return m_file->views.size() == 1; }
    bool IsOfSameProduct(const Session& other) const { return m_file == other.m_file; }
    /// From 1 on among the views of the product; 0 for the only one.
    std::size_t GetNumber() const;
    /// The user works with this view now: questions come from there.
    void Activate();
    /// Null, as at first: nobody. It must be taken away before it goes.
    void SetListener(ISessionListener* listener) { m_listener = listener; }

    platform::TreeTableView& GetView() const;
    /// The box with the documents of the selected row; null for none.
    platform::DocumentBox* GetDocumentBox() const;
    // Of that row, by what its list calls the document.
    /// By which it is opened; empty for one that is not there.
    std::wstring FindDocumentPath(const std::wstring& file) const;
    /// The row's object in that document, if it is the file that the object came from; else empty.
    StepPart FindDocumentPart(const std::wstring& file) const;
    bool CanEditDocument(const std::wstring& file) const;
    void EditDocument(const std::wstring& file);
    void AddDocuments(const std::vector<std::filesystem::path>& paths);
    /// The document as this view looks at it.
    const platform::MemoryProduct& GetProduct() const { return *m_product; }
    const std::filesystem::path& GetPath() const { return m_file->path; }
    const std::vector<std::string>& GetNotes() const { return m_file->notes; }
    /// What was read of the STEP file last; null for a product file before it is brought up to date
    /// with its source.
    step::StepDocument* GetStep() const { return m_file->source.GetDocument(); }
    /// Of the file that the product was imported from; empty for none.
    std::filesystem::path GetSourcePath() const;
    /// What the row stands for in that file; empty for what did not come from it, and for different
    /// objects in one row.
    StepPart FindStepPart(const platform::TreeTableRow& row) const;
    /// Who opens that file and hears that the product has followed it; null, as at first: nobody.
    void SetSourceDesk(ISourceDesk* desk);
    /// What has become of that file, each time once for all views. Rows show whether they agree
    /// with it.
    SourceNews NoticeSourceOnDisk();
    /// Who answers when the product or the panel asks; null, as at first: nobody does.
    void SetDecisions(platform::IUserDecisions* decisions);
    /// Who shows the panel's menus; null, as at first: there are none.
    void SetPopupMenus(IPopupMenuTracker* tracker);

    /// The name of what is highlighted; no value for nothing.
    std::optional<SharedText> GetHighlightedName() const;
    /// Those of a view that show it, from top to bottom.
    std::vector<platform::TreeTableRow*>
    FindHighlightedRows(const platform::TreeTableView& view) const;
    /// The user has seen it.
    void EndHighlighting();

    void ExpandAll();
    /// The root row and its sections from the first on, as long as no more than so many rows show.
    /// Nothing where anything below the root is expanded already.
    void UnfoldSections(int rows);
    /// All but the root row, which alone would tell nothing of the product.
    void CollapseAll();
    /// A product with assemblies in it is shown level by level: the direct components of one of
    /// them, or all parts below it.
    bool HasLevels() const;
    const platform::ProductLevel& GetLevel() const;
    /// The level that the product is opened with.
    platform::ProductLevel GetHome() const;
    /// The names of the assemblies that the user has opened one in the other, the product first.
    std::vector<SharedText> GetWay() const;
    /// The row is one of an assembly that can be opened; of a group, all its members are uses of
    /// the same.
    bool OpensAssembly(const platform::TreeTableRow& row) const;
    /// False, with a refusal, when the level can't be shown; false also where there is none.
    bool OpenAssembly(const platform::TreeTableRow& row);
    /// Back to an entry of GetWay.
    bool GoBack(std::size_t entry);
    bool ShowAllParts(bool on);
    /// The row of the assembly in the level that is shown; null for none.
    platform::TreeTableRow* FindRow(const UniqueMetaObjectKey& assembly) const;
    /// Counts are shown for each embodiment by itself. Nothing happens where there are none.
    bool HasEmbodiments() const;
    bool IsEmbodimentMode() const;
    /// Where a column of counts stands for several embodiments: to which of them a count goes that
    /// is typed in that row. Empty in other columns.
    SharedText FindCountNote(const platform::TreeTableRow& row, const std::wstring& columnId) const;
    /// What the mass of the row is added up from; nothing for a row of which it is no sum.
    platform::MassesBelow FindMassesBelow(const platform::TreeTableRow& row) const;
    /// The rows below that one, from top to bottom, of parts without a mass, and of assemblies in
    /// which there are some. A group is in it by its members.
    std::vector<platform::TreeTableRow*> FindRowsWithoutMass(platform::TreeTableRow& row) const;
    /// The mass of what is shown is a sum that has no value.
    bool LacksMass() const;
    /// Mass, density and material are typed, or come from a dialog alone: a step of the product.
    void SetSimplified(bool isSimplified);
    /// A command of the panel has run: it may have opened an assembly.
    void FollowCommand();
    /// Writes volumes and masses into the document, which is no step to undo. Those of a reading
    /// that was undone are kept until it is redone.
    void TakeMeasures(const step::Measures& measures);

    /// No value for a column without limits that bind.
    std::optional<ValueLimits> FindLimits(const std::wstring& columnId) const;

    /// Why the last input was not taken, and what the user should know of one that was; each once,
    /// and empty where nothing is to be said.
    SharedText TakeRefusal();
    SharedText TakeNote();
    /// Names are what a step did, in the user's words; empty where there is no step.
    SharedText GetUndoName() const;
    SharedText GetRedoName() const;
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();

    /// Closing would lose something.
    bool IsModified() const;
    /// False for a STEP file, of which a product file is saved beside it, and for a product that
    /// has no file yet.
    bool IsProductFile() const { return m_file->isProduct; }
    /// The product file itself, or the usual name for one.
    std::filesystem::path GetProductPath() const;
    /// The product is that of the written file from then on, which keeps the columns of this view.
    /// With an error nothing has changed. A file that holds something else than a product is not
    /// written over.
    std::optional<FileError> SaveAs(const std::filesystem::path& path);
    /// What another program has done to the product file, each time once.
    FileNews NoticeChangeOnDisk();
    /// Shows what the product file holds now, as a step of that name. With an error everything
    /// stays as it is.
    std::optional<FileError> Reload(const SharedText& stepName);

private:
    /// What views of a product have in common beside its document.
    struct File {
        std::filesystem::path path;
        std::vector<std::string> notes;
        StepSource source;
        AttachedFiles documents{source};
        /// The source that was looked at last.
        std::filesystem::path noticedSource;
        bool isSourceGone = false;
        /// The product file as it was last read or written.
        std::optional<FileMark> mark;
        bool isProduct = false;
        /// Measures came after the product was saved; the document does not count them as a change.
        bool hasUnsavedMeasures = false;
        /// Nothing of the product is on disk any more.
        bool isGone = false;
        std::vector<Session*> views;
    };

    Session(std::shared_ptr<File> file, std::shared_ptr<platform::MemoryProduct> product);

    /// All views are told.
    void TellListeners() const;
    void OnDocumentChanged(bool structure) override;
    void OnLookChanged() override;
    void OnSelectionChanged() override;
    void OnHighlightChanged() override;
    void Write(const step::Measures& measures);
    /// A step may come back to the reading that was measured meanwhile.
    void WriteKept();
    bool Enter(const platform::ProductLevel& level);
    /// The level may be another one: undoing goes where it was done.
    void FollowLevel();
    /// Those below the part, or the part by itself where its mass is no sum.
    platform::MassesBelow FindMassesOf(const UniqueMetaObjectKey& part) const;
    UniqueMetaObjectKey FindListedObject() const;
    StepPart FindStepPart(const UniqueMetaObjectKey& part) const;
    UniqueMetaObjectKey FindAssembly(const platform::TreeTableRow& row) const;
    SharedText NameOf(const UniqueMetaObjectKey& assembly) const;

    std::shared_ptr<File> m_file;
    std::shared_ptr<platform::MemoryProduct> m_product;
    /// Of the levels that were opened one in the other; the last is the one that is shown.
    std::vector<platform::ProductLevel> m_way;
    std::unique_ptr<platform::HostFrame> m_frame;
    ISessionListener* m_listener = nullptr;
    ISourceDesk* m_desk = nullptr;
};

} // namespace desktop
