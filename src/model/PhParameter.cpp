#include "model/PhParameter.h"

#include "model/PhType.h"
#include "model/ownership.h"

namespace tavo {

struct PhParameterPrivate : Pooled
{
    PhServiceParameterType serviceParameterType = PhServiceParameterType::Undefined;
    PhRef<PhObject> auxRef7;
    PhRef<PhObject> auxRef6;
    PhRef<PhObject> auxRef5;
    PhRef<PhObject> auxRef4;
    PhRef<PhObject> auxRef3;
    PhRef<PhObject> auxRef2;
    PhRef<PhType> type;
    PhRef<PhObject> auxRef1;
};

PhParameter::PhParameter() : PhObject(PhClassParameter), d(new PhParameterPrivate) {}

PhParameter::~PhParameter() = default;

PhServiceParameterType PhParameter::serviceParameterType() const { return d->serviceParameterType; }

void PhParameter::setServiceParameterType(PhServiceParameterType serviceParameterType)
{
    d->serviceParameterType = serviceParameterType;
}

PhType* PhParameter::type() const { return d->type; }

void PhParameter::setType(PhType* type) { d->type = type; }

PhObject* PhParameter::auxRef1() const { return d->auxRef1; }

PhObject* PhParameter::auxRef2() const { return d->auxRef2; }

PhObject* PhParameter::auxRef3() const { return d->auxRef3; }

PhObject* PhParameter::auxRef4() const { return d->auxRef4; }

PhObject* PhParameter::auxRef5() const { return d->auxRef5; }

PhObject* PhParameter::auxRef6() const { return d->auxRef6; }

PhObject* PhParameter::auxRef7() const { return d->auxRef7; }

void PhParameter::setAuxRef1(PhObject* object) { d->auxRef1 = object; }

void PhParameter::setAuxRef2(PhObject* object) { d->auxRef2 = object; }

void PhParameter::setAuxRef3(PhObject* object) { d->auxRef3 = object; }

void PhParameter::setAuxRef4(PhObject* object) { d->auxRef4 = object; }

void PhParameter::setAuxRef5(PhObject* object) { d->auxRef5 = object; }

void PhParameter::setAuxRef6(PhObject* object) { d->auxRef6 = object; }

void PhParameter::setAuxRef7(PhObject* object) { d->auxRef7 = object; }

} // namespace tavo
