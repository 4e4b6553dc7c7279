#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhList;
struct PhFunctionPrivate;

/// A function of an ECU with the signals that go in and out. No A2L file makes one; the block
/// FUNCTION is something else.
///
/// Lists may be null; an append operation makes the list if it is missing, and takes a count.
class PhFunction : public PhObject
{
public:
    PhFunction();
    ~PhFunction() override;

    /// Signals of no particular class.
    PhList* inputSignals() const;
    PhList* outputSignals() const;
    void appendInputSignal(PhObject* inputSignal);
    void appendOutputSignal(PhObject* outputSignal);

private:
    std::unique_ptr<PhFunctionPrivate> d;
};

} // namespace tavo
