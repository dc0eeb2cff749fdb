#include "support/plainobject.h"

#include <reportgenerator/reportbase/ixmlconverter.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using REPORTGENERATOR::IXmlConverter;
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
