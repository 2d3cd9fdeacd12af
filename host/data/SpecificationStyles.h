// Specification styles: which sections a specification has, and which of their blocks are in use.
#pragma once

#include "host/SharedText.h"

#include <vector>

namespace meta_data::SP {

/// Names a style. 0 stands for any style (AllStyleId).
using StyleId = int;

StyleId AllStyleId();

} // namespace meta_data::SP

/// A block of sections. Arrays of blocks and sections may hold null entries.
class SpcSectionsBlock {
public:
    virtual ~SpcSectionsBlock() = default;

    virtual int GetNumber() const = 0;
    virtual SharedText GetName() const = 0;
};

using SpcBlockArray = std::vector<const SpcSectionsBlock*>;

class SpcStyleSection {
public:
    virtual ~SpcStyleSection() = default;

    virtual int GetNumber() const = 0;
    virtual SharedText GetName() const = 0;
    /// Null when the section has no blocks.
    virtual const SpcBlockArray* GetAdditionalBlockArr() const = 0;
};

class SpcStyle {
public:
    virtual ~SpcStyle() = default;

    /// Objects stand in sections; else all in one list.
    virtual bool IsSectionSort_() const = 0;
    virtual const std::vector<const SpcStyleSection*>& _GetArrSection() const = 0;
    /// Blocks of the whole specification; null when there are none.
    virtual const SpcBlockArray* GetAdditionalBlockArr() const = 0;
};

/// The user's choice for a block.
class SpcTuningSectionsBlock {
public:
    virtual ~SpcTuningSectionsBlock() = default;

    virtual bool IsUse() const = 0;
    /// The block holds the style's section at that place.
    virtual bool IsUseSection(std::size_t index) const = 0;
};

using SpcTuningBlockArray = std::vector<const SpcTuningSectionsBlock*>;

/// The user's choice for a section.
class SpcTuningSection {
public:
    virtual ~SpcTuningSection() = default;

    virtual bool IsAddSectionsBlock() const = 0;
    virtual const SpcTuningBlockArray* GetAdditionalBlockArr() const = 0;
};

/// The user's choices for a style; its arrays go with those of the style, place by place.
class SpcTuningStyle {
public:
    virtual ~SpcTuningStyle() = default;

    virtual const std::vector<const SpcTuningSection*>& _GetArrTuningSection() const = 0;
    virtual bool IsAddSectionsBlock() const = 0;
    virtual const SpcTuningBlockArray* GetAdditionalBlockArr() const = 0;
};

class SpcDescription {
public:
    virtual ~SpcDescription() = default;

    /// Null when the style is not to be had. `forShow`: the style as the panel shows it;
    /// `fromFile`: the style as it stands in its library, and not the document's copy.
    virtual const SpcStyle* GetSpcStyle(bool forShow, bool fromFile) const = 0;
    virtual const SpcTuningStyle* GetTuningStyle() const = 0;
};
