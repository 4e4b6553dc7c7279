#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

class PhList;
class PhRaster;
class PhValue;
struct PhCommParamPrivate;

/// The connection to an ECU by one measurement protocol, from the IF_DATA blocks of that protocol
/// in one MODULE. Its name, "CCP" or "XCP", is the key by which its group finds it.
///
/// References may be null, which means that there is no such property. A setter takes a count of
/// its argument and releases what the field held before.
class PhCommParam : public PhObject
{
public:
    PhCommParam();
    ~PhCommParam() override;

    PhProtocol protocol() const;
    void setProtocol(PhProtocol protocol);

    /// What carries the protocol; `CAN` for each comm param of a description.
    PhTransport transport() const;
    void setTransport(PhTransport transport);

    /// Byte order of the MODULE, from the BYTE_ORDER of its MOD_COMMON.
    PhEndian endian() const;
    void setEndian(PhEndian endian);

    /// Identifier of the messages from the ECU: field 4 of a TP_BLOB, CAN_ID_SLAVE of XCP on CAN.
    PhValue* slaveId() const;
    void setSlaveId(PhValue* slaveId);

    /// Identifier of the messages to the ECU: field 3 of a TP_BLOB, CAN_ID_MASTER of XCP on CAN.
    PhValue* masterId() const;
    void setMasterId(PhValue* masterId);

    /// Field 5 of a TP_BLOB.
    PhValue* stationAddress() const;
    void setStationAddress(PhValue* stationAddress);

    /// Ends of a connection by network; no A2L block gives them.
    PhValue* port() const;
    void setPort(PhValue* port);
    PhValue* host() const;
    void setHost(PhValue* host);

    /// The rest of the description, as `PhValue`s that bear the names of the properties. Never
    /// null.
    PhList* properties() const;
    /// The property of this name; null if there is none.
    PhValue* property(const PhString& name) const;
    /// Store in the property of this name, which is appended if there is none. They return the
    /// property, which keeps its place when it is stored again.
    PhValue* setProperty(const PhString& name, const PhString& text);
    PhValue* setProperty(const PhString& name, std::int32_t number);
    PhValue* setProperty(const PhString& name, double number);
    /// Takes ownership of `list`, also if an exception leaves. A list that the property held is
    /// deleted.
    PhValue* setProperty(const PhString& name, PhList* list);

    /// `PhRaster`: the sampling sources, from RASTER and EVENT. Null until the first is appended.
    PhList* rasters() const;
    void appendRaster(PhRaster* raster);
    /// The raster of this name; null if there is none.
    PhRaster* findRaster(const PhString& name) const;

private:
    std::unique_ptr<PhCommParamPrivate> d;
};

} // namespace tavo
