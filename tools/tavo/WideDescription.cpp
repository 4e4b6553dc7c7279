// A description in the wide dialect.

#include "Console.h"
#include "Description.h"
#include "Diagnostics.h"
#include "Input.h"
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
    explicit WideDescription(const std::string& file) : Description(file, Dialect::Wide) {}

    void write(ConfigurationStream& stream) override
    {
        daqSourceIndex = 0;
        writeInventory(stream, inventory_);
    }

protected:
    ExitCode readInput(Diagnostics& diagnostics) override;
    Inventory& changeableInventory() override { return inventory_; }

private:
    Inventory inventory_;
};

ExitCode WideDescription::readInput(Diagnostics& diagnostics)
{
    Progress progress(diagnostics.console(), file());
    PhAsap2 reader(file().c_str());
    reader.setLogger(&diagnostics);
    reader.setVerbose(diagnostics.volume() == Volume::Verbose);
    reader.setGoesOn(goesOn());
    if (diagnostics.showsProgress())
        reader.setWatch([&](std::uint64_t bytesRead) { progress.advance(bytesRead); });
    const int status = readWide(reader, input(), inventory_);
    if (status == -2)
        throw systemFailure(file(), errno);
    if (reader.readError() != 0)
        throw systemFailure(file(), reader.readError());
    if (inventory_.adjustableLeafCount > 0)
        diagnostics.explain(std::to_string(inventory_.adjustableLeafCount) +
                            " leaves of instances hold adjustable values and are not listed");
    return status == 0 ? ExitCode::AllWell : ExitCode::DescriptionFailed;
}

} // namespace

int readWide(PhAsap2& reader, const Input& input, Inventory& inventory)
{
    return input.memory() ? reader.read(*input.memory(), inventory) : reader.readFile(inventory);
}

std::unique_ptr<Description> makeWideDescription(const std::string& file)
{
    return std::make_unique<WideDescription>(file);
}

} // namespace tavo
