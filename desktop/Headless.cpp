#include "desktop/Headless.h"

#include "desktop/JsonPrint.h"
#include "platform/view/TextPrint.h"

namespace desktop {

void ComputeMasses(Session& session) {
    if (step::StepDocument* document = session.GetStep()) {
        const auto measuring =
            document->StartMeasuring(step::MeasuredParts::WithDensity, session.GetLevel().assembly);
        measuring->Wait();
        session.TakeMeasures(measuring->GetMeasures());
    }
}

std::string Print(const Session& session, PrintForm form, bool allRows) {
    if (form == PrintForm::Json)
        return PrintJson(session.GetView());
    return PrintTree(session.GetView(),
                     allRows ? platform::PrintedRows::All : platform::PrintedRows::Expanded);
}

} // namespace desktop
