// The conversion of the wide library. What it warns of goes to the standard output, like all
// diagnostics of a library without a listener.

#include "asap2/PhAsap2.h"
#include "base/Notices.h"
#include "base/PhLogger.h"
#include "conversion/Conversion.h"
#include "daq/ConfigurationStream.h"
#include "daq/inventoryWriter.h"
#include "daq/losses.h"
#include "inventory/Inventory.h"

#include <cstddef>
#include <string>

namespace tavo {

namespace {

class WideConversion : public Conversion
{
public:
    explicit WideConversion(const char* inputPath) : path_(inputPath) {}

    int read() override
    {
        const int status = PhAsap2(path_.c_str()).readFile(inventory_);
        if (status == 0) {
            Notices notices;
            expressibleCount_ = reportLosses(inventory_, notices);
            notices.report([this](Place, const std::string& text) {
                putDiagnostic(nullptr, {Severity::Warning, path_.c_str(), 0, text.c_str()});
            });
        }
        return status;
    }

    bool write(const char* outputPath) override
    {
        ConfigurationStream stream;
        if (!stream.open(outputPath))
            return false;
        writeInventory(stream, inventory_, expressibleCount_);
        stream.close(); // whether all of it could be written isn't said
        return true;
    }

private:
    std::string path_;
    Inventory inventory_;
    std::size_t expressibleCount_ = 0;
};

} // namespace

std::unique_ptr<Conversion> makeConversion(const char* inputPath)
{
    return std::make_unique<WideConversion>(inputPath);
}

} // namespace tavo
