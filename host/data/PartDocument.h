// A document that is attached to an object: a drawing, a description, the file that the object was
// made from.
#pragma once

#include "host/VariantMarking.h"

#include <string>

struct PartDocument {
    /// The file as the user knows it. It tells the documents of one object apart.
    std::wstring file;
    /// By which the file is opened; empty when there is none.
    std::wstring path;
    VariantMarking marking;
    /// Of the sheet, for instance "A3"; may be empty.
    std::wstring format;
    std::wstring comment;
    /// The object has taken the format over.
    bool formatUsed = false;
    /// Name and designation of the object are those of the document.
    bool isSource = false;
    /// Whether they are can't be changed.
    bool sourceLocked = false;
    /// There is no such file now.
    bool isMissing = false;
};
