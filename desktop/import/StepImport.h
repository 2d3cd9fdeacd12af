// Opens STEP assemblies as products. The structure comes from the file's products and their uses,
// never from pieces of geometry, and is there before any geometry is transferred; masses are worked
// out afterwards, on demand. Files that the file refers to are not followed.
#pragma once

#include "desktop/import/LineDrawing.h"
#include "desktop/messages/FileError.h"
#include "platform/product/model/ProductModel.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace desktop::step {

/// `assembly` and `flatten` are for ShowLevel; Read needs to know of `flatten` for a file of a
/// single part, which is shown as a part of its own then.
struct StepOptions {
    /// Name or id of the product that becomes the root; empty: the file's own root.
    std::string assembly;
    /// All parts with all their uses instead of the direct components.
    bool flatten = false;
    /// What raw 8-bit text is when it is not valid UTF-8; empty: Latin-1.
    std::string encoding;
};

enum class MeasuredParts {
    /// Those that have a mass as soon as they have a volume.
    WithDensity,
    /// Those too that may be given a density later.
    All
};

/// What the geometry tells of the model's objects.
struct Measures {
    using Values = std::vector<std::pair<UniqueMetaObjectKey, double>>;

    /// In m3, of parts.
    Values volumes;
};

/// The measuring of parts in a child process, which goes on while this process does other things.
/// Measuring stops when this object goes.
class Measuring {
public:
    virtual ~Measuring() = default;

    /// Can be read from as soon as Advance has news; another one after it, -1 when all is done.
    virtual int GetDescriptor() const = 0;
    /// Takes the news there are, without waiting for more. False when all is done.
    virtual bool Advance() = 0;
    /// Of all parts, 0 to 1.
    virtual double GetShareDone() const = 0;
    /// Of the parts that are done.
    virtual Measures GetMeasures() const = 0;

    /// Until all is done.
    void Wait();
};

class StepDocument {
public:
    static std::variant<std::unique_ptr<StepDocument>, FileError>
    Read(const std::filesystem::path& path, const StepOptions& options);

    virtual ~StepDocument() = default;

    /// Shows the direct components of the file's root, with all levels below.
    virtual const platform::ProductModel& GetModel() const = 0;
    /// What the user should know about the file, a line each, for instance that it refers to
    /// others.
    virtual const std::vector<std::string>& GetNotes() const = 0;
    /// Some of the texts that are no UTF-8, as they stand in the file; empty: there are none.
    virtual const std::vector<std::string>& GetForeignTexts() const = 0;
    /// The name of what these were read as.
    virtual const std::string& GetEncoding() const = 0;
    /// No value for an encoding that is not known.
    virtual std::optional<std::wstring> Decode(const std::string& text,
                                               const std::string& encoding) const = 0;
    /// Transfers the geometry of all parts below the assembly, or of the file where the key is none
    /// of an assembly's, in a child process. The document has to stay. To be called on a
    /// thread that lives as long as the measuring, in a process in which no other one is at work:
    /// the child inherits every lock that is held and nobody who would give it back.
    virtual std::unique_ptr<Measuring> StartMeasuring(MeasuredParts parts,
                                                      const UniqueMetaObjectKey& below) = 0;
    /// The object as a line drawing, or all that the file holds where the key is none of an
    /// object's. Takes seconds, and a damaged shape may end the process: not for a process with
    /// something to lose.
    virtual std::variant<LineDrawing, FileError> Draw(const UniqueMetaObjectKey& object) = 0;
};

/// Whether text of that name can be read, for the command line's own check.
bool IsKnownEncoding(const std::string& encoding);

} // namespace desktop::step
