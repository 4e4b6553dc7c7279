#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhList;
struct PhServicePrivate;

/// A diagnostic service: a request with its responses. No A2L file makes one.
///
/// References and lists may be null. A setter takes a count of its argument and releases what the
/// field held before; an append operation makes the list if it is missing.
class PhService : public PhObject
{
public:
    PhService();
    ~PhService() override;

    /// An object of no particular class.
    PhObject* request() const;
    void setRequest(PhObject* request);

    /// Objects of no particular class, in the order of appending.
    PhList* responses() const;
    void appendResponse(PhObject* response);

private:
    std::unique_ptr<PhServicePrivate> d;
};

} // namespace tavo
