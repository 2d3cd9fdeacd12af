#include "desktop/StepSource.h"

#include "desktop/Document.h"
#include "desktop/messages/MessageTexts.h"

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

class Busy {
public:
    explicit Busy(ISourceDesk* desk) : m_desk(desk) { Set(true); }
    ~Busy() { Set(false); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    void Set(bool isBusy) {
        if (m_desk)
            m_desk->SetBusy(isBusy);
    }

    ISourceDesk* m_desk;
};

/// A file of a single part gives a product of that part where it was read so.
bool WasPartOfItsOwn(const platform::ProductModel& product) {
    const auto imported =
        std::ranges::count_if(product.objects, [](const platform::ObjectRecord& object) {
            return object.source.has_value();
        });
    return product.assemblies.empty() && imported == 1;
}

} // namespace

void StepSource::Use(std::unique_ptr<step::StepDocument> document,
                     const std::optional<platform::SourceFile>& source) {
    m_last = {std::move(document), std::nullopt};
    if (m_last.document && source)
        m_last.contents = source->contents;
}

void StepSource::PutFirst(ISourceDesk* desk) {
    if (!desk)
        return;
    RemoveDesk(desk);
    m_desks.insert(m_desks.begin(), desk);
}

bool StepSource::Fits(const platform::ProductModel& product) const {
    return !m_last.contents || (product.source && product.source->contents == *m_last.contents);
}

std::optional<step::Measures> StepSource::Translate(const platform::ProductModel& product,
                                                    const step::Measures& measures) {
    step::Measures translated = measures;
    for (auto& [key, volume] : translated.volumes) {
        if (const auto found = m_keys.find(key); found != m_keys.end())
            key = found->second;
    }
    if (Fits(product))
        return translated;
    m_kept = std::move(translated);
    return std::nullopt;
}

UniqueMetaObjectKey StepSource::FindKeyInFile(const platform::ProductModel& product,
                                              const UniqueMetaObjectKey& object) const {
    const auto found = Fits(product) ? m_keysInFile.find(object) : m_keysInFile.end();
    return found == m_keysInFile.end() ? object : found->second;
}

std::optional<step::Measures> StepSource::TakeKept(const platform::ProductModel& product) {
    return m_kept && Fits(product) ? std::exchange(m_kept, std::nullopt) : std::nullopt;
}

std::variant<platform::ProductModel, SharedText>
StepSource::Read(const platform::ProductModel& present) {
    const Busy busy(GetDesk());
    m_read = {};
    const platform::SourceFile& source = *present.source;
    auto opened = OpenDocument(source.path, {"", WasPartOfItsOwn(present), source.encoding});
    if (const auto* const error = std::get_if<FileError>(&opened))
        return SharedText(FromUtf8OrLatin1(error->reason));
    auto& document = std::get<Document>(opened);
    if (!document.step || !document.model.source)
        return SharedText(L"it is no STEP file any more");
    platform::ProductModel fresh = document.step->GetModel();
    fresh.source = std::move(document.model.source);
    m_read = {std::move(document.step), fresh.source->contents};
    return fresh;
}

void StepSource::OnUpdated(const platform::SourceUpdate& update) {
    for (ISourceDesk* const desk : m_desks)
        desk->StopMeasuring();
    if (ISourceDesk* const desk = GetDesk())
        desk->OnUpdated(update);
    m_last = std::exchange(m_read, {});
    m_keys = update.keys;
    m_keysInFile.clear();
    for (const auto& [inFile, own] : m_keys)
        m_keysInFile.emplace(own, inFile);
    m_kept.reset();
}

bool StepSource::IsThere(const platform::SourceFile& source) const {
    std::error_code error;
    return GetDesk() && std::filesystem::is_regular_file(source.path, error);
}

bool StepSource::Open(const platform::SourceFile& source) {
    return GetDesk() && GetDesk()->OpenFile(source.path);
}

} // namespace desktop
