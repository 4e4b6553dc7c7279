// A description in the strict dialect: read into the model that the library fills.

#include "Console.h"
#include "Description.h"
#include "Diagnostics.h"
#include "Input.h"
#include "Progress.h"
#include "a2l/PhA2l.h"
#include "comparison.h"
#include "daq/inventoryWriter.h"
#include "daq/sections.h"
#include "daq/writer.h"
#include "inventory/Inventory.h"
#include "inventoryOf.h"
#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"
#include "topology/Resolver.h"

#include <cerrno>
#include <optional>

namespace tavo {

namespace {

std::string quoted(const PhString& name)
{
    return std::string("'").append(name.view()).append("'");
}

class StrictDescription : public Description
{
public:
    explicit StrictDescription(const std::string& file) : Description(file, Dialect::Strict) {}

    void write(ConfigurationStream& stream) override
    {
        daqSourceIndex = 0;
        if (isSelected())
            writeInventory(stream, inventory());
        else
            writeRoot(stream, &root_);
    }

protected:
    ExitCode readInput(Diagnostics& diagnostics) override;
    Inventory& changeableInventory() override
    {
        if (!inventory_)
            fillInventory(inventory_.emplace(), writtenModule());
        return *inventory_;
    }

private:
    const PhGroup* writtenModule() const;
    void resolve(Diagnostics& diagnostics);

    PhRoot root_;
    std::optional<Inventory> inventory_; ///< Made when somebody asks for it.
};

ExitCode StrictDescription::readInput(Diagnostics& diagnostics)
{
    Progress progress(diagnostics.console(), file());
    const int status = runStrictReader(input(), diagnostics, [&](PhA2l& reader) {
        if (diagnostics.showsProgress())
            reader.setWatch([&](std::uint64_t bytesRead) { progress.advance(bytesRead); });
        return reader.readFile(&root_);
    });
    if (status != 0) {
        if (isReadWide(input()))
            diagnostics.advise("read it without --strict");
        return ExitCode::DescriptionFailed;
    }
    resolve(diagnostics);
    const PhGroup* written = writtenModule();
    if (!written || written->groupType() != PhGroupType::Module)
        diagnostics.warnAbout(file(),
                              "The first PROJECT has no MODULE, the configuration is empty");
    return ExitCode::AllWell;
}

/// The group that a configuration shows: the first MODULE of the first PROJECT. Null if there is
/// none at all.
const PhGroup* StrictDescription::writtenModule() const
{
    PhObject* project = root_.groups() ? root_.groups()->first() : nullptr;
    return project ? writtenGroup(static_cast<PhGroup*>(project)) : nullptr;
}

/// Gives one warning for each measurement whose conversion isn't defined anywhere.
void StrictDescription::resolve(Diagnostics& diagnostics)
{
    Resolver resolver([&](const Resolver::Unresolved& reference) {
        // The standard's name for no conversion at all, and what a conversion itself refers to.
        if (reference.name == "NO_COMPU_METHOD" || reference.isType || reference.isOfConversion)
            return;
        diagnostics.warnAbout(file(), "Conversion " + quoted(reference.name) + " of measurement " +
                                          quoted(reference.entity->name()) + " is not defined");
    });
    resolver.resolve(root_);
}

} // namespace

std::unique_ptr<Description> makeStrictDescription(const std::string& file)
{
    return std::make_unique<StrictDescription>(file);
}

int runStrictReader(const Input& input, Diagnostics& diagnostics,
                    const std::function<int(PhA2l&)>& operation)
{
    PhA2l reader(input.name().c_str());
    reader.setLogger(&diagnostics);
    if (input.memory())
        reader.useMemory(*input.memory());
    errno = 0;
    const int status = operation(reader);
    if (status == -2)
        throw systemFailure(input.name(), errno);
    if (reader.readError() != 0)
        throw systemFailure(input.name(), reader.readError());
    return status;
}

} // namespace tavo
