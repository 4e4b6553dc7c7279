#include "Description.h"

#include "Console.h"
#include "Diagnostics.h"
#include "Progress.h"
#include "a2l/PhA2l.h"
#include "daq/writer.h"
#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/Resolver.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace tavo {

namespace {

std::string quoted(const PhString& name)
{
    return std::string("'").append(name.view()).append("'");
}

} // namespace

ExitCode Description::read(Diagnostics& diagnostics)
{
    Progress progress(diagnostics.console(), file_);
    const int status = runReader(file_, diagnostics, [&](PhA2l& reader) {
        if (diagnostics.console().hasStatus() && diagnostics.volume() == Volume::Normal)
            reader.setWatch([&](std::uint64_t bytesRead) { progress.advance(bytesRead); });
        return reader.readFile(&root_);
    });
    if (status != 0)
        return ExitCode::DescriptionFailed;
    resolve(diagnostics);
    const PhGroup* written = writtenModule();
    if (!written || written->groupType() != PhGroupType::Module)
        diagnostics.warnAbout(file_, "The first PROJECT has no MODULE, the configuration is empty");
    return ExitCode::AllWell;
}

const PhGroup* Description::writtenModule() const
{
    PhObject* project = root_.groups() ? root_.groups()->first() : nullptr;
    return project ? writtenGroup(static_cast<PhGroup*>(project)) : nullptr;
}

/// Gives one warning for each measurement whose conversion isn't defined anywhere.
void Description::resolve(Diagnostics& diagnostics)
{
    Resolver resolver([&](const PhObject& placeholder, const PhEntity* entity) {
        // The standard's name for no conversion at all, and what a conversion itself refers to.
        if (placeholder.name() == "NO_COMPU_METHOD" || entity->type()->conversion() != &placeholder)
            return;
        diagnostics.warnAbout(file_, "Conversion " + quoted(placeholder.name()) +
                                         " of measurement " + quoted(entity->name()) +
                                         " is not defined");
    });
    resolver.resolve(root_);
}

int runReader(const std::string& file, Diagnostics& diagnostics,
              const std::function<int(PhA2l&)>& operation)
{
    std::error_code ignored;
    // A folder can be opened, but not read; say so ahead of what the reader makes of it.
    if (std::filesystem::is_directory(file, ignored))
        throw systemFailure(file, EISDIR);
    PhA2l reader(file.c_str());
    reader.setLogger(&diagnostics);
    reader.setVerbose(diagnostics.volume() == Volume::Verbose);
    errno = 0;
    const int status = operation(reader);
    if (status == -2)
        throw systemFailure(file, errno);
    if (reader.readError() != 0)
        throw systemFailure(file, reader.readError());
    return status;
}

} // namespace tavo
