// The STEP file that a product came from: what was read of it last, what it holds now, and how it
// is read again and opened. One for each session; whoever shows the session stands behind
// ISourceDesk.
#pragma once

#include "desktop/import/StepImport.h"
#include "platform/product/answers/DocumentFiles.h"
#include "platform/product/answers/SourceFiles.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace desktop {

/// What the desktop does for it.
class ISourceDesk {
public:
    virtual ~ISourceDesk() = default;

    /// In the program that the user has for such files. False: there is none.
    virtual bool OpenFile(const std::filesystem::path& path) = 0;
    /// Of the first page of a PDF; no value where it can't be had.
    virtual std::optional<platform::SheetSize> FindSheetSize(const std::filesystem::path& path) = 0;
    /// Reading takes a while.
    virtual void SetBusy(bool isBusy) = 0;
    /// The document that was read before goes, so that nothing may measure it any more.
    virtual void StopMeasuring() = 0;
    /// The product was brought up to date. The new document is there when this has returned.
    virtual void OnUpdated(const platform::SourceUpdate& update) = 0;
};

class StepSource final : public platform::ISourceFiles {
public:
    /// `document` may be null: the product was opened from a file of its own.
    void Use(std::unique_ptr<step::StepDocument> document,
             const std::optional<platform::SourceFile>& source);

    /// What was read last; null before anything was.
    step::StepDocument* GetDocument() const { return m_last.document.get(); }
    /// The first is that of the window that the user works with. Null is none.
    void PutFirst(ISourceDesk* desk);
    void RemoveDesk(const ISourceDesk* desk) { std::erase(m_desks, desk); }
    /// Null while there is none.
    ISourceDesk* GetDesk() const { return m_desks.empty() ? nullptr : m_desks.front(); }

    /// What the document measured, by the product's keys; no value for a product that agrees with
    /// another reading. It is kept then for the day on which the product comes back to this one.
    std::optional<step::Measures> Translate(const platform::ProductModel& product,
                                            const step::Measures& measures);
    /// What the last reading calls that object of the product.
    UniqueMetaObjectKey FindKeyInFile(const platform::ProductModel& product,
                                      const UniqueMetaObjectKey& object) const;
    /// What was kept, once, if the product agrees with it now.
    std::optional<step::Measures> TakeKept(const platform::ProductModel& product);

    std::variant<platform::ProductModel, SharedText>
    Read(const platform::ProductModel& present) override;
    void OnUpdated(const platform::SourceUpdate& update) override;
    bool IsThere(const platform::SourceFile& source) const override;
    bool Open(const platform::SourceFile& source) override;

private:
    struct Reading {
        std::unique_ptr<step::StepDocument> document;
        std::optional<platform::ContentsMark> contents;
    };

    bool Fits(const platform::ProductModel& product) const;

    Reading m_last;
    /// Read, and not followed by the product yet.
    Reading m_read;
    /// The product's keys by those of the last reading, where they differ.
    platform::SourceMatch::Keys m_keys;
    /// The other way round.
    platform::SourceMatch::Keys m_keysInFile;
    std::optional<step::Measures> m_kept;
    std::vector<ISourceDesk*> m_desks;
};

} // namespace desktop
