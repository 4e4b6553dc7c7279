// Memory that runs out: each allocation of a conversion is made to fail in turn. The test replaces
// the global allocation functions and is therefore a program of its own.

#include "tavo/tavo.h"

#include "model/PhConversion.h"
#include "model/PhRange.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "model/pool.h"
#include "support/conversion.h"
#include "support/files.h"
#include "topology/PhEntity.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>
#include <string>

namespace {

/// How many allocations still succeed, and how many blocks are in use.
long remaining = std::numeric_limits<long>::max();
long inUse = 0;
/// How many blocks with an alignment of their own there were, which are the chunks of the pool.
std::size_t chunkCount = 0;

void* counted(void* block)
{
    inUse += block != nullptr;
    return block;
}

bool mayAllocate()
{
    if (remaining == 0)
        return false;
    --remaining;
    return true;
}

} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return mayAllocate() ? counted(std::malloc(size)) : nullptr;
}
void* operator new(std::size_t size)
{
    void* block = operator new(size, std::nothrow);
    return block ? block : throw std::bad_alloc();
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    void* block = nullptr;
    if (!mayAllocate() || posix_memalign(&block, static_cast<std::size_t>(alignment), size) != 0)
        throw std::bad_alloc();
    ++chunkCount;
    return counted(block);
}
void operator delete(void* block) noexcept
{
    inUse -= block != nullptr;
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
void operator delete(void* block, std::align_val_t) noexcept { operator delete(block); }

namespace {

TEST(MemoryTest, ThatRunsOutAtAnyPointIsReleasedAndLeavesTheOutputAloneUntilTheModelIsRead)
{
    const TemporaryFolder folder;
    const CurrentFolder current(folder.path(""));
    std::string description;
    for (const char* name : {"references", "ccp", "xcp", "tables", "module-level"})
        description += readFile(std::string(TAVO_GOLDEN_FOLDER "/ok-").append(name).append(".a2l"));
    // Projects in one file. Where the model's blocks come from a pool, it takes several chunks of
    // it; else each object is an allocation, so that one of each kind is enough.
    for (int i = 0; i < (TAVO_POOLED ? 4 : 0); ++i)
        description += description;
    writeFile("d.a2l", description);
    std::int32_t result = TAVO_NOT_READ;
    long whileReading = 0;
    long behindReading = 0;
    for (long failing = 0; result != TAVO_OK; ++failing) {
        SCOPED_TRACE(testing::Message() << "allocation " << failing);
        writeFile("d.ini", "old");
        testing::internal::CaptureStdout();
        const long before = inUse;
        chunkCount = 0;
        remaining = failing;
        result = tavoConvert("d.a2l", "d.ini");
        remaining = std::numeric_limits<long>::max();
        const long after = inUse;
        const std::string report = testing::internal::GetCapturedStdout();
        ASSERT_EQ(after, before);
        if (result != TAVO_OK) {
            ASSERT_EQ(result, TAVO_NOT_READ);
            ASSERT_EQ(readFile("d.ini"), "old");
            ++(report.find("OK") == std::string::npos ? whileReading : behindReading);
        }
    }
    EXPECT_NE(readFile("d.ini"), "old");
    EXPECT_GT(whileReading, 0);
    EXPECT_GT(behindReading, 0);
    if (TAVO_POOLED) {
        EXPECT_GT(chunkCount, 1U);
    }
}

using namespace tavo;

/// A part of a model that a file has filled and nobody has looked at.
struct Unseen
{
    Unseen()
    {
        conversion->setUnitLabel("km/h");
        conversion->conversionRef().setText("table");
        for (int i = 0; i < 3; ++i) {
            conversion->appendRow(PhValue(i), PhValue(i + 0.5), "text");
            conversion->appendNumerator(PhValue(i));
            conversion->appendDenominator(PhValue(-i));
        }
        entity->makeTypeFields().conversion.setText("method");
        for (const auto value : {PhEntity::Address, PhEntity::UpperLimit, PhEntity::BitMask})
            entity->setNumber(value, 7);
        for (int i = 0; i < 40; ++i)
            named.append(new PhUnit);
        named.first()->setName("first");
        named.last()->setName("last");
    }

    /// What stands there, made into objects.
    std::string look()
    {
        std::string text;
        const auto add = [&](const PhValue* value) {
            text += value->isText() ? std::string(value->text().view())
                                    : std::to_string(value->doubleValue());
            text += ' ';
        };
        text.append(conversion->unit()->label().view()).append(1, ' ');
        text.append(conversion->conversion()->name().view()).append(1, ' ');
        for (PhRange* row : each<PhRange>(conversion->ranges()))
            for (const PhValue* value : {&row->lowerLimit(), &row->upperLimit(), &row->result()})
                add(value);
        for (const PhList* list : {conversion->numerator(), conversion->denominator()})
            for (const PhValue* coefficient : each<PhValue>(list))
                add(coefficient);
        text.append(entity->type()->conversion()->name().view()).append(1, ' ');
        for (const PhValue* value :
             {entity->address(), entity->upperLimit(), entity->type()->bitMask()})
            add(value);
        text += named.findByName("last") == named.last() ? "found" : "lost";
        return text;
    }

    const PhRef<PhConversion> conversion{new PhConversion};
    const PhRef<PhEntity> entity{new PhEntity};
    PhList named;
};

TEST(MemoryTest, ThatRunsOutInALookLeavesWhatWasThere)
{
    const std::string whole = Unseen().look();
    long failures = 0;
    for (bool isWhole = false; !isWhole; ++failures) {
        SCOPED_TRACE(testing::Message() << "allocation " << failures);
        const long before = inUse;
        {
            Unseen part;
            remaining = failures;
            try {
                part.look();
                isWhole = true;
            } catch (const std::bad_alloc&) {
            }
            remaining = std::numeric_limits<long>::max();
            ASSERT_EQ(part.look(), whole);
        }
        ASSERT_EQ(inUse, before);
    }
    EXPECT_GT(failures, TAVO_POOLED ? 1 : 20);
}

} // namespace
