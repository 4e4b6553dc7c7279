#include "inventory/Inventory.h"

namespace tavo {

const char* byteOrderText(ByteOrder order)
{
    switch (order) {
    case ByteOrder::None:
        return nullptr;
    case ByteOrder::Motorola:
        return "Motorola";
    case ByteOrder::Intel:
        return "Intel";
    case ByteOrder::MotorolaWordsLast:
        return "MSB_FIRST_MSW_LAST";
    case ByteOrder::IntelWordsFirst:
        return "MSB_LAST_MSW_FIRST";
    }
    return nullptr;
}

const char* methodKindWord(MethodKind kind)
{
    constexpr const char* words[] = {"",         "IDENTICAL",  "LINEAR",   "RAT_FUNC",
                                     "TAB_INTP", "TAB_NOINTP", "TAB_VERB", "FORM"};
    return words[static_cast<std::size_t>(kind)];
}

namespace {

/// The option that a kind of method asks for.
MethodBasis basisOf(MethodKind kind)
{
    switch (kind) {
    case MethodKind::Linear:
        return MethodBasis::CoeffsLinear;
    case MethodKind::RatFunc:
        return MethodBasis::Coeffs;
    case MethodKind::Form:
        return MethodBasis::Formula;
    case MethodKind::TabIntp:
    case MethodKind::TabNointp:
    case MethodKind::TabVerb:
        return MethodBasis::Table;
    case MethodKind::Other:
    case MethodKind::Identical:
        break;
    }
    return MethodBasis::None;
}

} // namespace

MethodBasis Method::basis() const
{
    const auto has = [this](MethodBasis basis) {
        switch (basis) {
        case MethodBasis::Coeffs:
            return !coefficients.empty();
        case MethodBasis::CoeffsLinear:
            return hasLinear;
        case MethodBasis::Formula:
            return hasFormula;
        case MethodBasis::Table:
            return tableName != noIndex;
        case MethodBasis::None:
            break;
        }
        return false;
    };
    const MethodBasis own = basisOf(kind);
    if (has(own))
        return own;
    for (const MethodBasis basis :
         {MethodBasis::Coeffs, MethodBasis::CoeffsLinear, MethodBasis::Formula, MethodBasis::Table})
        if (has(basis))
            return basis;
    return MethodBasis::None;
}

bool Method::basisFitsKind() const { return basis() == basisOf(kind); }

namespace {

/// What a configuration gets of COEFFS: the inverse of each set, as far as there is one to be had,
/// and the sum of them must look like one line.
Line lineOf(const std::vector<Coefficients>& sets)
{
    Line line;
    int lineCount = 0;
    int poleCount = 0;
    for (const Coefficients& set : sets) {
        if (set.a == 0.0 && set.d == 0.0 && set.e == 0.0) {
            ++lineCount;
            // An integer zero stays one if its sign is changed.
            const double negated = set.isOffsetInteger ? 0.0 - set.c : -set.c;
            const double divisor = set.b == 0.0 ? 1.0 : set.b;
            line.factor = set.f / divisor;
            line.offset = negated / divisor;
            line.isExact = sets.size() == 1 && set.b != 0.0 && set.f != 0.0;
        } else if (set.a == 0.0 && set.b == 0.0 && set.d == 0.0) {
            ++poleCount;
        }
    }
    line.isWritten = poleCount == 0 && lineCount <= 1;
    return line;
}

} // namespace

Line lineOf(const Method& method)
{
    switch (method.basis()) {
    case MethodBasis::Coeffs:
        return lineOf(method.coefficients);
    case MethodBasis::CoeffsLinear:
        return {true, true, method.linearFactor, method.linearOffset};
    case MethodBasis::None:
        return {true, true, 1.0, 0.0};
    case MethodBasis::Formula:
    case MethodBasis::Table:
        break;
    }
    return {};
}

std::size_t Inventory::quantityCount() const
{
    std::size_t count = measurements.size();
    for (const Leaves& instance : instances)
        count += instance.quantities.size();
    return count;
}

const Table* Inventory::tableOf(const Method& method) const
{
    const std::uint32_t name = method.tableName;
    if (name >= tablesByName.size() || tablesByName[name] == noIndex)
        return nullptr;
    return &tables[tablesByName[name]];
}

const QuantityDetails& Inventory::detailsOf(const Quantity& quantity) const
{
    static const QuantityDetails none;
    return quantity.details == noIndex ? none : details[quantity.details];
}

QuantityDetails& Inventory::makeDetails(Quantity& quantity)
{
    if (quantity.details == noIndex) {
        quantity.details = static_cast<std::uint32_t>(details.size());
        details.emplace_back();
    }
    return details[quantity.details];
}

} // namespace tavo
