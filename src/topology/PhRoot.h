#pragma once

#include "base/PhLogger.h"
#include "model/PhObject.h"

namespace tavo {

class PhGroup;
class PhList;
struct PhRootPrivate;

/// Top of the tree: a model is one root with everything below it, and dies with it. Each PROJECT of
/// a description is one top-level group.
///
/// Lists may be null; an append operation makes the list if it is missing, and takes a count.
class PhRoot : public PhObject
{
public:
    PhRoot();
    ~PhRoot() override;

    /// The top-level groups.
    PhList* groups() const;
    /// Leaves the parent of the group null.
    void appendGroup(PhGroup* group);
    /// Does nothing if no top-level group has this id.
    void removeGroup(std::uint32_t id);

    /// Search the whole tree, depth first and each group before its children; the first match wins,
    /// and null says that there is none. A null text finds a group whose text is null.
    PhGroup* findGroupByExternalId(const PhString& externalId) const;
    PhGroup* findGroupByName(const PhString& name) const;

    /// Replaces the placeholders that entities reach by the objects of their names. A name that
    /// isn't found goes as a warning to the logger, if there is one, and its placeholder stays.
    void resolve();

    /// Sink of `log` and of the warnings of `resolve`, not owned; null until set.
    PhLogger* logger() const;
    void setLogger(PhLogger* logger);
    /// Puts out one message, printf-like and without a line end of its own: through the logger, or
    /// to the standard output if there is none. It is cut at 499 bytes.
    void log(const char* format, ...) TAVO_PRINTF(2, 3);

private:
    std::unique_ptr<PhRootPrivate> d;
};

} // namespace tavo
