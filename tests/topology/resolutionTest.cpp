// The resolution of names where no description leads; the golden series of names holds the rest.

#include "model/PhConversion.h"
#include "model/PhType.h"
#include "support/RecordingLogger.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

template <class Object> Object* placeholder(const char* name)
{
    auto* object = new Object;
    object->setName(name);
    object->setUnresolved();
    return object;
}

PhEntity* entityIn(PhGroup& group, PhType* type)
{
    auto* entity = new PhEntity;
    entity->setType(type);
    group.appendEntity(entity);
    return entity;
}

TEST(Resolution, ReplacesTypesByNameAndLooksAboveForThem)
{
    RecordingLogger logger;
    PhRoot root;
    root.setLogger(&logger);
    auto* project = new PhGroup;
    auto* module = new PhGroup;
    root.appendGroup(project);
    project->appendGroup(module);
    auto* type = new PhType;
    type->setName("t");
    project->appendType(type);
    const PhEntity* entity = entityIn(*module, placeholder<PhType>("t"));
    entityIn(*module, placeholder<PhType>("missing"));
    root.resolve();
    EXPECT_EQ(entity->type(), type);
    EXPECT_EQ(type->refCount(), 2);
    EXPECT_EQ(logger.text, "warning: Type 'missing' unresolved.\n");
}

TEST(Resolution, SaysNothingWithoutALogger)
{
    PhRoot root;
    auto* group = new PhGroup;
    root.appendGroup(group);
    auto* type = new PhType;
    type->setConversion(placeholder<PhConversion>("missing"));
    entityIn(*group, type);
    testing::internal::CaptureStdout();
    root.resolve();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(type->conversion()->isReported());
}

} // namespace
