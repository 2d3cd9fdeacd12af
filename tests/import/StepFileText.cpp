#include "tests/import/StepFileText.h"

#include "desktop/LevelChoice.h"

#include "platform/values/Utf8.h"

#include <atomic>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tests {

namespace {

std::string Ref(int number) { return "#" + std::to_string(number); }

std::string Shown(const platform::ObjectRecord& object) {
    std::string text = platform::ToUtf8(object.name.Str());
    if (!object.marking.IsEmpty())
        text += " [" + platform::ToUtf8(object.marking.GetBase().Str()) + "]";
    return text;
}

} // namespace

int StepFileText::Add(std::string_view record) {
    m_records.emplace_back(record);
    return static_cast<int>(m_records.size());
}

int StepFileText::AddProduct(std::string_view id, std::string_view name) {
    const int product = Add("PRODUCT('" + std::string(id) + "','" + std::string(name) + "','',$)");
    const int formation = Add("PRODUCT_DEFINITION_FORMATION('',''," + Ref(product) + ")");
    return Add("PRODUCT_DEFINITION('design',''," + Ref(formation) + ",$)");
}

int StepFileText::AddPart(std::string_view id, std::string_view name) {
    const int definition = AddProduct(id, name);
    Add("PRODUCT_DEFINITION_SHAPE('',''," + Ref(definition) + ")");
    return definition;
}

int StepFileText::AddUse(int parent, int child) {
    return Add("NEXT_ASSEMBLY_USAGE_OCCURRENCE('1','NAUO1',''," + Ref(parent) + "," + Ref(child) + ",$)");
}

void StepFileText::AddDensity(int definition, std::string_view value, int unit) {
    const int item = Add("MEASURE_REPRESENTATION_ITEM('density measure',POSITIVE_RATIO_MEASURE(" + std::string(value) +
                         ")," + Ref(unit) + ")");
    const int representation = Add("REPRESENTATION('density',(" + Ref(item) + "),$)");
    const int property = Add("PROPERTY_DEFINITION('material property','density of part'," + Ref(definition) + ")");
    Add("PROPERTY_DEFINITION_REPRESENTATION(" + Ref(property) + "," + Ref(representation) + ")");
}

std::string StepFileText::Text() const {
    std::string text = "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
                       "FILE_NAME('','',(''),(''),'','','');\n"
                       "FILE_SCHEMA(('AUTOMOTIVE_DESIGN'));\nENDSEC;\nDATA;\n";
    for (std::size_t i = 0; i < m_records.size(); ++i)
        text += "#" + std::to_string(i + 1) + "=" + m_records[i] + ";\n";
    return text + "ENDSEC;\nEND-ISO-10303-21;\n";
}

TemporaryFile::TemporaryFile(std::string_view name, std::string_view bytes) {
    static std::atomic<int> number = 0;
    const std::string folder = "step-" + std::to_string(getpid()) + "-" + std::to_string(++number);
    m_path = std::filesystem::path(testing::TempDir()) / folder / name;
    std::filesystem::create_directories(m_path.parent_path());
    std::ofstream(m_path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

TemporaryFile::~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path.parent_path(), ignored);
}

std::string Dump(const std::filesystem::path& path, const desktop::step::StepOptions& options) {
    auto result = desktop::step::StepDocument::Read(path, options);
    if (const auto* error = std::get_if<desktop::FileError>(&result))
        return "error: " + error->reason;
    const desktop::step::StepDocument& document = *std::get<0>(result);
    platform::ProductModel model = document.GetModel();
    const auto level = desktop::ShowLevel(model, options);
    if (const auto* error = std::get_if<desktop::FileError>(&level))
        return "error: " + error->reason;
    std::string text = Shown(model.root) + "\n";
    for (const platform::ObjectRecord& object : model.objects)
        text += std::to_string(object.section.numbers[0]) + " " + Shown(object) + " x" +
                std::to_string(object.occurrences.size()) + "\n";
    std::vector<std::string> notes = document.GetNotes();
    if (!std::get<std::string>(level).empty())
        notes.push_back(std::get<std::string>(level));
    for (const std::string& note : notes)
        text += "note: " + note + "\n";
    return text;
}

std::string DumpText(std::string_view step, const desktop::step::StepOptions& options) {
    const TemporaryFile file("sample.step", step);
    return Dump(file.GetPath(), options);
}

} // namespace tests
