#pragma once

#include "conversion/FloatingPointScope.h"
#include "tavo/tavo.h"

#include <cstdint>
#include <exception>

namespace tavo {

/// Does the work of an entry point of the library and returns its result, or TAVO_NOT_READ for an
/// exception of the standard library, which is what memory that ran out throws.
///
/// Nothing else is caught: what ends the calling thread (`pthread_cancel`, `pthread_exit`) unwinds
/// the stack like an exception and must arrive at the thread's start. Destructors release all on
/// either way.
template <class Work> std::int32_t enter(Work work)
{
    const FloatingPointScope floatingPoint;
    try {
        return work();
    } catch (const std::exception&) {
        return TAVO_NOT_READ;
    }
}

} // namespace tavo
