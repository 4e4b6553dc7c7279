#include "network/PhService.h"

#include "model/ownership.h"

namespace tavo {

struct PhServicePrivate : Pooled
{
    PhObject* request = nullptr;
    PhList* responses = nullptr;
};

PhService::PhService() : PhObject(PhClassService), d(new PhServicePrivate) {}

PhService::~PhService()
{
    setRequest(nullptr);
    releaseList(d->responses);
}

PhObject* PhService::request() const { return d->request; }

void PhService::setRequest(PhObject* request) { setRef(d->request, request); }

PhList* PhService::responses() const { return d->responses; }

void PhService::appendResponse(PhObject* response) { appendTo(d->responses, response); }

} // namespace tavo
