#include "support/expect.h"

#include <reportgenerator/qt/standardexception.h>
#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/conversionerrorexception.h>
#include <reportgenerator/reportbase/incompletedefinitionexception.h>
#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>
#include <reportgenerator/reportbase/interfacenotsupportedexception.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/outofrangeexception.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::StandardException;
using REPORTGENERATOR::WithStandardExceptions;
using Support::Text;

template <class Exception>
class QtStandardException : public testing::Test
{
};

using Family = testing::Types<RGException, BinaryParsingException, ConversionErrorException,
                              IncompleteDefinitionException, InterfaceAlreadyRegisteredException,
                              InterfaceNotSupportedException, InvalidXmlException, OutOfRangeException>;

template <class Exception>
constexpr const char* NAME = nullptr;
template <>
constexpr const char* NAME<RGException> = "RGException";
template <>
constexpr const char* NAME<BinaryParsingException> = "BinaryParsingException";
template <>
constexpr const char* NAME<ConversionErrorException> = "ConversionErrorException";
template <>
constexpr const char* NAME<IncompleteDefinitionException> = "IncompleteDefinitionException";
template <>
constexpr const char* NAME<InterfaceAlreadyRegisteredException> = "InterfaceAlreadyRegisteredException";
template <>
constexpr const char* NAME<InterfaceNotSupportedException> = "InterfaceNotSupportedException";
template <>
constexpr const char* NAME<InvalidXmlException> = "InvalidXmlException";
template <>
constexpr const char* NAME<OutOfRangeException> = "OutOfRangeException";

struct FamilyNames
{
    template <class Exception>
    static std::string GetName(int)
    {
        return NAME<Exception>;
    }
};
TYPED_TEST_SUITE(QtStandardException, Family, FamilyNames);

} // namespace

TYPED_TEST(QtStandardException, SaysNameAndTextAndKeepsTheOriginal)
{
    try {
        WithStandardExceptions([] { throw TypeParam(Text("Z\u00fcrich")); });
        FAIL() << "nothing thrown";
    } catch (const std::exception& error) {
        EXPECT_EQ(error.what(), std::string(NAME<TypeParam>) + ": Z\u00fcrich");
        const auto& bridge = dynamic_cast<const StandardException&>(error);
        EXPECT_THROW(bridge.RethrowOriginal(), TypeParam);
        EXPECT_THROW(std::rethrow_exception(bridge.Original()), TypeParam);
    }
}

TEST(StandardException, TakesTheRootOfTheFamilyToo)
{
    try {
        WithStandardExceptions([] { throw ReportException(); });
        FAIL() << "nothing thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "ReportException: unknown error");
    }
}

TEST(StandardException, TakesWhatTheLibraryThrows)
{
    Area area;
    area.SetName(Text("Lake"));
    try {
        WithStandardExceptions([&] { return area.GetXmlString(); });
        FAIL() << "nothing thrown";
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "OutOfRangeException: Area: Please set Coordinate properly.");
    }
}

TEST(StandardException, OutlivesTheOriginalInCopies)
{
    std::unique_ptr<StandardException> kept;
    try {
        WithStandardExceptions([] { throw RGException(Text("text")); });
    } catch (const StandardException& error) {
        kept = std::make_unique<StandardException>(error);
    }
    ASSERT_NE(kept, nullptr);
    EXPECT_STREQ(kept->what(), "RGException: text");
    EXPECT_RG_THROW(kept->RethrowOriginal(), "RGException", "text");
}

TEST(StandardException, OtherExceptionsPassAsTheyAre)
{
    EXPECT_THROW(WithStandardExceptions([] { throw std::out_of_range("other"); }), std::out_of_range);
    EXPECT_THROW(WithStandardExceptions([] { throw 5; }), int);
}

TEST(StandardException, ResultsArePassedOn)
{
    EXPECT_EQ(WithStandardExceptions([] { return 5; }), 5);
    int number = 1;
    WithStandardExceptions([&]() -> int& { return number; }) = 2;
    EXPECT_EQ(number, 2);
    const auto pointer = WithStandardExceptions([] { return std::make_unique<int>(7); });
    EXPECT_EQ(*pointer, 7);
}
