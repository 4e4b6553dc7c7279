#pragma once

#include "model/PhObject.h"

#include <cstdint>

namespace tavo {

class PhList;
class PhParameter;
class PhRange;
struct PhStructurePrivate;

/// A group of parameters in the message of a service. No A2L file makes one.
///
/// References and lists may be null. A setter takes a count of its argument and releases what the
/// field held before; an append operation makes the list if it is missing.
class PhStructure : public PhObject
{
public:
    PhStructure();
    ~PhStructure() override;

    /// Further numbers without a user.
    std::int32_t value1() const;
    std::int32_t value2() const;
    void setValue1(std::int32_t value);
    void setValue2(std::int32_t value);

    PhList* ranges() const;
    void appendRange(PhRange* range);
    PhList* parameters() const;
    void appendParameter(PhParameter* parameter);

    /// Further references without a user.
    PhObject* auxRef1() const;
    PhObject* auxRef2() const;
    PhObject* auxRef3() const;
    void setAuxRef1(PhObject* object);
    void setAuxRef2(PhObject* object);
    void setAuxRef3(PhObject* object);

private:
    std::unique_ptr<PhStructurePrivate> d;
};

} // namespace tavo
