// A description in the wide dialect.

#include "Console.h"
#include "Description.h"
#include "Diagnostics.h"
#include "Progress.h"
#include "asap2/PhAsap2.h"
#include "daq/inventoryWriter.h"
#include "daq/sections.h"
#include "inventory/Inventory.h"

#include <cerrno>

namespace tavo {

namespace {

class WideDescription : public Description
{
public:
    explicit WideDescription(const std::string& file) : Description(file) {}

    ExitCode read(Diagnostics& diagnostics) override;
    const Inventory& inventory() override { return inventory_; }
    void write(ConfigurationStream& stream) override
    {
        daqSourceIndex = 0;
        writeInventory(stream, inventory_);
    }

private:
    Inventory inventory_;
};

ExitCode WideDescription::read(Diagnostics& diagnostics)
{
    checkFile();
    Progress progress(diagnostics.console(), file());
    diagnostics.setLineEnds(LineEnds::Any);
    PhAsap2 reader(file().c_str());
    reader.setLogger(&diagnostics);
    reader.setVerbose(diagnostics.volume() == Volume::Verbose);
    if (diagnostics.console().hasStatus() && diagnostics.volume() == Volume::Normal)
        reader.setWatch([&](std::uint64_t bytesRead) { progress.advance(bytesRead); });
    Step reading(diagnostics, "read " + file());
    const int status = reader.readFile(inventory_);
    if (status == -2)
        throw systemFailure(file(), errno);
    if (reader.readError() != 0)
        throw systemFailure(file(), reader.readError());
    reading.finish();
    if (inventory_.adjustableLeafCount > 0)
        diagnostics.explain(std::to_string(inventory_.adjustableLeafCount) +
                            " leaves of instances hold adjustable values and are not listed");
    return status == 0 ? ExitCode::AllWell : ExitCode::DescriptionFailed;
}

} // namespace

std::unique_ptr<Description> makeWideDescription(const std::string& file)
{
    return std::make_unique<WideDescription>(file);
}

} // namespace tavo
