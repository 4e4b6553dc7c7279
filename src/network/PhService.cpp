#include "network/PhService.h"

#include "model/ownership.h"

namespace tavo {

struct PhServicePrivate : Pooled
{
    PhLazyList responses;
    PhRef<PhObject> request;
};

PhService::PhService() : PhObject(PhClassService), d(new PhServicePrivate) {}

PhService::~PhService() = default;

PhObject* PhService::request() const { return d->request; }

void PhService::setRequest(PhObject* request) { d->request = request; }

PhList* PhService::responses() const { return d->responses; }

void PhService::appendResponse(PhObject* response) { d->responses.append(response); }

} // namespace tavo
