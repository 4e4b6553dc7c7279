#include "model/PhType.h"

#include "model/PhConversion.h"

namespace tavo {

PhType::PhType() : PhObject(PhClassType) {}

PhType::~PhType() = default;

PhConversion* PhType::conversion() const { return fields_.conversion.conversion(); }

void PhType::setConversion(PhConversion* conversion) { fields_.conversion = conversion; }

} // namespace tavo
