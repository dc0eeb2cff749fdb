#include "support/plainobject.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::IXmlConverter;
using REPORTGENERATOR::VersionConverterProxy;
using Support::PlainObject;

} // namespace

TEST(IXmlConverter, RefusesByItself)
{
    IXmlConverter converter;
    PlainObject from;
    PlainObject to;
    EXPECT_FALSE(converter.Upgrade(&from, &to));
    EXPECT_FALSE(converter.Downgrade(&from, &to));
    EXPECT_FALSE(converter.Upgrade(nullptr, nullptr));
    EXPECT_FALSE(converter.Downgrade(nullptr, nullptr));
    EXPECT_EQ(from.calls.getXml, 0);
    EXPECT_EQ(to.calls.reset, 0);
}

TEST(IXmlConverter, HasPublicCopyAndADestructorThatIsNotVirtual)
{
    static_assert(std::is_default_constructible_v<IXmlConverter>);
    static_assert(std::is_copy_constructible_v<IXmlConverter>);
    static_assert(std::is_copy_assignable_v<IXmlConverter>);
    static_assert(std::is_destructible_v<IXmlConverter>);
    static_assert(!std::has_virtual_destructor_v<IXmlConverter>);
    const IXmlConverter original;
    IXmlConverter copy(original);
    EXPECT_EQ(&(copy = original), &copy);
    EXPECT_FALSE(copy.Upgrade(nullptr, nullptr));
}

// --- Its memory --------------------------------------------------------------------------------------------

namespace {

/// Both operations of the interface itself, behind fields of one's own.
template <class Fields>
class ConverterOf final : public IXmlConverter
{
public:
    ConverterOf() = default;
    explicit ConverterOf(bool fails)
    {
        if (fails)
            throw std::runtime_error("not made");
    }

    Fields fields = {};
};

struct alignas(64) Aligned
{
    unsigned char bytes[64];
};

using NumbersConverter = ConverterOf<std::array<int, 10>>;
/// Short enough to stand in the object itself, so that nothing is left behind where its destructor doesn't
/// run.
using TextConverter = ConverterOf<std::string>;
using AlignedConverter = ConverterOf<Aligned>;

/// A converter that is an object too, as the proxy is.
class ConvertingObject final : public IXmlConverter, public PlainObject
{
public:
    std::string text = std::string(100, 'x');
};

int g_pooled = 0;

class Pooled
{
public:
    static void* operator new(std::size_t size)
    {
        ++g_pooled;
        return ::operator new(size);
    }
    static void operator delete(void* memory)
    {
        --g_pooled;
        ::operator delete(memory);
    }
};

class PooledConverter final : public IXmlConverter, public Pooled
{
public:
    using Pooled::operator delete;
};

template <class Converter>
class ConverterMemory : public ::testing::Test
{
};
using ConvertersWithFields = ::testing::Types<NumbersConverter, TextConverter, AlignedConverter>;
TYPED_TEST_SUITE(ConverterMemory, ConvertersWithFields);

} // namespace

// AddressSanitizer compares what is given back with what was taken.

TEST(IXmlConverter, ConverterWithFieldsCanBeDeletedAsTheInterface)
{
    std::unique_ptr<IXmlConverter> converter = std::make_unique<NumbersConverter>();
    EXPECT_FALSE(converter->Upgrade(nullptr, nullptr));
    converter = std::make_unique<TextConverter>();
    EXPECT_FALSE(converter->Downgrade(nullptr, nullptr));
    converter = std::make_unique<IXmlConverter>();
    EXPECT_FALSE(converter->Upgrade(nullptr, nullptr));
}

TEST(IXmlConverter, ConverterWithFieldsCanBeInjected)
{
    VersionConverterProxy proxy;
    proxy.InjectXmlConverter(std::make_unique<NumbersConverter>());
    proxy.InjectXmlConverter(std::make_unique<TextConverter>());
    EXPECT_FALSE(static_cast<IXmlConverter&>(proxy).Upgrade(nullptr, nullptr));
}

TYPED_TEST(ConverterMemory, IsGivenBackHoweverItWasTaken)
{
    delete new TypeParam;
    delete new (std::nothrow) TypeParam;
    delete ::new TypeParam;
    ::delete new TypeParam;
    delete[] new TypeParam[3];
    delete[] new (std::nothrow) TypeParam[3];
    const auto unique = std::make_unique<TypeParam>();
    const auto shared = std::make_shared<TypeParam>();
    const std::shared_ptr<IXmlConverter> asInterface = std::make_shared<TypeParam>();
    std::vector<TypeParam> several(3);
    TypeParam local;
    for (TypeParam* converter : {unique.get(), shared.get(), &several[1], &local})
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(converter) % alignof(TypeParam), 0u);
}

TYPED_TEST(ConverterMemory, IsGivenBackWhenTheConstructorThrows)
{
    alignas(TypeParam) unsigned char place[sizeof(TypeParam)];
    EXPECT_THROW(delete new TypeParam(true), std::runtime_error);
    EXPECT_THROW(delete new (std::nothrow) TypeParam(true), std::runtime_error);
    EXPECT_THROW(new (place) TypeParam(true), std::runtime_error);
    EXPECT_THROW(std::make_unique<TypeParam>(true), std::runtime_error);
    EXPECT_THROW(std::make_shared<TypeParam>(true), std::runtime_error);
}

TYPED_TEST(ConverterMemory, MayBeAPlaceOfTheCaller)
{
    alignas(TypeParam) unsigned char place[sizeof(TypeParam)];
    auto* converter = new (place) TypeParam;
    EXPECT_FALSE(converter->Upgrade(nullptr, nullptr));
    converter->~TypeParam();
}

TEST(IXmlConverter, ConverterThatIsAnObjectTooIsDestroyedWholeAsAnObject)
{
    delete new ConvertingObject;
    std::unique_ptr<IRGObject> object = std::make_unique<ConvertingObject>();
    EXPECT_TRUE(object->HasData());
    object = std::make_unique<VersionConverterProxy>();
    const std::shared_ptr<IRGObject> shared(new ConvertingObject);
    const auto proxy = std::make_unique<VersionConverterProxy>();
    const std::shared_ptr<IXmlConverter> converter = std::make_shared<ConvertingObject>();
    EXPECT_FALSE(converter->Upgrade(nullptr, nullptr));
}

TEST(IXmlConverter, ConverterMayChooseTheMemoryOfAnotherBase)
{
    g_pooled = 0;
    auto* converter = new PooledConverter;
    EXPECT_EQ(g_pooled, 1);
    delete converter;
    EXPECT_EQ(g_pooled, 0);
}

// --- What is left behind -----------------------------------------------------------------------------------

namespace {

class WithoutFields : public IXmlConverter
{
public:
    bool Upgrade(const IRGObject*, IRGObject*) override { return true; }
};

} // namespace

TEST(IXmlConverter, ConverterWithoutFieldsIsSafeToInject)
{
    using REPORTGENERATOR::IsSafeToInject;
    static_assert(IsSafeToInject<IXmlConverter>);
    static_assert(IsSafeToInject<WithoutFields>);
    static_assert(!IsSafeToInject<NumbersConverter>);
    static_assert(!IsSafeToInject<TextConverter>);
    static_assert(!IsSafeToInject<ConvertingObject>);
    static_assert(!IsSafeToInject<VersionConverterProxy>);
    static_assert(!IsSafeToInject<PlainObject>);
    SUCCEED();
}

TEST(IXmlConverter, ConverterWithFieldsIsSafeToInjectWhenTheyNeedNoDestruction)
{
    using REPORTGENERATOR::IsSafeToInject;
    static_assert(IsSafeToInject<NumbersConverter, std::array<int, 10>>);
    static_assert(IsSafeToInject<ConverterOf<IRGObject*>, IRGObject*>);
    static_assert(!IsSafeToInject<TextConverter, std::string>);
    static_assert(!IsSafeToInject<NumbersConverter, int>);
    static_assert(!IsSafeToInject<AlignedConverter, Aligned>);
    static_assert(!IsSafeToInject<PlainObject, int>);
    SUCCEED();
}
