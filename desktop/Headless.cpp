#include "desktop/Headless.h"

#include "desktop/JsonPrint.h"
#include "platform/view/TextPrint.h"

namespace desktop {

void ComputeMasses(Session& session) {
    if (import::StepDocument* step = session.GetStep())
        session.TakeMasses(step->ComputeMasses([](double) { return true; }));
}

std::string Print(const Session& session, PrintForm form, bool allRows) {
    if (form == PrintForm::Json)
        return PrintJson(session.GetView());
    return PrintTree(session.GetView(),
                     allRows ? platform::PrintedRows::All : platform::PrintedRows::Expanded);
}

} // namespace desktop
