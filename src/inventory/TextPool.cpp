#include "inventory/TextPool.h"

#include <cstring>

namespace tavo {

std::string_view TextPool::keep(std::string_view text)
{
    if (text.empty())
        return "";
    char* const copy = static_cast<char*>(arena_.allocate(text.size(), 1));
    std::memcpy(copy, text.data(), text.size());
    size_ += text.size();
    return {copy, text.size()};
}

} // namespace tavo
