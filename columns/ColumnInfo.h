// What a column is, apart from any row: its property, caption, width, value type, range, list of
// values and scale between stored and shown units. Cells and heads keep a copy each and the view
// reads it; a copy costs one count, since copies share their parts until one of them is changed.
#pragma once

#include "host/SimplePropVal.h"
#include "host/UniqueMetaObjectKey.h"
#include "resources/Export.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <list>
#include <map>
#include <set>
#include <string>

class IfPropertyDescription;

namespace productTree {

class PRODUCT_TREE_EXPORT ColumnInfo {
public:
    /// Width in the view's units by width class: 0 numbers and counts, 1 texts, 2 material and
    /// section, 3 truth values and lists, 4 narrow numbers, 5 counts per embodiment.
    static const std::map<int, double> DEFAULT_COLUMN_WIDTH;

    /// The column of a described property. Null gives an empty id, string type and no limits.
    explicit ColumnInfo(const IfPropertyDescription* description);
    /// A string column without a description.
    ColumnInfo(const std::wstring& id, const std::wstring& header, double width);
    ColumnInfo(const ColumnInfo& other) noexcept = default;
    ColumnInfo& operator=(const ColumnInfo& other) noexcept = default;
    ~ColumnInfo() = default;

    /// Copies of one column of which none has been changed: a cheap test that never says the same
    /// wrongly.
    bool IsSame(const ColumnInfo& other) const noexcept { return m_facts == other.m_facts; }

    /// Takes range, list, unit coefficient, caption, default width and variability.
    void InitByDescription(const IfPropertyDescription& description);
    /// The same without the width, which the user may have set.
    void UpdateByDescription(const IfPropertyDescription& description);
    void SetRangeByDescription(const IfPropertyDescription& description);
    void SetListByDescription(const IfPropertyDescription& description);
    void SetUnitCoefByDescription(const IfPropertyDescription& description);
    void SetHeaderByDescription(const IfPropertyDescription& description);
    void SetWidthByDescription(const IfPropertyDescription& description);
    void SetIsVarByDescription(const IfPropertyDescription& description);

    /// The property's path, or the id of a count column per embodiment.
    const std::wstring& GetId() const { return m_facts->id; }
    /// The same to be held on to without a copy.
    const SharedText& GetSharedId() const { return m_facts->id; }
    /// The caption, with the shown unit where the property has one.
    const std::wstring& GetHeader() const;
    /// A value_type::ValueType; others have no cells.
    unsigned GetType() const { return m_facts->type; }
    double GetWidth() const;
    void SetWidth(double width);
    /// Limits in stored units; both 0 when there is no range, and for every type but the numbers.
    double GetMin() const { return m_facts->min; }
    double GetMax() const { return m_facts->max; }
    /// The range is not binding.
    bool IsVariable() const { return m_facts->isVariable; }
    /// The values that the property may take, in stored units; empty when it has no list.
    std::list<SimplePropVal> GetListOfVariant() const;
    /// The same in shown units.
    std::list<SimplePropVal> GetListWithUnitCoef() const;
    /// The same two lists to be looked at in place: they stay as long as a copy of the column does
    /// that nobody changes.
    const std::list<SimplePropVal>& GetStoredList() const;
    const std::list<SimplePropVal>& GetShownList() const;

    /// False for a coefficient too near to 0 to divide by; values are then shown as stored.
    bool IsUnitCoefficientDefined() const;
    /// From stored to shown units, and back. Integers are cut towards zero, and held at the limits
    /// of int where the result does not fit. What comes back is the stored number that is shown as
    /// `value`, compared in 15 decimal digits: an end of the range where one is, else the one with
    /// the fewest digits. So the ends can be typed and round numbers are stored round, although few
    /// coefficients are exact in binary.
    double ApplyUnitCoefficient(double value) const;
    double UnapplyUnitCoefficient(double value) const;
    int ApplyUnitCoefficient(int value) const;
    int UnapplyUnitCoefficient(int value) const;
    /// `value` in stored units. Both ends are allowed; without a range everything is.
    bool IsValueInMinMaxRange(double value) const;

    /// The id of the column that counts for these embodiments: "count", then "|" and each non-empty
    /// key. A key must not hold "|".
    static std::wstring ConvertGroupCountToId(const std::set<UniqueMetaObjectKey>& keys);
    /// The embodiments of such an id; empty for every other column, the plain "count" among them.
    static std::set<UniqueMetaObjectKey> ConvertGroupCountFromId(const std::wstring& id);

private:
    /// What each reading of a cell asks for. The rest stands in Parts, of which this is the head.
    struct Facts {
        unsigned count = 0;
        unsigned type = 0;
        SharedText id;
        double min = 0;
        double max = 0;
        double unitCoefficient = 0;
        bool isVariable = false;

        // Counted plainly: a cell a column and row makes a copy, all on one thread.
        friend void intrusive_ptr_add_ref(Facts* facts) noexcept { ++facts->count; }
        friend void intrusive_ptr_release(Facts* facts) noexcept {
            if (--facts->count == 0)
                facts->Destroy();
        }
        void Destroy() noexcept { ColumnInfo::Destroy(this); }
    };
    struct Parts;

    static void Destroy(Facts* facts) noexcept;
    const Parts& GetParts() const;
    Parts& Detach();

    boost::intrusive_ptr<Facts> m_facts;
};

} // namespace productTree
