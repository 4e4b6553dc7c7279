#pragma once

#include "model/PhObject.h"

#include <cstdint>

namespace tavo {

class PhConversion;
class PhValue;
struct PhRangePrivate;

/// One row of a conversion table (COMPU_TAB, COMPU_VTAB, COMPU_VTAB_RANGE): an interval of input
/// values and what it maps to.
///
/// The four values are parts of the row. A setter copies the content of its argument into one of
/// them, so that a temporary will do; each has no content until then.
class PhRange : public PhObject
{
public:
    PhRange();
    ~PhRange() override;

    /// Markers of the two limits; 1 in every row that is read from a file, else 0.
    std::uint8_t lowerLimitFlag() const;
    std::uint8_t upperLimitFlag() const;
    void setLowerLimitFlag(std::uint8_t flag);
    void setUpperLimitFlag(std::uint8_t flag);

    /// The ends of the interval, which are equal in a row for a single point.
    const PhValue& lowerLimit() const;
    const PhValue& upperLimit() const;
    void setLowerLimit(const PhValue& limit);
    void setUpperLimit(const PhValue& limit);

    /// What the interval maps to: a number or a text.
    const PhValue& result() const;
    void setResult(const PhValue& result);

    /// A further value without a user.
    const PhValue& inverseValue() const;
    void setInverseValue(const PhValue& value);

    /// A further reference without a user, or null.
    PhObject* auxRef() const;
    void setAuxRef(PhObject* object);

    /// A conversion for this row alone, or null.
    PhConversion* conversion() const;
    void setConversion(PhConversion* conversion);

private:
    std::unique_ptr<PhRangePrivate> d;
};

} // namespace tavo
