#include "desktop/import/StepReader.h"

#include <BRepGProp.hxx>
#include <BRep_Builder.hxx>
#include <GProp_GProps.hxx>
#include <Interface_Check.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_ProgressIndicator.hxx>
#include <Message_ProgressScope.hxx>
#include <STEPControl_Controller.hxx>
#include <STEPControl_Reader.hxx>
#include <Standard_Failure.hxx>
#include <StepData_StepModel.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Shape.hxx>
#include <Transfer_TransientProcess.hxx>
#include <XSControl_TransferReader.hxx>
#include <XSControl_WorkSession.hxx>

#include <cmath>
#include <istream>
#include <mutex>
#include <new>
#include <streambuf>
#include <string>

namespace desktop::step {

namespace {

/// What the reader keeps of each transfer beside its working data.
constexpr int finalResults = 1;
constexpr double cubicMetresPerCubicMillimetre = 1e-9;

/// A text in memory as the source of a stream, without a copy of it.
class TextBuffer final : public std::streambuf {
public:
    explicit TextBuffer(std::string_view text) {
        // A get area is never written to.
        char* begin = const_cast<char*>(text.data());
        setg(begin, begin, begin + text.size());
    }
};

/// Hands the progress of the reader on.
class ProgressBridge final : public Message_ProgressIndicator {
public:
    explicit ProgressBridge(const Progress& progress) : m_progress(progress) {}

protected:
    void Show(const Message_ProgressScope&, const Standard_Boolean) override {
        m_progress(GetPosition());
    }

private:
    const Progress& m_progress;
};

void SetUpOnce() {
    static std::once_flag done;
    std::call_once(done, [] {
        // The printers write to standard output, which belongs to the program.
        Message::DefaultMessenger()->ChangePrinters().Clear();
        STEPControl_Controller::Init();
    });
}

/// What the reader says about statements that it did not understand. A reference to nothing is no
/// such thing: real exporters write them, and the products are intact.
std::optional<FileError> FindSyntaxError(const StepData_StepModel& model) {
    static constexpr std::string_view syntaxMark = "Undefined Parsing: ";
    const Handle(Interface_Check)& check = model.GlobalCheck();
    for (int i = 1; i <= check->NbFails(); ++i) {
        std::string_view message = check->CFail(i);
        if (!message.starts_with(syntaxMark))
            continue;
        message.remove_prefix(syntaxMark.size());
        std::string reason(message.substr(0, message.find('\n')));
        if (reason.starts_with("Line"))
            reason.front() = 'l';
        return FileError{std::move(reason)};
    }
    return std::nullopt;
}

double SolidVolume(const TopoDS_Shape& shape) {
    double volume = 0;
    for (TopExp_Explorer solids(shape, TopAbs_SOLID); solids.More(); solids.Next()) {
        GProp_GProps properties;
        BRepGProp::VolumeProperties(solids.Current(), properties);
        // A solid that is turned inside out measures negative.
        volume += std::abs(properties.Mass());
    }
    return volume;
}

TopoDS_Shape TransferShape(STEPControl_Reader& reader, int entity, const Progress& progress) {
    const Handle(Standard_Transient) definition = reader.StepModel()->Value(entity);
    const Handle(XSControl_TransferReader)& transfer = reader.WS()->TransferReader();
    // Each part starts afresh: the shapes of all of them together need not stay.
    transfer->Clear(finalResults);
    transfer->BeginTransfer();
    transfer->TransientProcess()->Clear();
    const Handle(ProgressBridge) bridge = new ProgressBridge(progress);
    transfer->TransferOne(definition, Standard_True, bridge->Start());
    return transfer->ShapeResult(definition);
}

} // namespace

StepReader::StepReader(std::unique_ptr<STEPControl_Reader> reader) : m_reader(std::move(reader)) {}

StepReader::~StepReader() = default;

std::variant<std::unique_ptr<StepReader>, FileError> StepReader::Load(std::string_view text) {
    try {
        SetUpOnce();
        auto reader = std::make_unique<STEPControl_Reader>();
        TextBuffer buffer(text);
        std::istream stream(&buffer);
        const IFSelect_ReturnStatus status = reader->ReadStream("", stream);
        const Handle(StepData_StepModel) model = reader->StepModel();
        if (status != IFSelect_RetDone || model.IsNull())
            return FileError{"not a readable STEP file"};
        // The reader takes an empty data section for bad syntax.
        if (model->NbEntities() == 0)
            return FileError{"the file holds no product"};
        if (std::optional<FileError> error = FindSyntaxError(*model))
            return *std::move(error);
        return std::unique_ptr<StepReader>(new StepReader(std::move(reader)));
    } catch (const Standard_Failure& failure) {
        return FileError{std::string("damaged: ") + failure.DynamicType()->Name()};
    }
}

const StepData_StepModel& StepReader::GetModel() const {
    return *m_reader->StepModel();
}

std::optional<double> StepReader::MeasureVolume(int entity, const Progress& progress) {
    try {
        const double volume = SolidVolume(TransferShape(*m_reader, entity, progress));
        if (!(volume > 0) || !std::isfinite(volume))
            return std::nullopt;
        return volume * cubicMetresPerCubicMillimetre;
    } catch (const Standard_Failure&) {
        return std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

LineDrawing StepReader::Draw(const std::vector<int>& entities) {
    try {
        TopoDS_Compound all;
        const BRep_Builder builder;
        builder.MakeCompound(all);
        for (const int entity : entities) {
            const TopoDS_Shape shape = TransferShape(*m_reader, entity, [](double) {});
            if (!shape.IsNull())
                builder.Add(all, shape);
        }
        return DrawLines(all);
    } catch (const Standard_Failure&) {
        return {};
    }
}

} // namespace desktop::step
