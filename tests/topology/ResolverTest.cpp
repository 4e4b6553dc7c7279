// The resolution of names where no description leads; the golden series of names holds the rest.

#include "support/RecordingLogger.h"
#include "support/model.h"

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

TEST(ResolverTest, ReplacesTypesByNameAndLooksAboveForThem)
{
    RecordingLogger logger;
    PhRoot root;
    auto* project = new PhGroup;
    auto* module = new PhGroup;
    root.appendGroup(project);
    project->appendGroup(module);
    auto* type = new PhType;
    type->setName("t");
    type->setConversion(placeholder<PhConversion>("missing"));
    project->appendType(type);
    const auto add = [module](const char* name) {
        auto* entity = new PhEntity;
        entity->setType(placeholder<PhType>(name));
        module->appendEntity(entity);
        return entity;
    };
    const PhEntity* entity = add("t");
    testing::internal::CaptureStdout();
    root.resolve();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "nothing is told without a logger";
    EXPECT_EQ(entity->type(), type);
    EXPECT_EQ(type->refCount(), 2);
    EXPECT_TRUE(type->conversion()->isReported());
    add("missing");
    root.setLogger(&logger);
    root.resolve();
    EXPECT_EQ(logger.text, "warning: Type 'missing' unresolved.\n");
}

TEST(ResolverTest, GoesOnFromAPlaceholderThatIsFoundByItsOwnName)
{
    PhRoot root;
    auto* group = new PhGroup;
    root.appendGroup(group);
    auto* itself = placeholder<PhConversion>("a");
    group->appendConversion(itself);
    auto* other = new PhConversion;
    other->setName("b");
    group->appendConversion(other);
    itself->setConversion(placeholder<PhConversion>("b"));
    auto* entity = new PhEntity;
    entity->setType(new PhType);
    entity->type()->setConversion(itself);
    group->appendEntity(entity);
    root.resolve();
    EXPECT_TRUE(itself->isReported());
    EXPECT_EQ(itself->conversion(), other);
}

TEST(ResolverTest, TreatsANameLikeThePlaceholderThatItWouldBecome)
{
    for (const bool isAskedFor : {false, true}) {
        RecordingLogger logger;
        PhRoot root;
        root.setLogger(&logger);
        auto* group = new PhGroup;
        root.appendGroup(group);
        auto* method = new PhConversion;
        method->setName("method");
        method->conversionRef().setText("table");
        group->appendConversion(method);
        PhConversionRef* references[4];
        int count = 0;
        for (const char* name : {"method", "missing", "", "missing"}) {
            auto* entity = new PhEntity;
            PhTypeFields* fields = &entity->makeTypeFields();
            fields->conversion.setText(name);
            if (isAskedFor)
                fields = &entity->type()->fields();
            references[count++] = &fields->conversion;
            group->appendEntity(entity);
        }
        for (PhConversionRef* reference : references)
            EXPECT_TRUE(!isAskedFor || reference->conversion()->isUnresolved());
        root.resolve();
        const std::string first = logger.text;
        EXPECT_EQ(first, "warning: Conversion 'table' unresolved.\n"
                         "warning: Conversion 'missing' unresolved.\n"
                         "warning: Conversion '' unresolved.\n"
                         "warning: Conversion 'missing' unresolved.\n");
        root.resolve();
        EXPECT_EQ(logger.text, first) << "each is reported once";
        EXPECT_EQ(references[0]->conversion(), method);
        EXPECT_NE(references[1]->conversion(), references[3]->conversion());
        EXPECT_TRUE(method->conversion()->isReported());
        EXPECT_TRUE(references[2]->conversion()->isReported());
        root.resolve();
        EXPECT_EQ(logger.text, first) << "nor again as an object";
    }
}

TEST(ResolverTest, EndsAtACircleThatTheBuilderMade)
{
    PhRoot root;
    PhGroup group;
    const auto add = [&](const char* name, PhConversion* next) {
        auto* conversion = new PhConversion;
        conversion->setName(name);
        conversion->setConversion(next);
        group.appendConversion(conversion);
        return conversion;
    };
    PhConversion* a = add("a", nullptr);
    a->setConversion(add("b", add("c", a)));
    PhConversion* outside = add("outside", placeholder<PhConversion>("b"));
    outside->resolve(&root, &group);
    EXPECT_EQ(outside->conversion(), a->conversion());
    a->setConversion(nullptr);
}

} // namespace
