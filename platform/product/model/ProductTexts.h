// What a product in memory says to its user: names of steps, reasons of refusals,
// titles of questions.
#pragma once

#include "host/SharedText.h"

#include <vector>

namespace platform {

/// Texts of the host's own module.
enum class ProductText : unsigned {
    Change = 1201,
    Changes = 1202,
    Deletion = 1203,
    Deletions = 1204,
    Link = 1205,
    LinkEdit = 1206,
    LinkRemoval = 1207,
    Transmission = 1208,
    NewBillet = 1209,
    NewObject = 1210,
    Aggregation = 1211,
    Registration = 1212,
    BilletConversion = 1213,
    MaterialOf = 1214,
    MaterialOfSeveral = 1215,
    MaterialRemoval = 1216,
    MaterialRemovals = 1217,
    Update = 1219,
    RefusedCount = 1221,
    RefusedMoment = 1222,
    RefusedLinked = 1223,
    RefusedNoTypedCount = 1224,
    CountedIn = 1225,
    RefusedSum = 1226,
    RefusedTooManyParts = 1227,
    CountGoesTo = 1228,
    RefusedNumber = 1229,
    RefusedRange = 1230,
    RefusedBelow = 1231,
    RefusedAbove = 1232,
    RefusedValue = 1233,
    RefusedFixed = 1234,
    RefusedNoObjects = 1235,
    RefusedNoMaterial = 1236,
    UpdateReadOnly = 1241,
    UpdateCycle = 1242,
    UpdateEmbodiments = 1243,
    OpenNoProgram = 1244,
    BookMaterials = 1251,
    TypedMaterials = 1252,
    LinkTitle = 1301,
    ItemPropertiesTitle = 1302,
    LinkRefused = 1306,
    SectionTitle = 1307,
    SectionNameLink = 1308,
    SectionNone = 1309,
    ColumnsTitle = 1310,
    BilletOwnerTitle = 1311,
    ValueOwn = 1321,
    ValueOfObject = 1322,
    ValueLinked = 1323,
    ValueLinkLost = 1324,
    ValueCounted = 1325,
    ValueTypedCount = 1326,
    UpdateTitle = 1331,
    UpdateRefused = 1332,
    GoneQuestion = 1333,
    GoneIn = 1334,
    GoneUses = 1335,
    GoneMore = 1336,
    GoneRemove = 1337,
    GoneKeep = 1338,
    GoneCancel = 1339,
    OpenRefused = 1340,
    MaterialKept = 1341,
    MaterialAnd = 1342,
    MaterialList = 1343,
    DesignationsTitle = 1351,
    DesignationsNone = 1352,
    RoughnessTitle = 1361,
};

/// Empty when the text asks for another number of arguments.
SharedText GetText(ProductText text, const std::vector<SharedText>& arguments = {});

} // namespace platform
