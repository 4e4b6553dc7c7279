#pragma once

#if !defined(_WIN32)
#include <pthread.h>
#endif

namespace tavo {

/// Puts off `pthread_cancel` for the length of a scope. A destructor that closes a file needs it:
/// closing is a place at which a thread can be cancelled, and a destructor is none.
class CancellationHold
{
public:
#if defined(_WIN32)
    CancellationHold() noexcept {}
#else
    CancellationHold() noexcept { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &state_); }
    ~CancellationHold() { pthread_setcancelstate(state_, nullptr); }
#endif
    CancellationHold(const CancellationHold&) = delete;
    CancellationHold& operator=(const CancellationHold&) = delete;

#if !defined(_WIN32)
private:
    int state_ = 0;
#endif
};

} // namespace tavo
