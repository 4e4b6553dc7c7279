#include "asap2/PhAsap2.h"

#include "asap2/Parser.h"
#include "base/PhLogger.h"

#include <cerrno>

namespace tavo {

template <class Open> int PhAsap2::readWith(Open open, Inventory& inventory)
{
    Scanner scanner;
    const auto report = [&](Severity severity, Place place, const std::string& text) {
        putDiagnostic(logger_, {severity, scanner.fileName(place.file).c_str(),
                                static_cast<int>(place.line), text.c_str(), place.offset});
    };
    const auto warn = [&](Place place, const std::string& text) {
        report(Severity::Warning, place, text);
    };
    Notices notices(verbose_ ? Notices::Sink(warn) : Notices::Sink());
    try {
        open(scanner);
        // The inventory of a usual description takes a quarter to half of the size of the file.
        inventory.texts.arena().expect(scanner.size() / 2);
        Parser parser(scanner, inventory, notices);
        bool isFaultless = true;
        if (goesOn_)
            isFaultless = parser.parseAll(report);
        else
            parser.parse();
        readError_ = scanner.readError();
        if (!verbose_)
            notices.report(warn);
        return isFaultless ? 0 : -1;
    } catch (const OpenFailure& failure) {
        errno = failure.number();
        return -2;
    } catch (const Fault& fault) {
        readError_ = scanner.readError();
        if (!verbose_)
            notices.report(warn);
        report(Severity::Error, fault.place(), fault.what());
        return -1;
    }
}

int PhAsap2::readFile(Inventory& inventory)
{
    return readWith([this](Scanner& scanner) { scanner.open(path_, watch_); }, inventory);
}

int PhAsap2::read(std::string_view description, Inventory& inventory)
{
    return readWith([&](Scanner& scanner) { scanner.use(description, path_); }, inventory);
}

} // namespace tavo
