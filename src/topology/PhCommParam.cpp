#include "topology/PhCommParam.h"

#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/PhRaster.h"

namespace tavo {

struct PhCommParamPrivate : Pooled
{
    PhProtocol protocol = PhProtocol::Undefined;
    PhTransport transport = PhTransport::Undefined;
    PhEndian endian = PhEndian::Undefined;
    PhRef<PhValue> host;
    PhRef<PhValue> port;
    PhRef<PhValue> stationAddress;
    PhRef<PhValue> masterId;
    PhRef<PhValue> slaveId;
    PhLazyList rasters;
    PhLazyList properties; ///< Named values, the one list that is there from the start.
};

PhCommParam::PhCommParam() : PhObject(PhClassCommParam), d(new PhCommParamPrivate)
{
    d->properties.made();
}

PhCommParam::~PhCommParam() = default;

PhProtocol PhCommParam::protocol() const { return d->protocol; }

void PhCommParam::setProtocol(PhProtocol protocol) { d->protocol = protocol; }

PhTransport PhCommParam::transport() const { return d->transport; }

void PhCommParam::setTransport(PhTransport transport) { d->transport = transport; }

PhEndian PhCommParam::endian() const { return d->endian; }

void PhCommParam::setEndian(PhEndian endian) { d->endian = endian; }

PhValue* PhCommParam::slaveId() const { return d->slaveId; }

void PhCommParam::setSlaveId(PhValue* slaveId) { d->slaveId = slaveId; }

PhValue* PhCommParam::masterId() const { return d->masterId; }

void PhCommParam::setMasterId(PhValue* masterId) { d->masterId = masterId; }

PhValue* PhCommParam::stationAddress() const { return d->stationAddress; }

void PhCommParam::setStationAddress(PhValue* stationAddress) { d->stationAddress = stationAddress; }

PhValue* PhCommParam::port() const { return d->port; }

void PhCommParam::setPort(PhValue* port) { d->port = port; }

PhValue* PhCommParam::host() const { return d->host; }

void PhCommParam::setHost(PhValue* host) { d->host = host; }

PhList* PhCommParam::properties() const { return d->properties; }

PhValue* PhCommParam::property(const PhString& name) const
{
    return findByName<PhValue>(d->properties, name);
}

namespace {

/// The property of this name. A missing one is appended, without content.
PhValue* findOrCreateProperty(PhList* properties, const PhString& name)
{
    if (auto* known = findByName<PhValue>(properties, name))
        return known;
    const PhRef<PhValue> fresh(new PhValue);
    fresh->setName(name);
    properties->append(fresh.get());
    return fresh.get();
}

template <class Content>
PhValue* storeProperty(PhList* properties, const PhString& name, const Content& content)
{
    PhValue* property = findOrCreateProperty(properties, name);
    property->setValue(content);
    return property;
}

} // namespace

PhValue* PhCommParam::setProperty(const PhString& name, const PhString& text)
{
    return storeProperty(d->properties, name, text);
}

PhValue* PhCommParam::setProperty(const PhString& name, std::int32_t number)
{
    return storeProperty(d->properties, name, number);
}

PhValue* PhCommParam::setProperty(const PhString& name, double number)
{
    return storeProperty(d->properties, name, number);
}

PhValue* PhCommParam::setProperty(const PhString& name, PhList* list)
{
    std::unique_ptr<PhList> owned(list);
    PhValue* property = findOrCreateProperty(d->properties, name);
    property->setValue(owned.release());
    return property;
}

PhList* PhCommParam::rasters() const { return d->rasters; }

void PhCommParam::appendRaster(PhRaster* raster) { d->rasters.append(raster); }

PhRaster* PhCommParam::findRaster(const PhString& name) const
{
    return findByName<PhRaster>(d->rasters, name);
}

} // namespace tavo
