#pragma once

#include <cstdio>

/// What a generated description holds.
struct DescriptionPlan
{
    long measurements = 0;
    long characteristics = 0;      ///< After every measurement its share of them.
    long methods = 0;              ///< Conversions, used in turn.
    bool methodsFirst = true;      ///< Before the measurements, or after them.
    bool measurementsOnly = false; ///< Nothing but bare measurements with texts of 30 characters.
};

/// A plan whose description has about `bytes` bytes.
DescriptionPlan planOfSize(long bytes, bool methodsFirst);

/// Writes the description of an ECU as a tool exports it: comments, conversions of all kinds,
/// record layouts, CCP and XCP, quantities, functions and groups. The same plan makes the same
/// bytes.
void writeDescription(std::FILE* file, const DescriptionPlan& plan);
