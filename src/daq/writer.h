#pragma once

#include "daq/sections.h"
#include "model/enumerations.h"

#include <cstdint>

namespace tavo {

class ConfigurationStream;
class PhEntity;
class PhGroup;
class PhList;
class PhRoot;
class PhString;
struct PhTypeFields;

/// Writes the configuration of the model to the file `path`: the first group of `root`, if there is
/// one, else an empty file. 0, or -2 if the file can't be opened.
int writeDaqFile(PhRoot* root, const char* path);

/// Writes the first group of `root`, if there is one.
void writeRoot(ConfigurationStream& stream, PhRoot* root);

/// The group that is written in the place of `group`: its first child, of that the first child, and
/// so on. Of a PROJECT that is its first MODULE.
PhGroup* writtenGroup(PhGroup* group);

/// Writes the comm params and entities of the `writtenGroup` of `group`, and nothing else.
void writeGroup(ConfigurationStream& stream, PhGroup* group);

/// A section for each comm param, followed by the sections of its sources. The list may be
/// null, here and below.
void writeMeasurements(ConfigurationStream& stream, const PhList* commParams);

/// A section for each raster, numbered from 0 on.
void writeSources(ConfigurationStream& stream, const PhList* rasters);

/// A last source, which holds all quantities, and a section for each of them. Nothing for a null
/// list.
void writeUnassignedSource(ConfigurationStream& stream, const PhList* entities);

/// The words of a configuration, for whoever else shows what it would say.
const char* protocolText(PhProtocol protocol);
/// "uint16" and the like; "???" for null and for an undefined type.
const char* typeText(const PhTypeFields* type);
/// "Motorola" or "Intel"; null for an undefined one.
const char* byteOrderText(PhEndian endian);
/// The unit of a quantity: the label of the one of the type or else of its conversion; null if
/// there is none.
const PhString* unitOf(const PhEntity& entity);

} // namespace tavo
