#include "conversion/FloatingPointScope.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <xmmintrin.h>
#define TAVO_HAS_SSE 1
#else
#define TAVO_HAS_SSE 0
#endif

namespace tavo {

FloatingPointScope::FloatingPointScope() noexcept
{
#if TAVO_HAS_SSE
    vectorState_ = _mm_getcsr();
#endif
    std::fegetenv(&environment_);
    std::fesetenv(FE_DFL_ENV);
#if TAVO_HAS_SSE
    constexpr unsigned allMasked = 0x1F80; // to the nearest, and no flush to zero
    _mm_setcsr(allMasked);
#endif
}

FloatingPointScope::~FloatingPointScope()
{
    std::fesetenv(&environment_);
#if TAVO_HAS_SSE
    _mm_setcsr(vectorState_);
#endif
}

} // namespace tavo
