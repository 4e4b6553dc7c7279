// A description in the strict dialect: read into the model that the library fills.

#include "Console.h"
#include "Description.h"
#include "Diagnostics.h"
#include "Progress.h"
#include "a2l/PhA2l.h"
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
    explicit StrictDescription(const std::string& file) : Description(file) {}

    ExitCode read(Diagnostics& diagnostics) override;
    const Inventory& inventory() override
    {
        if (!inventory_)
            fillInventory(inventory_.emplace(), writtenModule());
        return *inventory_;
    }
    void write(ConfigurationStream& stream) override
    {
        daqSourceIndex = 0;
        writeRoot(stream, &root_);
    }

private:
    const PhGroup* writtenModule() const;
    void resolve(Diagnostics& diagnostics);

    PhRoot root_;
    std::optional<Inventory> inventory_; ///< Made when somebody asks for it.
};

ExitCode StrictDescription::read(Diagnostics& diagnostics)
{
    checkFile();
    Progress progress(diagnostics.console(), file());
    Step reading(diagnostics, "read " + file());
    const int status = runReader(file(), diagnostics, [&](PhA2l& reader) {
        if (diagnostics.console().hasStatus() && diagnostics.volume() == Volume::Normal)
            reader.setWatch([&](std::uint64_t bytesRead) { progress.advance(bytesRead); });
        return reader.readFile(&root_);
    });
    reading.finish();
    if (status != 0)
        return ExitCode::DescriptionFailed;
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
    Resolver resolver([&](const PhObject& placeholder, const PhEntity* entity) {
        // The standard's name for no conversion at all, and what a conversion itself refers to.
        if (placeholder.name() == "NO_COMPU_METHOD" || entity->type()->conversion() != &placeholder)
            return;
        diagnostics.warnAbout(file(), "Conversion " + quoted(placeholder.name()) +
                                          " of measurement " + quoted(entity->name()) +
                                          " is not defined");
    });
    resolver.resolve(root_);
}

} // namespace

std::unique_ptr<Description> makeStrictDescription(const std::string& file)
{
    return std::make_unique<StrictDescription>(file);
}

int runReader(const std::string& file, Diagnostics& diagnostics,
              const std::function<int(PhA2l&)>& operation)
{
    diagnostics.setLineEnds(LineEnds::LineFeed);
    PhA2l reader(file.c_str());
    reader.setLogger(&diagnostics);
    errno = 0;
    const int status = operation(reader);
    if (status == -2)
        throw systemFailure(file, errno);
    if (reader.readError() != 0)
        throw systemFailure(file, reader.readError());
    return status;
}

} // namespace tavo
