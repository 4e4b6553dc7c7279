#pragma once

#include "NearestName.h"
#include "Pattern.h"
#include "inventory/NameTable.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavo {

class Diagnostics;

/// Names that somebody asks for, by patterns and by lists in files. It remembers which of them were
/// there.
class NameSet
{
public:
    /// Reads the files. Throws a `Failure` for one that can't be read, and for a wrong pattern.
    ///
    /// A list has a name a line. Empty lines and those that begin with `;`, `#` or `[` are skipped,
    /// and so is what follows a name after a blank, a tabulator or a semicolon.
    NameSet(const std::vector<std::string>& patterns, const std::vector<std::string>& files,
            PatternStyle style);

    bool isEmpty() const { return patterns_.empty() && names_.empty(); }
    /// True if the name, which is bytes of a description, is asked for.
    bool contains(std::string_view name);

    /// True if all that is asked for was there.
    bool isComplete() const;
    /// Forgets which names were there: another description follows.
    void forget();
    /// Warns of what is asked for and wasn't there, with the nearest name. Of the names of a file
    /// the first few, unless each one is to be shown.
    void reportMissing(Diagnostics& diagnostics, const std::string& description,
                       NearestName& nearest) const;

private:
    struct Pattern
    {
        std::string text;
        NameTest test;
        bool isFound = false;
    };
    struct Name
    {
        std::string text;
        std::size_t file;
        int line;
        bool isFound = false;
    };

    void read(std::size_t file);
    void addLine(std::string_view line, std::size_t file, int number);

    PatternStyle style_;
    std::vector<std::string> files_;
    std::vector<Pattern> patterns_;
    std::vector<Name> names_; ///< By their numbers in the table.
    TextPool pool_;
    NameTable numbers_{pool_}; ///< Of valid UTF-8, in small letters if the case is ignored.
};

} // namespace tavo
