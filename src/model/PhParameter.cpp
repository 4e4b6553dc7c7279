#include "model/PhParameter.h"

#include "model/PhType.h"
#include "model/ownership.h"

namespace tavo {

struct PhParameterPrivate : Pooled
{
    PhServiceParameterType serviceParameterType = PhServiceParameterType::Undefined;
    PhObject* auxRef1 = nullptr;
    PhType* type = nullptr;
    PhObject* auxRef2 = nullptr;
    PhObject* auxRef3 = nullptr;
    PhObject* auxRef4 = nullptr;
    PhObject* auxRef5 = nullptr;
    PhObject* auxRef6 = nullptr;
    PhObject* auxRef7 = nullptr;
};

PhParameter::PhParameter() : PhObject(PhClassParameter), d(new PhParameterPrivate) {}

PhParameter::~PhParameter()
{
    setAuxRef1(nullptr);
    setType(nullptr);
    setAuxRef2(nullptr);
    setAuxRef3(nullptr);
    setAuxRef4(nullptr);
    setAuxRef5(nullptr);
    setAuxRef6(nullptr);
    setAuxRef7(nullptr);
}

PhServiceParameterType PhParameter::serviceParameterType() const { return d->serviceParameterType; }

void PhParameter::setServiceParameterType(PhServiceParameterType serviceParameterType)
{
    d->serviceParameterType = serviceParameterType;
}

PhType* PhParameter::type() const { return d->type; }

void PhParameter::setType(PhType* type) { setRef(d->type, type); }

PhObject* PhParameter::auxRef1() const { return d->auxRef1; }

PhObject* PhParameter::auxRef2() const { return d->auxRef2; }

PhObject* PhParameter::auxRef3() const { return d->auxRef3; }

PhObject* PhParameter::auxRef4() const { return d->auxRef4; }

PhObject* PhParameter::auxRef5() const { return d->auxRef5; }

PhObject* PhParameter::auxRef6() const { return d->auxRef6; }

PhObject* PhParameter::auxRef7() const { return d->auxRef7; }

void PhParameter::setAuxRef1(PhObject* object) { setRef(d->auxRef1, object); }

void PhParameter::setAuxRef2(PhObject* object) { setRef(d->auxRef2, object); }

void PhParameter::setAuxRef3(PhObject* object) { setRef(d->auxRef3, object); }

void PhParameter::setAuxRef4(PhObject* object) { setRef(d->auxRef4, object); }

void PhParameter::setAuxRef5(PhObject* object) { setRef(d->auxRef5, object); }

void PhParameter::setAuxRef6(PhObject* object) { setRef(d->auxRef6, object); }

void PhParameter::setAuxRef7(PhObject* object) { setRef(d->auxRef7, object); }

} // namespace tavo
