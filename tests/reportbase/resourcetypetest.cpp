// What is particular to the resource types. What all vocabularies hold to stands in vocabularytest.cpp.

#include "support/expect.h"

#include <reportgenerator/reportbase/resourcetype.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <type_traits>

namespace ResourceType = REPORTGENERATOR::ResourceType;

namespace {

using ResourceType::ResourceTypeValue;

// The types that callers were compiled with; those of the group tests are fixed by the table in
// vocabularytest.cpp.
static_assert(std::is_same_v<std::underlying_type_t<ResourceTypeValue>, int>);
static_assert(std::is_same_v<decltype(&ResourceType::GetInvalidResourceType), ResourceTypeValue (*)()>);
static_assert(std::is_same_v<decltype(&ResourceType::IsValidResourceType), bool (*)(ResourceTypeValue)>);
static_assert(std::is_same_v<decltype(&ResourceType::ResourceTypeToName), QString (*)(ResourceTypeValue)>);
static_assert(
    std::is_same_v<decltype(&ResourceType::NameToResourceType), ResourceTypeValue (*)(const QString&)>);

ResourceTypeValue Type(int number)
{
    return static_cast<ResourceTypeValue>(number);
}

int Find(const QString& name)
{
    return static_cast<int>(ResourceType::NameToResourceType(name));
}

} // namespace

TEST(ResourceType, ShortNamesAreReadButNotWritten)
{
    EXPECT_EQ(Find(QStringLiteral("DDC IPC Det Conv HF")), 10);
    EXPECT_TEXT(ResourceType::ResourceTypeToName(Type(10)), "DDC IPC Detection Conventional HF");
}

TEST(ResourceType, NamesThatCouldBeShortenedAlikeHaveNoShortName)
{
    // There is no short name with "Mem", with a shortened "Classifier" of the wideband kind, or of a mixed
    // form.
    for (const char* text : {"DDC IPC WB Class VUHF", "Base Mem Scan HF", "DDC IPC Det Conventional HF",
                             "DDC IPC Detection Conv HF", "DDC IPC Detection HF", "Base IPC Class"})
        EXPECT_EQ(Find(Support::Text(text)), -1) << text;
}

TEST(ResourceType, SpectralZoomCountsAsDownConverter)
{
    EXPECT_TRUE(ResourceType::IsDDCResourceHF(ResourceType::SpectralZoomHF));
    EXPECT_TRUE(ResourceType::IsDDCResourceVUHF(ResourceType::SpectralZoomVUHF));
    EXPECT_FALSE(ResourceType::IsConnectableResource(ResourceType::SpectralZoomHF));
    EXPECT_FALSE(ResourceType::IsConnectableResource(ResourceType::SpectralZoomVUHF));
}

TEST(ResourceType, ResourcesWithoutARangeBelongToNeither)
{
    for (const int number : {21, 29, 30, 31, 32, 33, 36, 38, 44, 49, 50}) {
        EXPECT_FALSE(ResourceType::IsHFResource(Type(number))) << number;
        EXPECT_FALSE(ResourceType::IsVUHFResource(Type(number))) << number;
    }
}

TEST(ResourceType, NoResourceBelongsToBothRanges)
{
    for (int number = 0; number <= 50; ++number)
        EXPECT_FALSE(ResourceType::IsHFResource(Type(number)) && ResourceType::IsVUHFResource(Type(number)))
            << number;
}

TEST(ResourceType, ReceiverOfNoParticularKindCountsAsHF)
{
    EXPECT_TRUE(ResourceType::IsHFResource(ResourceType::Receiver));
    EXPECT_FALSE(ResourceType::IsVUHFResource(ResourceType::Receiver));
    EXPECT_FALSE(ResourceType::IsBoxReceiver(ResourceType::Receiver));
}

TEST(ResourceType, SomeModelsAreNoBoxReceivers)
{
    for (const ResourceTypeValue type :
         {ResourceType::KTx60, ResourceType::LW300, ResourceType::NRQ3, ResourceType::Raywatch})
        EXPECT_FALSE(ResourceType::IsBoxReceiver(type)) << static_cast<int>(type);
}

TEST(ResourceType, WidebandTunersAreNoBaseResources)
{
    EXPECT_FALSE(ResourceType::IsBaseResourceHF(ResourceType::BaseIPCTunerHFWB));
    EXPECT_FALSE(ResourceType::IsBaseResourceVUHF(ResourceType::BaseIPCTunerVUHFWB));
    EXPECT_FALSE(ResourceType::IsProductionSC(ResourceType::BaseIPCTunerHFWB));
}

TEST(ResourceType, WidebandClassifierIsADownConverterButNotConnectable)
{
    EXPECT_TRUE(ResourceType::IsDDCResourceVUHF(ResourceType::DDCIPCWBClassifierVUHF));
    EXPECT_FALSE(ResourceType::IsConnectableResource(ResourceType::DDCIPCWBClassifierVUHF));
    EXPECT_FALSE(ResourceType::IsWBResourceVUHF(ResourceType::DDCIPCWBClassifierVUHF));
}

TEST(ResourceType, MemoryScanIsABaseResourceButNoProduction)
{
    EXPECT_TRUE(ResourceType::IsBaseResourceHF(ResourceType::BaseMemoryScanHF));
    EXPECT_TRUE(ResourceType::IsBaseResourceVUHF(ResourceType::BaseMemoryScanDataVUHF));
    EXPECT_FALSE(ResourceType::IsProductionSC(ResourceType::BaseMemoryScanHF));
    EXPECT_FALSE(ResourceType::IsProductionSC(ResourceType::BaseMemoryScanDataVUHF));
}
