#pragma once

#include "model/PhObject.h"
#include "model/PhRare.h"
#include "model/enumerations.h"

#include <string_view>

namespace tavo {

class PhGroup;
class PhList;
class PhRange;
class PhRoot;
class PhUnit;
class PhValue;
struct PhConversionPrivate;

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
    PhConversionType conversionType() const;
    void setConversionType(PhConversionType conversionType);

    /// The unit of the physical value.
    PhUnit* unit() const;
    void setUnit(PhUnit* unit);

    /// COMPU_TAB_REF: the conversion that this one names. Until names are resolved it may be a
    /// placeholder that knows nothing but its name.
    PhConversion* conversion() const;
    void setConversion(PhConversion* conversion);

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
    friend struct PhConversionPrivate;

    PhRare<PhConversionPrivate> d; ///< A placeholder has none.
};

} // namespace tavo
