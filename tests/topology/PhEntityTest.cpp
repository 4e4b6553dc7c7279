#include "topology/PhEntity.h"

#include "model/PhType.h"
#include "objects.h"
#include "topology/PhEntityRef.h"

using namespace tavo;

TEST(PhEntity, ReleasesItsReferencesInOrder)
{
    Holder<PhEntity> entity(7);
    entity.ref(&PhEntity::setAddress, &PhEntity::address, "address")
        .ref(&PhEntity::setAddressExtension, &PhEntity::addressExtension, "extension")
        .ref(&PhEntity::setAuxRef1, &PhEntity::auxRef1, "aux1")
        .ref(&PhEntity::setAuxRef2, &PhEntity::auxRef2, "aux2")
        .ref(&PhEntity::setLowerLimit, &PhEntity::lowerLimit, "lower")
        .ref(&PhEntity::setUpperLimit, &PhEntity::upperLimit, "upper")
        .ref(&PhEntity::setType, &PhEntity::type, "type")
        .ref(&PhEntity::setAuxRef3, &PhEntity::auxRef3, "aux3")
        .ref(&PhEntity::setAuxRef4, &PhEntity::auxRef4, "aux4");
    entity->setLowerLimit(entity.deaths().mortal<PhValue>("other"));
    EXPECT_EQ(entity.deaths().take(), "lower");
    EXPECT_EQ(entity.releaseOrder(), "address extension aux1 aux2 type aux3 aux4 other upper");
}

// What isn't freed here, or freed twice, the leak and address checks of the sanitizers report.
TEST(PhEntity, OwnsItsExtraText)
{
    PhEntity entity;
    EXPECT_EQ(entity.extraText(), nullptr);
    entity.setExtraText(new PhString("first"));
    auto* second = new PhString("second");
    entity.setExtraText(second);
    entity.setExtraText(second);
    ASSERT_EQ(entity.extraText(), second);
    EXPECT_STREQ(second->cStr(), "second");
    entity.setExtraText(nullptr);
    EXPECT_EQ(entity.extraText(), nullptr);
    entity.setExtraText(new PhString("last"));
}

TEST(PhEntityRef, DuplicateSharesAllButTheLocalReference)
{
    Holder<PhEntityRef> original(8);
    original.ref(&PhEntityRef::setPrimaryRef, &PhEntityRef::primaryRef, "primary")
        .ref(&PhEntityRef::setSecondaryRef, &PhEntityRef::secondaryRef, "secondary")
        .ref(&PhEntityRef::setLocalRef, &PhEntityRef::localRef, "local");
    original->setName("name");

    std::unique_ptr<PhEntityRef> copy(original->duplicate());
    EXPECT_EQ(copy->refCount(), 0);
    EXPECT_STREQ(copy->name().cStr(), "name");
    EXPECT_EQ(copy->primaryRef(), original->primaryRef());
    EXPECT_EQ(copy->secondaryRef(), original->secondaryRef());
    EXPECT_EQ(copy->localRef(), nullptr);
    copy.reset();
    EXPECT_EQ(original.releaseOrder(), "secondary primary local");

    Holder<PhEntityRef> shared(8);
    shared.ref(&PhEntityRef::setPrimaryRef, &PhEntityRef::primaryRef, "primary");
    copy.reset(shared->duplicate());
    EXPECT_EQ(shared.releaseOrder(), "");
    copy.reset();
    EXPECT_EQ(shared.releaseOrder(), "primary");
}
