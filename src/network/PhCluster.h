#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

class PhChannel;
class PhList;
struct PhClusterPrivate;

/// A bus system with its channels. No A2L file makes one.
///
/// References and lists may be null. A setter takes a count of its argument and releases what the
/// field held before; an append operation makes the list if it is missing.
class PhCluster : public PhObject
{
public:
    PhCluster();
    ~PhCluster() override;

    /// A number without fixed meanings; 0 until set.
    std::int32_t clusterCode() const;
    void setClusterCode(std::int32_t clusterCode);

    /// Kind of bus.
    PhChannelType channelType() const;
    void setChannelType(PhChannelType channelType);

    /// Further references without a user.
    PhObject* auxRef1() const;
    void setAuxRef1(PhObject* auxRef1);
    PhObject* auxRef2() const;
    void setAuxRef2(PhObject* auxRef2);

    /// `PhChannel`. Appending leaves the cluster of the channel alone. A channel that refers back
    /// to its cluster keeps it alive until `PhChannel::setCluster(nullptr)`.
    PhList* channels() const;
    void appendChannel(PhChannel* channel);

private:
    std::unique_ptr<PhClusterPrivate> d;
};

} // namespace tavo
