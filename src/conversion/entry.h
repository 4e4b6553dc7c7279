#pragma once

#include "conversion/FloatingPointScope.h"
#include "tavo/tavo.h"

#include <cstdint>
#include <exception>

namespace tavo {

/// Makes the memory present that the first exception of a thread needs. Without it, an exception
/// that is thrown because memory has run out can end the process: the C library has no other way
/// out if a library that was loaded at run time gets no memory for a thread's data. The thread that
/// loads the library has it from then on. Every other thread calls this when there is memory: each
/// entry point does, before the rest of its work.
void makeExceptionsPresent() noexcept;

/// Does the work of an entry point of the library and returns its result, or TAVO_NOT_READ for an
/// exception of the standard library, which is what memory that ran out throws.
///
/// Nothing else is caught: what ends the calling thread (`pthread_cancel`, `pthread_exit`) unwinds
/// the stack like an exception and must arrive at the thread's start. Destructors release all on
/// either way.
template <class Work> std::int32_t enter(Work work)
{
    makeExceptionsPresent();
    const FloatingPointScope floatingPoint;
    try {
        return work();
    } catch (const std::exception&) {
        return TAVO_NOT_READ;
    }
}

} // namespace tavo
