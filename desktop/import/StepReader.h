// Open CASCADE's reader with one file in it: the loaded entities, and the volumes and drawings of
// its parts on demand. All of it is quiet; failures that the reader notices come out as errors or
// as missing values. One thread at a time.
#pragma once

#include "desktop/import/LineDrawing.h"
#include "desktop/messages/FileError.h"

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

class STEPControl_Reader;
class StepData_StepModel;

namespace desktop::step {

/// Called during long work with the share done, 0 to 1.
using Progress = std::function<void(double)>;

class StepReader final {
public:
    /// `text` comes from PrepareForReader.
    static std::variant<std::unique_ptr<StepReader>, FileError> Load(std::string_view text);

    StepReader(const StepReader&) = delete;
    StepReader& operator=(const StepReader&) = delete;
    ~StepReader();

    const StepData_StepModel& GetModel() const;
    /// Transfers the shape of a product definition, which is the entity of that rank in the model,
    /// and gives the volume of its solids in m3. No value: it has none, or it can't be transferred.
    /// A damaged shape may end the process.
    std::optional<double> MeasureVolume(int entity, const Progress& progress);
    /// The same of several product definitions as one drawing. Empty: nothing can be seen of them,
    /// or they can't be transferred. A damaged shape may end the process.
    LineDrawing Draw(const std::vector<int>& entities);

private:
    explicit StepReader(std::unique_ptr<STEPControl_Reader> reader);

    std::unique_ptr<STEPControl_Reader> m_reader;
};

} // namespace desktop::step
