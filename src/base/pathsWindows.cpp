#include "base/paths.h"

#include <windows.h>

namespace tavo {

std::filesystem::path pathOf(const std::string& name)
{
    const int size = static_cast<int>(name.size());
    std::wstring wide(name.size(), L'\0'); // No character has more units than it has bytes.
    const int length = MultiByteToWideChar(CP_ACP, 0, name.data(), size, wide.data(), size);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::string nameOf(const std::filesystem::path& path)
{
    const std::wstring& wide = path.native();
    const int size = static_cast<int>(wide.size());
    std::string name(wide.size() * 4, '\0');
    const int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), size, name.data(),
                                           static_cast<int>(name.size()), nullptr, nullptr);
    name.resize(static_cast<std::size_t>(length));
    return name;
}

} // namespace tavo
