// Memory that runs out: each allocation of a conversion is made to fail in turn. The test replaces
// the global allocation functions and is therefore a program of its own.

#include "tavo/tavo.h"

#include "model/pool.h"
#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>

namespace {

/// How many allocations still succeed, and how many blocks are in use.
long remaining = std::numeric_limits<long>::max();
long inUse = 0;
/// How many blocks with an alignment of their own were handed out: the chunks of the pool.
long chunks = 0;

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
    if (!mayAllocate())
        throw std::bad_alloc();
    ++chunks;
    return counted(std::aligned_alloc(static_cast<std::size_t>(alignment), size));
}
void operator delete(void* block) noexcept
{
    inUse -= block != nullptr;
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
void operator delete(void* block, std::align_val_t) noexcept { operator delete(block); }

namespace {

/// Every block that leaves something in the model.
const std::string blocks = R"(
/begin MOD_PAR "" /begin MEMORY_SEGMENT s "" CODE FLASH INTERN 0 0 1 2 3 4 5 /end MEMORY_SEGMENT /end MOD_PAR
/begin IF_DATA ASAP1B_CCP
  /begin SOURCE "s" 3 10 QP_BLOB 0 LENGTH 8 /end SOURCE
  /begin RASTER "l" "r" 1 3 10 /end RASTER
  /begin EVENT_GROUP "l" "g" RASTER 1 RASTER 2 /end EVENT_GROUP
  /begin SEED_KEY "a" "b" "c" /end SEED_KEY
  /begin CHECKSUM "c" /end CHECKSUM
  /begin TP_BLOB 1 2 3 4 5 6 BAUDRATE 500000 DAQ_MODE BURST OPTIONAL_CMD 7 OPTIONAL_CMD 8 /end TP_BLOB
/end IF_DATA
/begin IF_DATA XCP
  /begin DAQ 1 2 3 4 5 6 7 8 9 10 /begin EVENT "l" "e" 1 DAQ 1 10 6 0 /end EVENT /end DAQ
  /begin XCP_ON_CAN 1 CAN_ID_MASTER 1 CAN_ID_SLAVE 2 BAUDRATE 500000 /end XCP_ON_CAN
/end IF_DATA
/begin MEASUREMENT first "long" UWORD method 0 0 0 1.5 ECU_ADDRESS 1 ECU_ADDRESS_EXTENSION 2 BIT_MASK 3
  /begin IF_DATA ASAP1B_CCP /begin RASTER "l" "r" 1 3 10 /end RASTER /end IF_DATA
/end MEASUREMENT
/begin COMPU_METHOD method "" TAB_VERB "%d" "u" COEFFS 0 2 1 0 0 4 COMPU_TAB_REF verbal /end COMPU_METHOD
/begin COMPU_METHOD reciprocal "" RAT_FUNC "%d" "u" COEFFS 0 0 1 0 2 4 COMPU_TAB_REF missing /end COMPU_METHOD
/begin COMPU_TAB table "" TAB_INTP 2 1 2 3 4 /end COMPU_TAB
/begin COMPU_VTAB verbal "" TAB_VERB 2 1 "a" 2 "b" /end COMPU_VTAB
/begin COMPU_VTAB_RANGE range "" 1 1 2 "a" /end COMPU_VTAB_RANGE
/begin MEASUREMENT second "long" SBYTE reciprocal 0 0 0 1 /end MEASUREMENT
)";

/// A model that takes more than one chunk of the pool. Without a pool each object is an allocation,
/// so that one of each kind is enough.
std::string description()
{
    std::string body;
    for (int i = 0; i < (TAVO_POOLED ? 50 : 1); ++i)
        body += blocks;
    return inModule(body);
}

TEST(Memory, thatRunsOutAtAnyPointIsReleasedAndLeavesTheOutputAloneUntilTheModelIsRead)
{
    const TemporaryFolder folder;
    const CurrentFolder current(folder.path(""));
    writeFile("d.a2l", description());
    std::int32_t result = TAVO_NOT_READ;
    long whileReading = 0;
    long behindReading = 0;
    for (long failing = 0; result != TAVO_OK; ++failing) {
        SCOPED_TRACE(testing::Message() << "allocation " << failing);
        writeFile("d.ini", "old");
        testing::internal::CaptureStdout();
        const long before = inUse;
        chunks = 0;
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
    EXPECT_GT(chunks, TAVO_POOLED ? 1 : -1);
}

} // namespace
