// STEP files written by tests, record by record.
#pragma once

#include "desktop/import/StepImport.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

class StepFileText final {
public:
    /// Adds a record and gives its number.
    int Add(std::string_view record);
    /// A product with one definition; gives the number of the definition. Texts go into the file as
    /// they are.
    int AddProduct(std::string_view id, std::string_view name);
    /// A product whose definition has a shape.
    int AddPart(std::string_view id, std::string_view name);
    int AddUse(int parent, int child);
    /// `unit` is the number of the unit's record.
    void AddDensity(int definition, std::string_view value, int unit);

    std::string Text() const;

private:
    std::vector<std::string> m_records;
};

/// A file that is gone with the test.
class TemporaryFile final {
public:
    TemporaryFile(std::string_view name, std::string_view bytes);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::filesystem::path& GetPath() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// The document as text: root, objects in their order as "section name [designation] xN", and the
/// reason instead where it can't be read.
std::string Dump(const std::filesystem::path& path, const desktop::step::StepOptions& options);
std::string DumpText(std::string_view step, const desktop::step::StepOptions& options = {});

} // namespace tests
