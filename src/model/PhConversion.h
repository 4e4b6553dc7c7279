#pragma once

#include "model/PhConversionRef.h"
#include "model/PhObject.h"
#include "model/PhPackedValues.h"
#include "model/PhRare.h"
#include "model/enumerations.h"
#include "model/ownership.h"

#include <string_view>

namespace tavo {

class PhGroup;
class PhRange;
class PhRoot;
class PhUnit;
class PhValue;

/// How a raw value of the ECU becomes a physical one: a COMPU_METHOD, COMPU_TAB, COMPU_VTAB or
/// COMPU_VTAB_RANGE. A rational function, a table and a reference to a further conversion stand
/// side by side, and each of them may be missing.
///
/// The function runs from raw to physical: physical = numerator(raw) / denominator(raw). COEFFS in
/// the file describe the opposite direction, so the reader inverts them.
///
/// References and lists may be null, which means that there is no such property. A setter takes a
/// count of its argument and releases what the field held before; an append operation makes the
/// list if it is missing.
class PhConversion : public PhObject
{
public:
    PhConversion();
    ~PhConversion() override;

    /// What the file calls the conversion. No operation here depends on it.
    PhConversionType conversionType() const { return conversionType_; }
    void setConversionType(PhConversionType type) { conversionType_ = type; }

    /// The unit of the physical value. One that was given by its label becomes an object when it is
    /// first asked for, which can run out of memory.
    PhUnit* unit() const;
    void setUnit(PhUnit* unit);
    void setUnitLabel(const PhString& label) { unit_.setText(label); }
    /// The label of the unit, for a look that makes no object; null if there is no unit.
    const PhString* unitLabel() const;

    /// COMPU_TAB_REF: the conversion that this one names. Until names are resolved it may be a
    /// placeholder that knows nothing but its name.
    PhConversion* conversion() const { return conversion_.conversion(); }
    void setConversion(PhConversion* conversion) { conversion_ = conversion; }
    PhConversionRef& conversionRef() { return conversion_; }
    const PhConversionRef& conversionRef() const { return conversion_; }

    /// The rows of the table in file order, as `PhRange`. Rows that were appended without an object
    /// become objects when the list is first asked for, which can run out of memory.
    PhList* ranges() const;
    void appendRange(PhRange* range);
    /// Append a row whose limit markers are set. As long as nobody asks for the list, it takes some
    /// twenty bytes and its text if its limits are plain numbers, and its result one or a text.
    void appendRow(const PhValue& lower, const PhValue& upper, const PhValue& result);
    /// The same for a text, which may end at a NUL in it.
    void appendRow(const PhValue& lower, const PhValue& upper, std::string_view result);

    /// The coefficients as `PhValue`, highest power first, so that the constant term stands last.
    /// Plain numbers become objects when one of the lists is first asked for, which can run out of
    /// memory.
    PhList* numerator() const;
    PhList* denominator() const;
    PhList* createNumerator();
    PhList* createDenominator();
    /// Makes both lists, but no objects yet, if they are missing.
    void createCoefficients();
    /// Append a copy; the argument stays the caller's.
    void appendNumerator(const PhValue& coefficient);
    void appendDenominator(const PhValue& coefficient);

    /// Reads the function as physical = factor * raw + offset. False, with both results untouched,
    /// if it has more than two coefficients above or more than one below. What is missing counts as
    /// factor 1, offset 0 and denominator 1, and so does a denominator that is zero or no number.
    bool getLinearFactors(double* factor, double* offset) const;

    /// Evaluates the function for `x` into `y`, which keeps its name, by the arithmetic of
    /// `PhValue`. A denominator without coefficients, or with none that is a number other than
    /// zero, counts as one. One that merely comes to zero for this `x` gives the infinite or NaN
    /// double of IEEE 754. With no numerator, or one of zeros, `y` may end up without content.
    void convert(const PhValue& x, PhValue& y) const;

    /// Replaces a placeholder in `conversion` by the conversion of that name in `group` or above,
    /// and goes on along the reference. What isn't found is reported to the root's logger.
    void resolve(PhRoot* root, PhGroup* group);

private:
    /// A file can chain any number of conversions. As far as this reference holds the last count,
    /// the chain is taken apart link by link: a conversion that refers to no other destroys only
    /// itself.
    class Chain : public PhConversionRef
    {
    public:
        using PhConversionRef::operator=;
        ~Chain()
        {
            if (peek())
                takeApart();
        }

    private:
        void takeApart();
    };

    /// What few conversions have, since rows and coefficients are packed as a rule.
    struct Lists : Pooled
    {
        PhLazyList denominator;
        PhLazyList numerator;
        PhLazyList ranges;
    };

    /// What a packed value is to its conversion.
    enum Mark
    {
        LowerLimit,
        UpperLimit,
        BothLimits,
        Result,
        Numerator,
        Denominator
    };

    PhList* listOf(PhLazyList Lists::*list) const
    {
        return lists_ ? static_cast<PhList*>((*lists_).*list) : nullptr;
    }
    bool packsRows() const { return !listOf(&Lists::ranges); }
    bool packsCoefficients() const;
    void packLimits(const PhValue& lower, const PhValue& upper);
    void unpackRows() const;
    void appendCoefficient(Mark mark, const PhValue& coefficient);
    void unpackCoefficients() const;

    // The order of the fields is the one of their release, backwards. What a look turns into
    // objects is mutable.
    [[no_unique_address]] PhTextRef<PhUnit> unit_;
    PhConversionType conversionType_ = PhConversionType::CtUndefined;
    [[no_unique_address]] Chain conversion_;
    /// There is one, in `coefficients_` as far as it has any.
    mutable bool hasPackedNumerator_ = false;
    mutable bool hasPackedDenominator_ = false;
    mutable PhPackedValues rows_;         ///< All rows, as long as there is no list of them.
    mutable PhPackedValues coefficients_; ///< All coefficients, as long as neither list is there.
    mutable PhRare<Lists> lists_;
};

} // namespace tavo
