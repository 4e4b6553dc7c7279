#include "Listing.h"

#include "Glob.h"
#include "daq/writer.h"
#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "text.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRaster.h"

#include <limits>

namespace tavo {

namespace {

Cell textCell(const char* text) { return text ? Cell(toUtf8(text)) : Cell(); }

/// A number in its own form.
Cell numberCell(const PhValue* value)
{
    if (!value)
        return {};
    if (value->isDouble())
        return value->doubleValue();
    if (value->isInteger())
        return std::int64_t{value->intValue()};
    return std::numeric_limits<double>::quiet_NaN();
}

Cell patternCell(const PhValue* value)
{
    if (value && value->isInteger())
        return Pattern{value->unsignedValue()};
    return numberCell(value);
}

Cell countCell(const PhList* list) { return std::int64_t{list ? list->count() : 0}; }

bool isListed(const PhObject& object, const Glob& names)
{
    return names.matches(object.name().isNull() ? "" : object.name().cStr());
}

Section interfaces(const PhList* commParams, const Glob& names)
{
    Section section = {
        "interface",
        "interfaces",
        {{"name"}, {"protocol"}, {"master_id"}, {"slave_id"}, {"station_address"}, {"sources"}},
        {}};
    for (const PhCommParam* commParam : each<PhCommParam>(commParams))
        if (isListed(*commParam, names))
            section.rows.push_back(
                {textCell(commParam->name()), textCell(protocolText(commParam->protocol())),
                 patternCell(commParam->masterId()), patternCell(commParam->slaveId()),
                 numberCell(commParam->stationAddress()), countCell(commParam->rasters())});
    return section;
}

Section sources(const PhList* commParams, const Glob& names)
{
    Section section = {"source", "sources", {{"name"}, {"interface"}, {"rate"}, {"channel"}}, {}};
    for (const PhCommParam* commParam : each<PhCommParam>(commParams))
        for (const PhRaster* raster : each<PhRaster>(commParam->rasters()))
            if (isListed(*raster, names))
                section.rows.push_back({textCell(raster->name()), textCell(commParam->name()),
                                        numberCell(raster->rate()), numberCell(raster->channel())});
    return section;
}

std::vector<Cell> measurementRow(const PhEntity& entity)
{
    const PhType* type = entity.type();
    const PhUnit* unit = type ? unitOf(*type) : nullptr;
    const PhConversion* conversion = type ? type->conversion() : nullptr;
    double factor = 0.0;
    double offset = 0.0;
    const bool isLinear = conversion && conversion->getLinearFactors(&factor, &offset);
    return {textCell(entity.name()),
            textCell(entity.longName()),
            patternCell(entity.address()),
            patternCell(entity.addressExtension()),
            textCell(typeText(type)),
            textCell(type ? byteOrderText(type->endian()) : nullptr),
            patternCell(type ? type->bitMask() : nullptr),
            numberCell(entity.lowerLimit()),
            numberCell(entity.upperLimit()),
            textCell(unit ? unit->label().cStr() : nullptr),
            isLinear ? Cell(factor) : Cell(),
            isLinear ? Cell(offset) : Cell()};
}

Section measurements(const PhList* entities, const Glob& names)
{
    Section section = {"measurement",
                       "measurements",
                       {{"name"},
                        {"description", false},
                        {"address"},
                        {"address_extension", false},
                        {"type"},
                        {"byte_order"},
                        {"bit_mask", false},
                        {"min"},
                        {"max"},
                        {"unit"},
                        {"factor"},
                        {"offset"}},
                       {}};
    for (const PhEntity* entity : each<PhEntity>(entities))
        if (isListed(*entity, names))
            section.rows.push_back(measurementRow(*entity));
    return section;
}

} // namespace

std::vector<Section> listingOf(const PhGroup* module, const Glob& names)
{
    const PhList* commParams = module ? module->commParams() : nullptr;
    return {interfaces(commParams, names), sources(commParams, names),
            measurements(module ? module->entities() : nullptr, names)};
}

} // namespace tavo
