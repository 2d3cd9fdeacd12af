// The seven parts of a designation as members of the product file.
#pragma once

#include "desktop/store/ProductFormat.h"

namespace desktop::store {

struct MarkingParts {
    SharedText base;
    wchar_t embodimentDelim = 0;
    SharedText embodimentNum;
    wchar_t additionalDelim = 0;
    SharedText additionalNum;
    wchar_t codeDelim = 0;
    SharedText code;
};

inline MarkingParts PartsOf(const VariantMarking& marking) {
    return {marking.GetBase(),          marking.GetEmbodimentNumDelim(),
            marking.GetEmbodimentNum(), marking.GetAdditionalNumDelim(),
            marking.GetAdditionalNum(), marking.GetCodeDelim(),
            marking.GetCode()};
}

inline VariantMarking MakeMarking(const MarkingParts& parts) {
    VariantMarking marking;
    marking.SetBase(parts.base);
    marking.SetEmbodimentNumDelim(parts.embodimentDelim);
    marking.SetEmbodimentNum(parts.embodimentNum);
    marking.SetAdditionalNumDelim(parts.additionalDelim);
    marking.SetAdditionalNum(parts.additionalNum);
    marking.SetCodeDelim(parts.codeDelim);
    marking.SetCode(parts.code);
    return marking;
}

template <class Archive>
void Describe(Archive& file, In<Archive, MarkingParts> parts) {
    file.Value("base", parts.base);
    file.Value("embodimentDelimiter", parts.embodimentDelim);
    file.Value("embodimentNumber", parts.embodimentNum);
    file.Value("additionalDelimiter", parts.additionalDelim);
    file.Value("additionalNumber", parts.additionalNum);
    file.Value("codeDelimiter", parts.codeDelim);
    file.Value("code", parts.code);
}

} // namespace desktop::store
