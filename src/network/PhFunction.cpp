#include "network/PhFunction.h"

#include "model/ownership.h"

namespace tavo {

struct PhFunctionPrivate : Pooled
{
    PhList* inputSignals = nullptr;
    PhList* outputSignals = nullptr;
};

PhFunction::PhFunction() : PhObject(PhClassFunction), d(new PhFunctionPrivate) {}

PhFunction::~PhFunction()
{
    releaseList(d->inputSignals);
    releaseList(d->outputSignals);
}

PhList* PhFunction::inputSignals() const { return d->inputSignals; }

PhList* PhFunction::outputSignals() const { return d->outputSignals; }

void PhFunction::appendInputSignal(PhObject* inputSignal)
{
    appendTo(d->inputSignals, inputSignal);
}

void PhFunction::appendOutputSignal(PhObject* outputSignal)
{
    appendTo(d->outputSignals, outputSignal);
}

} // namespace tavo
