#include "StandardOutput.h"

#include "Failure.h"
#include "platform.h"
#include "text.h"

#include <cerrno>
#include <string>

namespace tavo {

namespace {

constexpr const char* name = "standard output";

/// Shows the lines of a file on the terminal. 0, or the system's error number.
int show(std::FILE* lines)
{
    std::rewind(lines);
    std::string line;
    int character = 0;
    while (character != EOF) {
        line.clear();
        while ((character = std::getc(lines)) != EOF && character != '\n')
            line.push_back(static_cast<char>(character));
        if (line.ends_with('\r'))
            line.pop_back();
        line = printable(line);
        if (character == '\n')
            line.push_back('\n');
        if (std::fwrite(line.data(), 1, line.size(), stdout) != line.size())
            return errno;
    }
    if (std::ferror(lines))
        return EIO;
    return std::fflush(stdout) == 0 ? 0 : errno;
}

} // namespace

StandardOutput::StandardOutput(Content content)
{
    if (content == Content::Bytes && isTerminal(stdout)) {
        scratch_ = createScratchFile();
        if (!scratch_)
            throw systemFailure(name, errno);
    }
    stream_.use(scratch_ ? scratch_ : stdout);
}

StandardOutput::~StandardOutput()
{
    stream_.close();
    if (scratch_)
        std::fclose(scratch_);
}

void StandardOutput::print(std::string_view text)
{
    StandardOutput output;
    output.stream().put(text);
    output.finish();
}

void StandardOutput::finish()
{
    int error = stream_.close();
    if (error == 0 && scratch_)
        error = show(scratch_);
    if (error != 0)
        throw systemFailure(name, error);
}

} // namespace tavo
