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

void* allocate(std::size_t size) noexcept
{
    if (remaining == 0)
        return nullptr;
    --remaining;
    void* block = std::malloc(size);
    inUse += block != nullptr;
    return block;
}

void release(void* block) noexcept
{
    inUse -= block != nullptr;
    std::free(block);
}

} // namespace

void* operator new(std::size_t size)
{
    void* block = allocate(size);
    if (!block)
        throw std::bad_alloc();
    return block;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { release(block); }

namespace {

/// A description with every block that leaves something in the model.
const std::string description = inModule(R"(
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
)");

TEST(Memory, thatRunsOutAtAnyPointIsReleasedAndLeavesTheOutputAloneUntilTheModelIsRead)
{
    const TemporaryFolder folder;
    const CurrentFolder current(folder.path(""));
    writeFile("d.a2l", description);
    std::int32_t result = TAVO_NOT_READ;
    long failures = 0;
    for (; result != TAVO_OK; ++failures) {
        writeFile("d.ini", "old");
        testing::internal::CaptureStdout();
        const long before = inUse;
        remaining = failures;
        result = tavoConvert("d.a2l", "d.ini");
        remaining = std::numeric_limits<long>::max();
        const long after = inUse;
        const std::string report = testing::internal::GetCapturedStdout();
        ASSERT_EQ(after, before) << "allocation " << failures;
        if (result != TAVO_OK) {
            ASSERT_EQ(result, TAVO_NOT_READ);
            ASSERT_EQ(readFile("d.ini"), "old") << "allocation " << failures;
        }
    }
    // A conversion that allocates nothing would prove nothing. Where the model's blocks come from a
    // pool, they are seen one by one in the build with the sanitizers, which has none.
    EXPECT_GT(failures, TAVO_POOLED ? 5 : 200);
    EXPECT_NE(readFile("d.ini"), "old");
}

} // namespace
