#pragma once

#include <cfenv>

namespace tavo {

/// The default floating-point environment for the length of a scope: numbers round to the nearest,
/// tiny ones stay as they are, and no operation raises a signal, whatever the host has set. After
/// that the host has its own environment again, flags included.
class FloatingPointScope
{
public:
    FloatingPointScope() noexcept;
    ~FloatingPointScope();
    FloatingPointScope(const FloatingPointScope&) = delete;
    FloatingPointScope& operator=(const FloatingPointScope&) = delete;

private:
    std::fenv_t environment_;
    unsigned vectorState_ = 0; ///< The control register of SSE, which not every C library handles.
};

} // namespace tavo
