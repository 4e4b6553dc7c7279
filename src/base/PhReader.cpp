#include "base/PhReader.h"

#include <cstring>

namespace tavo {

PhReader::PhReader(const char* path) { setFileName(path); }

PhReader::~PhReader() = default;

void PhReader::log(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    putMessage(logger_, format, arguments);
    va_end(arguments);
}

void PhReader::report(const Diagnostic& diagnostic)
{
    if (logger_) {
        logger_->report(diagnostic);
        return;
    }
    // Hosts rely on the form (docs/architecture.md).
    log("%s (%s:%d): %s\n", severityWord(diagnostic.severity),
        diagnostic.file ? diagnostic.file : "", diagnostic.line, diagnostic.text);
}

void PhReader::setFileName(const char* path)
{
    std::unique_ptr<char[]> copy;
    if (path) {
        const std::size_t size = std::strlen(path) + 1;
        copy.reset(new char[size]);
        std::memcpy(copy.get(), path, size);
    }
    fileName_ = std::move(copy);
}

} // namespace tavo
