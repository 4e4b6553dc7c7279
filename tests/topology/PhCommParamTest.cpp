#include "topology/PhCommParam.h"

#include "objects.h"
#include "topology/PhMemoryPage.h"
#include "topology/PhRaster.h"

using namespace tavo;

TEST(PhCommParam, ReleasesItsFieldsInOrder)
{
    Holder<PhCommParam> commParam(2);
    commParam.ref(&PhCommParam::setSlaveId, &PhCommParam::slaveId, "slave")
        .ref(&PhCommParam::setMasterId, &PhCommParam::masterId, "master")
        .ref(&PhCommParam::setStationAddress, &PhCommParam::stationAddress, "station")
        .ref(&PhCommParam::setPort, &PhCommParam::port, "port")
        .ref(&PhCommParam::setHost, &PhCommParam::host, "host")
        .list(&PhCommParam::appendRaster, &PhCommParam::rasters, "raster");
    commParam->properties()->append(commParam.deaths().mortal("property"));
    EXPECT_EQ(commParam.releaseOrder(), "property raster1 raster2 slave master station port host");
}

TEST(PhCommParam, StoresAPropertyAgainInItsPlace)
{
    PhCommParam commParam;
    ASSERT_NE(commParam.properties(), nullptr);
    EXPECT_EQ(commParam.properties()->count(), 0U);

    PhValue* first = commParam.setProperty("first", 1);
    PhValue* second = commParam.setProperty("second", PhString("two"));
    EXPECT_EQ(commParam.properties()->count(), 2U);
    EXPECT_EQ(commParam.properties()->first(), first);
    EXPECT_EQ(commParam.properties()->last(), second);
    EXPECT_TRUE(first->isInteger());
    EXPECT_EQ(first->intValue(), 1);
    EXPECT_TRUE(second->isText());
    EXPECT_STREQ(second->text().cStr(), "two");

    EXPECT_EQ(commParam.setProperty("first", 2.5), first);
    EXPECT_TRUE(first->isDouble());
    EXPECT_FALSE(first->isInteger());
    EXPECT_EQ(first->doubleValue(), 2.5);
    EXPECT_EQ(commParam.setProperty("first", 7), first);
    EXPECT_EQ(first->intValue(), 7);
    EXPECT_EQ(commParam.setProperty("second", PhString("again")), second);
    EXPECT_STREQ(second->text().cStr(), "again");

    EXPECT_EQ(commParam.properties()->count(), 2U);
    EXPECT_EQ(commParam.properties()->first(), first);
    EXPECT_EQ(commParam.property("first"), first);
    EXPECT_EQ(commParam.property("First"), nullptr);
    EXPECT_STREQ(first->name().cStr(), "first");
    EXPECT_EQ(first->refCount(), 1);
}

TEST(PhCommParam, OwnsTheListsOfItsProperties)
{
    Holder<PhCommParam> commParam(2);
    auto* list = new PhList;
    PhValue* sources = commParam->setProperty("sources", list);
    EXPECT_TRUE(sources->isList());
    EXPECT_EQ(sources->list(), list);
    list->append(commParam.deaths().mortal("old"));

    auto* other = new PhList;
    other->append(commParam.deaths().mortal("new"));
    EXPECT_EQ(commParam->setProperty("sources", other), sources);
    EXPECT_EQ(commParam.deaths().take(), "old");
    EXPECT_EQ(sources->list(), other);
    EXPECT_EQ(commParam->properties()->count(), 1U);
    EXPECT_EQ(commParam.releaseOrder(), "new");
}

TEST(PhCommParam, FindsTheFirstRasterOfAName)
{
    PhCommParam commParam;
    EXPECT_EQ(commParam.findRaster("10ms"), nullptr);
    for (const char* name : {"1ms", "10ms", "10ms"}) {
        commParam.appendRaster(new PhRaster);
        commParam.rasters()->last()->setName(name);
    }
    EXPECT_EQ(commParam.findRaster("10ms"), commParam.rasters()->at(1));
    EXPECT_EQ(commParam.findRaster("100ms"), nullptr);
}

TEST(PhRaster, ReleasesItsFieldsInOrder)
{
    EXPECT_EQ(Holder<PhRaster>(11)
                  .ref(&PhRaster::setAuxRef, &PhRaster::auxRef, "aux")
                  .ref(&PhRaster::setChannel, &PhRaster::channel, "channel")
                  .ref(&PhRaster::setRate, &PhRaster::rate, "rate")
                  .releaseOrder(),
              "rate channel aux");
    EXPECT_EQ(static_cast<int>(PhTimeUnit::Seconds), 1);
    EXPECT_EQ(static_cast<int>(PhTimeUnit::Nanoseconds), 4);
}

TEST(PhMemoryPage, ReleasesItsFieldsInOrder)
{
    EXPECT_EQ(Holder<PhMemoryPage>(1)
                  .ref(&PhMemoryPage::setAddress, &PhMemoryPage::address, "address")
                  .ref(&PhMemoryPage::setSize, &PhMemoryPage::size, "size")
                  .releaseOrder(),
              "size address");
}
