#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the wide reader makes of a description.
struct WideReading
{
    int status = 0;
    std::vector<std::string>
        messages;              ///< "LINE: Warning: TEXT"; "FILE:LINE: ..." of an included file.
    std::string configuration; ///< What is written; "" unless the status is 0.
    std::string more;          ///< What the inventory holds that no configuration says.
};

/// Reads a description that is in memory, or in a file. The losses of the configuration are among
/// the messages, as far as it is written.
WideReading readWide(std::string_view description, bool verbose = false);
/// The same in the manner of a check, which goes on after errors: all that can be told of what was
/// read is told, whatever the status.
WideReading readWideOn(std::string_view description);
WideReading readWideFile(const std::string& path);
