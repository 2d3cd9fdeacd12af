#include "platform/product/model/SystemProperties.h"

#include "host/IfPropertyDescription.h"
#include "host/ProductProperties.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace platform {

namespace {

using namespace value_type;

struct Row {
    std::wstring_view path;
    const wchar_t* caption;
    ValueType type;
    /// Values in their order with '|' between them; empty: any value.
    std::wstring_view list = {};
    double min = 0;
    double max = 0;
    std::wstring_view unitCode = {};
    double unitCoefficient = 0;
};

constexpr double c_lastInt = std::numeric_limits<int>::max();
constexpr double c_anyPositive = std::numeric_limits<double>::max();

// Masses are stored in kilograms and densities in kilograms per cubic metre, and shown so. Counts
// are texts, since a count may be a mark or stand with a unit. What is stored of roughness signs
// and of "not cut in sections" follows from the order of their lists (ListValues.h).
// clang-format off
constexpr Row c_rows[] = {
    {L"marking",            L"Designation",           String},
    {L"name",               L"Name",                  String},
    {L"count",              L"Count",                 String},
    {L"position",           L"Pos.",                  Integer, {}, 1, c_lastInt},
    {L"SPCSection",         L"Section",               String},
    {L"format",             L"Format",                String},
    {L"zone",               L"Zone",                  String},
    {L"material",           L"Material",              String},
    {L"material.density",   L"Density",               Double,  {}, 0, c_anyPositive, L"kg/m3", 1},
    {L"mass",               L"Mass",                  Double,  {}, 0, c_anyPositive, L"kg", 1},
    {L"note",               L"Note",                  String},
    {L"comment",            L"Comment",               String},
    {L"featureType",        L"Kind",                  String},
    {L"accuracyClass",      L"Accuracy class",        String},
    {L"notSected",          L"Not cut in sections",   Integer, L"Yes|No"},
    {L"specRoughSign",      L"Roughness sign",        Integer, L"Any process|Machined|Not machined"},
    {L"specRoughValue",     L"Roughness",             String},
    {L"revisionLetter",     L"Revision letter",       String},
    {L"productCode",        L"Product code",          String},
    {L"productName",        L"Product name",          String},
    {L"author",             L"Author",                String},
    {L"organization",       L"Organization",          String},
    {L"jobDescription",     L"Job description",       String},
    {L"signer",             L"Signer",                String},
    {L"stampAuthor",        L"Drawn by",              String},
    {L"checkedBy",          L"Checked by",            String},
    {L"approvedBy",         L"Approved by",           String},
    {L"mfgApprovedBy",      L"Approved for making",   String},
    {L"rateOfInspection",   L"Inspected by",          String},
    {L"documentNumber",     L"Document code",         String},
    {L"sheetsNumber",       L"Sheets",                Integer, {}, 0, c_lastInt},
    {L"structureNumber",    L"Structure number",      String},
    {L"zoneCount",          L"Zones",                 Integer, {}, 0, c_lastInt},
    {L"fileName",           L"File",                  String},
    {L"fullFileName",       L"Full file name",        String},
    {L"location",           L"Location",              String},
    {L"fromExternalLibrary",L"From a library",        Boolean},
};
// clang-format on

std::vector<SimplePropVal> SplitList(std::wstring_view list) {
    std::vector<SimplePropVal> values;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(L'|'), list.size());
        values.emplace_back(SharedText(std::wstring(list.substr(0, end))));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return values;
}

PropertyRecord MakeRecord(const Row& row) {
    PropertyRecord record;
    record.number = ProductProperties::GetPropId(std::wstring(row.path));
    record.caption = row.caption;
    record.type = row.type;
    record.min = row.min;
    record.max = row.max;
    record.list = SplitList(row.list);
    record.unitCoefficient = row.unitCoefficient;
    record.unitCode = row.unitCode;
    return record;
}

} // namespace

const std::vector<PropertyRecord>& GetSystemProperties() {
    static const std::vector<PropertyRecord> records = [] {
        std::vector<PropertyRecord> made;
        for (const Row& row : c_rows)
            made.push_back(MakeRecord(row));
        return made;
    }();
    return records;
}

} // namespace platform
