// The kinds of parts that IfMetaProductData::GetPartKind answers.
#pragma once

enum PartKind : int {
    PartKindUnknown = 0,
    PartKindDocument = 1,
    PartKindFeature = 2,
    PartKindView = 3,
    PartKindAssembly = 4,
    PartKindDetail = 5,
    PartKindStandard = 6,
    PartKindOther = 7,
    PartKindService = 8,
};

/// The parts of a specification: the sorter collects objects of these kinds, and what a part's
/// handler says of hiding counts for these kinds alone.
constexpr bool IsSpecificationKind(int kind) {
    return kind >= PartKindAssembly && kind <= PartKindOther;
}

/// Uses of these kinds never make a row. One of a document or a view makes one where it is the use
/// of an object that the sorter has collected.
constexpr bool IsRowlessKind(int kind) {
    return kind == PartKindUnknown || kind == PartKindFeature || kind == PartKindService;
}
