// The columns of check boxes beside a row's name.
#pragma once

/// Their ids, in the order in which they stand.
enum AttributeColumnId : int {
    AttributeColumnAggrIntoProduct = 200,
    AttributeColumnRegWithDesc = 201,
};
