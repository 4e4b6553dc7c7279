#include "network/PhFunction.h"

#include "model/ownership.h"

namespace tavo {

struct PhFunctionPrivate : Pooled
{
    PhLazyList outputSignals;
    PhLazyList inputSignals;
};

PhFunction::PhFunction() : PhObject(PhClassFunction), d(new PhFunctionPrivate) {}

PhFunction::~PhFunction() = default;

PhList* PhFunction::inputSignals() const { return d->inputSignals; }

PhList* PhFunction::outputSignals() const { return d->outputSignals; }

void PhFunction::appendInputSignal(PhObject* inputSignal) { d->inputSignals.append(inputSignal); }

void PhFunction::appendOutputSignal(PhObject* outputSignal)
{
    d->outputSignals.append(outputSignal);
}

} // namespace tavo
