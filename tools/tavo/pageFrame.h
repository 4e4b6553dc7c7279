#pragma once

#include <span>
#include <string_view>

namespace tavo {

/// The page without a description: the pieces before its data and after them.
struct PageFrame
{
    std::span<const std::string_view> before;
    std::span<const std::string_view> after;
};

/// The page of tools/page. The build makes it.
PageFrame pageFrame();

} // namespace tavo
