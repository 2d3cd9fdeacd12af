// What a product in memory knows about a property by the text of its path, remembered by the text
// that was asked with. A panel asks millions of times with a few dozen texts, those of its columns.
#pragma once

#include "host/SharedText.h"
#include "platform/product/model/PropertyDescriptions.h"

#include <array>

namespace platform {

struct PropertyTraits {
    /// As ProductProperties::GetPropId; 0: there is no such property.
    unsigned long number = 0;
    /// Null for a property that nobody describes.
    const PropertyRecord* record = nullptr;
    /// Its values can't be changed, whosever they are.
    bool isReadOnly = true;
    /// Occurrences have no values of their own.
    bool belongsToObject = true;
};

/// The properties that are the object's alone: what it is, and what the specification counts and
/// numbers.
bool BelongsToObject(unsigned long number);

/// The properties whose values have a structure: designations and sections. They are no links, and
/// nothing links to them.
bool IsStructured(unsigned long number);

class PropertyLookup {
public:
    PropertyLookup() = default;
    PropertyLookup(const PropertyLookup&) = delete;
    PropertyLookup& operator=(const PropertyLookup&) = delete;

    /// Forgets what it remembers. `descriptions` must stay until the next call.
    void Use(const PropertyDescriptions& descriptions);

    /// Good until the next call of anything here.
    const PropertyTraits& Get(const SharedText& path) {
        // What is asked about a property of a part is asked in one go, and the next property is
        // mostly the one that was next last time.
        if (!m_last->path.IsSame(path))
            m_last =
                m_last->next && m_last->next->path.IsSame(path) ? m_last->next : &FindNext(path);
        return m_last->traits;
    }
    PropertyTraits Get(unsigned long number) const;

private:
    struct Entry {
        /// Held, so that no other text can come to stand at its address.
        SharedText path;
        PropertyTraits traits;
        /// The one that was asked for after it.
        Entry* next = nullptr;
    };

    void Forget();
    Entry& FindNext(const SharedText& path);
    Entry& FindOrAdd(const SharedText& path);

    const PropertyDescriptions* m_descriptions = nullptr;
    /// By the texts' addresses. The empty text, which is no path, marks a free entry.
    std::array<Entry, 256> m_entries;
    std::size_t m_entryCount = 0;
    Entry* m_last = m_entries.data();
};

} // namespace platform
