#include "model/PhUnit.h"

namespace tavo {

struct PhUnitPrivate : Pooled
{
    PhString label;
};

PhUnit::PhUnit() : PhObject(PhClassUnit), d(new PhUnitPrivate) {}

PhUnit::~PhUnit() = default;

const PhString& PhUnit::label() const { return d->label; }

void PhUnit::setLabel(const PhString& label) { d->label = label; }

} // namespace tavo
