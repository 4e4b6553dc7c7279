#include "conversions.h"

#include "Listing.h"
#include "text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <tuple>

namespace tavo {

namespace {

/// Rows that are compared in all.
constexpr std::size_t mostRows = 10000000;

/// True for what a factor and an offset say completely.
bool isLine(const Method& method)
{
    const bool isLinearKind = method.kind <= MethodKind::RatFunc;
    return method.line.isExact && method.line.isWritten && isLinearKind;
}

std::string_view kindText(const Method& method)
{
    const char* word = methodKindWord(method.kind);
    return *word ? std::string_view(word) : method.kindWord;
}

/// The bytes of what a conversion does, one after the other.
class Content
{
public:
    std::string_view bytes() const { return bytes_; }

    void add(double number)
    {
        number = number == 0.0 ? 0.0 : number; // which has a sign
        addBytes(std::isnan(number) ? NAN : number);
    }
    void add(std::string_view text)
    {
        addBytes(text.size());
        bytes_.append(text);
    }
    void add(bool value) { bytes_.push_back(value ? '1' : '0'); }

private:
    template <class Value> void addBytes(Value value)
    {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        bytes_.append(bytes, sizeof value);
    }

    std::string bytes_;
};

using Rows = std::vector<const TableRow*>;

bool isBefore(const TableRow* a, const TableRow* b)
{
    return std::tie(a->lower, a->upper) < std::tie(b->lower, b->upper);
}

/// By their raw values. Those of one raw value keep their order, since the first one counts.
Rows sortedRows(const Table& table)
{
    Rows rows;
    rows.reserve(table.rows.size());
    for (const TableRow& row : table.rows)
        rows.push_back(&row);
    // A table without a number for a row isn't read, so there is an order.
    if (!std::is_sorted(rows.begin(), rows.end(), isBefore))
        std::stable_sort(rows.begin(), rows.end(), isBefore);
    return rows;
}

void addTable(Content& content, const Table& table)
{
    content.add(table.kind == TableKind::Numeric);
    content.add(table.hasDefaultText || table.hasDefaultNumber);
    content.add(table.hasDefaultText ? table.defaultText : std::string_view());
    content.add(table.hasDefaultNumber ? table.defaultNumber : 0.0);
    for (const TableRow* row : sortedRows(table)) {
        content.add(row->lower);
        content.add(row->upper);
        content.add(row->number);
        content.add(row->text);
    }
}

void addMethod(Content& content, const Inventory& inventory, const Method& method,
               const std::vector<std::uint32_t>& tables)
{
    content.add(isLine(method));
    content.add(method.line.isWritten);
    content.add(method.line.factor);
    content.add(method.line.offset);
    if (isLine(method))
        return;
    content.add(kindText(method));
    const MethodBasis basis = method.basis();
    if (basis == MethodBasis::Coeffs) {
        for (const Coefficients& set : method.coefficients)
            for (const double coefficient : {set.a, set.b, set.c, set.d, set.e, set.f})
                content.add(coefficient);
    } else if (basis == MethodBasis::Formula) {
        content.add(method.formula);
        content.add(method.inverseFormula);
    } else if (inventory.tableOf(method)) {
        content.add(static_cast<double>(tables[inventory.tablesByName[method.tableName]]));
    }
}

/// A number for each different content. 0 is that of factor 1 and offset 0.
class Numbering
{
public:
    Numbering()
    {
        Method none;
        none.line.isExact = true;
        number(Inventory(), none, {});
    }

    std::vector<std::uint32_t> numbersOf(const Inventory& inventory)
    {
        std::vector<std::uint32_t> tables;
        for (const Table& table : inventory.tables) {
            Content content;
            addTable(content, table);
            tables.push_back(tables_.number(content.bytes()));
        }
        std::vector<std::uint32_t> numbers;
        for (const Method& method : inventory.methods)
            numbers.push_back(number(inventory, method, tables));
        return numbers;
    }

private:
    std::uint32_t number(const Inventory& inventory, const Method& method,
                         const std::vector<std::uint32_t>& tables)
    {
        Content content;
        addMethod(content, inventory, method, tables);
        return methods_.number(content.bytes());
    }

    TextPool pool_;
    NameTable tables_{pool_};
    NameTable methods_{pool_};
};

bool isSameRow(const Table& tableA, const TableRow& a, const Table& tableB, const TableRow& b)
{
    return tableA.kind == tableB.kind && a.number == b.number && a.text == b.text;
}

/// Both are in the order of their raw values. Lists the rows that only one of them has.
PropertyChange rowChange(const Table* before, const Table* after)
{
    PropertyChange change{"rows", Form::List, {}, {}};
    const Rows oldRows = before ? sortedRows(*before) : Rows();
    const Rows newRows = after ? sortedRows(*after) : Rows();
    auto oldRow = oldRows.begin();
    auto newRow = newRows.begin();
    while (oldRow != oldRows.end() || newRow != newRows.end()) {
        const bool isOldOnly =
            newRow == newRows.end() || (oldRow != oldRows.end() && isBefore(*oldRow, *newRow));
        const bool isNewOnly =
            !isOldOnly && (oldRow == oldRows.end() || isBefore(*newRow, *oldRow));
        const bool isSame =
            !isOldOnly && !isNewOnly && isSameRow(*before, **oldRow, *after, **newRow);
        if (!isNewOnly) {
            if (!isSame)
                change.before.emplace_back(rowText(*before, **oldRow));
            ++oldRow;
        }
        if (!isOldOnly) {
            if (!isSame)
                change.after.emplace_back(rowText(*after, **newRow));
            ++newRow;
        }
    }
    return change;
}

Cell defaultCell(const Table* table)
{
    if (table && table->hasDefaultText)
        return toUtf8(table->defaultText);
    return table && table->hasDefaultNumber ? Cell(table->defaultNumber) : Cell();
}

/// What a conversion consists of, each as a list of cells.
struct Parts
{
    std::vector<Cell> factor, offset, kind, coefficients, formula, inverseFormula, defaultValue;
    const Table* table = nullptr;
};

std::vector<Cell> one(Cell cell) { return {std::move(cell)}; }

Parts partsOf(const Inventory& inventory, const Method* method)
{
    Parts parts;
    const Line line = method ? method->line : Line();
    const MethodBasis basis = method ? method->basis() : MethodBasis::None;
    // A table and a formula have a factor for the configuration only.
    if (line.isWritten && basis != MethodBasis::Table && basis != MethodBasis::Formula) {
        parts.factor = one(line.factor);
        parts.offset = one(line.offset);
    }
    const bool isLinear = !method || isLine(*method);
    parts.kind = one(isLinear ? "line" : toUtf8(kindText(*method)));
    if (isLinear)
        return parts;
    if (basis == MethodBasis::Coeffs)
        for (const Coefficients& set : method->coefficients)
            for (const double coefficient : {set.a, set.b, set.c, set.d, set.e, set.f})
                parts.coefficients.emplace_back(coefficient);
    if (basis == MethodBasis::Formula) {
        parts.formula = one(toUtf8(method->formula));
        if (!method->inverseFormula.empty())
            parts.inverseFormula = one(toUtf8(method->inverseFormula));
    }
    parts.table = basis == MethodBasis::Table ? inventory.tableOf(*method) : nullptr;
    const Cell value = defaultCell(parts.table);
    if (!std::holds_alternative<std::monostate>(value))
        parts.defaultValue = one(value);
    return parts;
}

} // namespace

Conversions::Conversions(const Inventory& before, const Inventory& after)
    : before_(before), after_(after)
{
    Numbering numbering;
    beforeNumbers_ = numbering.numbersOf(before);
    afterNumbers_ = numbering.numbersOf(after);
}

std::uint32_t Conversions::numberOf(const Inventory& inventory, const Numbers& numbers,
                                    const Quantity& quantity)
{
    return inventory.methodOf(quantity) ? numbers[inventory.methodsByName[quantity.methodName]] : 0;
}

void addConversionChanges(std::vector<PropertyChange>& changes, const Inventory& before,
                          const Quantity& quantityBefore, const Inventory& after,
                          const Quantity& quantityAfter, std::size_t& comparedRows)
{
    Parts old = partsOf(before, before.methodOf(quantityBefore));
    Parts now = partsOf(after, after.methodOf(quantityAfter));
    const std::size_t formerCount = changes.size();
    const auto add = [&](const char* name, Form form, std::vector<Cell> Parts::*part) {
        if (old.*part != now.*part)
            changes.push_back({name, form, std::move(old.*part), std::move(now.*part)});
    };
    add("factor", Form::Plain, &Parts::factor);
    add("offset", Form::Plain, &Parts::offset);
    add("conversion", Form::Plain, &Parts::kind);
    add("coefficients", Form::List, &Parts::coefficients);
    add("formula", Form::Text, &Parts::formula);
    add("inverse_formula", Form::Text, &Parts::inverseFormula);
    add("default", Form::Text, &Parts::defaultValue);
    comparedRows +=
        (old.table ? old.table->rows.size() : 0) + (now.table ? now.table->rows.size() : 0);
    if (comparedRows > mostRows) {
        if (changes.size() == formerCount)
            changes.push_back({"rows", Form::List, {}, {}});
        return;
    }
    PropertyChange rows = rowChange(old.table, now.table);
    if (!rows.before.empty() || !rows.after.empty())
        changes.push_back(std::move(rows));
}

} // namespace tavo
