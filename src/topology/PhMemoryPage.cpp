#include "topology/PhMemoryPage.h"

#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

struct PhMemoryPagePrivate : Pooled
{
    PhMemoryType memoryType = PhMemoryType::Undefined;
    PhLocation location = PhLocation::Undefined;
    PhPageType pageType = PhPageType::Undefined;
    PhRef<PhValue> address;
    PhRef<PhValue> size;
};

PhMemoryPage::PhMemoryPage() : PhObject(PhClassMemoryPage), d(new PhMemoryPagePrivate) {}

PhMemoryPage::~PhMemoryPage() = default;

PhMemoryType PhMemoryPage::memoryType() const { return d->memoryType; }

void PhMemoryPage::setMemoryType(PhMemoryType memoryType) { d->memoryType = memoryType; }

PhLocation PhMemoryPage::location() const { return d->location; }

void PhMemoryPage::setLocation(PhLocation location) { d->location = location; }

PhPageType PhMemoryPage::pageType() const { return d->pageType; }

void PhMemoryPage::setPageType(PhPageType pageType) { d->pageType = pageType; }

PhValue* PhMemoryPage::size() const { return d->size; }

void PhMemoryPage::setSize(PhValue* size) { d->size = size; }

PhValue* PhMemoryPage::address() const { return d->address; }

void PhMemoryPage::setAddress(PhValue* address) { d->address = address; }

} // namespace tavo
