// The columns of check boxes beside a row's name.
#pragma once

/// Their ids, in the order in which they stand.
enum AttributeColumnId : int {
    AttributeColumnAggrIntoProduct = 200,
    AttributeColumnRegWithDesc = 201,
};

/// What a row shows in one of them. The row is clickable where the state is not read-only.
enum AttributeState : int {
    AttributeStateNone = 0,
    AttributeStateOn = 1,
    AttributeStateOff = 2,
    AttributeStateOnReadOnly = 3,
    AttributeStateOffReadOnly = 4,
};
