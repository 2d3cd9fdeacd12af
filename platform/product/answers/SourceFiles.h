// How a product in memory gets at the file that it was imported from. The program reads and opens
// files, a test scripts it; the product knows no format.
#pragma once

#include "platform/product/edits/SourceUpdate.h"

#include <variant>

namespace platform {

class ISourceFiles {
public:
    virtual ~ISourceFiles() = default;

    /// What the present product's source holds now: a product with a source, at its home. Else why
    /// it can't be read, in one line.
    virtual std::variant<ProductModel, SharedText> Read(const ProductModel& present) = 0;
    /// The product has followed what was read last. It must not be called back from here.
    virtual void OnUpdated(const SourceUpdate& update) = 0;

    virtual bool IsThere(const SourceFile& source) const = 0;
    /// In whatever program the user has for it. False: it was not opened.
    virtual bool Open(const SourceFile& source) = 0;
};

} // namespace platform
