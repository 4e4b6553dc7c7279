// Name resolution, on models made by hand as the reader makes them.

#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "support/RecordingLogger.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavo;

namespace {

template <class Object> Object* placeholder(const char* name)
{
    auto* object = new Object;
    object->setName(name);
    object->setUnresolved();
    return object;
}

/// Counts the conversions that are alive.
class CountedConversion : public PhConversion
{
public:
    explicit CountedConversion(const char* name)
    {
        setName(name);
        ++alive;
    }
    ~CountedConversion() override { --alive; }
    static inline int alive = 0;
};

class Resolution : public testing::Test
{
protected:
    Resolution() : root(std::make_unique<PhRoot>())
    {
        root->setLogger(&logger);
        root->appendGroup(project);
        project->appendGroup(module);
    }

    PhConversion* define(PhGroup* group, const char* name)
    {
        auto* conversion = new CountedConversion(name);
        group->appendConversion(conversion);
        return conversion;
    }

    /// An entity of the module whose type refers to `conversion`.
    PhType* use(PhConversion* conversion)
    {
        auto* entity = new PhEntity;
        module->appendEntity(entity);
        auto* type = new PhType;
        entity->setType(type);
        type->setConversion(conversion);
        return type;
    }

    RecordingLogger logger;
    std::unique_ptr<PhRoot> root;
    PhGroup* project = new PhGroup;
    PhGroup* module = new PhGroup;
};

TEST_F(Resolution, findsANameInTheModuleThenInTheProjectAndNowhereElse)
{
    auto* sibling = new PhGroup;
    project->appendGroup(sibling);
    PhConversion* inner = define(module, "shadowed");
    define(project, "shadowed");
    PhConversion* outer = define(project, "outer");
    define(sibling, "elsewhere");

    PhType* ofInner = use(placeholder<PhConversion>("shadowed"));
    PhType* ofOuter = use(placeholder<PhConversion>("outer"));
    PhType* ofSibling = use(placeholder<PhConversion>("elsewhere"));
    root->resolve();
    EXPECT_EQ(ofInner->conversion(), inner);
    EXPECT_EQ(ofOuter->conversion(), outer);
    EXPECT_TRUE(ofSibling->conversion()->isReported());
    EXPECT_EQ(logger.text, "warning: Conversion 'elsewhere' unresolved.\n");
    EXPECT_EQ(inner->refCount(), 2);
}

TEST_F(Resolution, goesOnThroughWhatItHasReplaced)
{
    PhConversion* method = define(module, "method");
    method->setConversion(placeholder<PhConversion>("table"));
    PhConversion* table = define(module, "table");
    use(placeholder<PhConversion>("method"));
    root->resolve();
    EXPECT_EQ(method->conversion(), table);
    EXPECT_EQ(logger.text, "");
}

TEST_F(Resolution, reportsEachPlaceholderOnceAndAnEmptyNameWithoutALookUp)
{
    define(module, "");
    PhConversion* method = define(module, "method");
    method->setConversion(placeholder<PhConversion>("missing"));
    use(method);
    use(method);
    use(placeholder<PhConversion>(""));
    use(placeholder<PhConversion>(nullptr));
    root->resolve();
    root->resolve();
    EXPECT_EQ(logger.text, "warning: Conversion 'missing' unresolved.\n"
                           "warning: Conversion '' unresolved.\n"
                           "warning: Conversion '' unresolved.\n");
    EXPECT_TRUE(method->conversion()->isUnresolved());
}

TEST_F(Resolution, leavesConversionsAloneThatNoEntityReaches)
{
    PhConversion* method = define(module, "method");
    method->setConversion(placeholder<PhConversion>("missing"));
    root->resolve();
    EXPECT_FALSE(method->conversion()->isReported());
    EXPECT_EQ(logger.text, "");
}

TEST_F(Resolution, replacesTypesByName)
{
    auto* type = new PhType;
    type->setName("t");
    module->appendType(type);
    auto* entity = new PhEntity;
    entity->setType(placeholder<PhType>("t"));
    module->appendEntity(entity);
    auto* lost = new PhEntity;
    lost->setType(placeholder<PhType>("missing"));
    module->appendEntity(lost);
    root->resolve();
    EXPECT_EQ(entity->type(), type);
    EXPECT_EQ(logger.text, "warning: Type 'missing' unresolved.\n");
}

TEST_F(Resolution, saysNothingWithoutALogger)
{
    root->setLogger(nullptr);
    PhType* type = use(placeholder<PhConversion>("missing"));
    testing::internal::CaptureStdout();
    root->resolve();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(type->conversion()->isReported());
}

TEST_F(Resolution, storesNoCircleOfAnyLengthSoThatAllIsReleased)
{
    for (const int length : {2, 3, 10}) {
        // The last one is read first, so all references but its own are known at once.
        std::vector<std::string> names;
        for (int i = 0; i < length; ++i)
            names.push_back("c" + std::to_string(length) + "_" + std::to_string(i));
        PhConversion* previous = nullptr;
        for (int i = length - 1; i >= 0; --i) {
            PhConversion* conversion = define(module, names[static_cast<std::size_t>(i)].c_str());
            conversion->setConversion(previous ? previous
                                               : placeholder<PhConversion>(names[0].c_str()));
            previous = conversion;
        }
        // A tail that leads into the circle.
        PhConversion* tail = define(module, ("tail" + std::to_string(length)).c_str());
        tail->setConversion(placeholder<PhConversion>(names[1].c_str()));
        use(tail);
        use(previous);
    }
    root->resolve();
    EXPECT_EQ(logger.text, "warning: Conversion 'c2_0' unresolved.\n"
                           "warning: Conversion 'c3_0' unresolved.\n"
                           "warning: Conversion 'c10_0' unresolved.\n");
    EXPECT_EQ(CountedConversion::alive, 2 + 3 + 10 + 3);
    root.reset();
    EXPECT_EQ(CountedConversion::alive, 0);
}

TEST_F(Resolution, walksAndReleasesALongChainWithoutRecursionAndOnlyOnce)
{
    constexpr int length = 200000;
    PhConversion* last = define(module, "first");
    for (int i = 1; i < length; ++i) {
        auto* conversion = new CountedConversion(nullptr);
        conversion->setConversion(last);
        last = conversion;
    }
    // Many measurements with the whole chain behind each: quadratic if each walked it.
    for (int i = 0; i < length; ++i)
        use(last);
    root->resolve();
    root.reset();
    EXPECT_EQ(CountedConversion::alive, 0);
}

} // namespace
