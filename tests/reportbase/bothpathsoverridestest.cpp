// A subclass that overrides an operation has it called: the shorter way is the library's own classes' only.

#include "support/expect.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/points.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gmock/gmock.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace {

using ::testing::IsSupersetOf;

using Calls = std::set<std::string>;

/// Remembers which of its operations were called.
template <class T>
class Noting : public T
{
public:
    using T::Check;
    using T::LoadXml;
    using T::SetBinaryRepresentation;

    bool HasData() const override
    {
        return Note("HasData", [&] { return T::HasData(); });
    }
    void Reset() override
    {
        Note("Reset", [&] { T::Reset(); });
    }
    void Check() const override
    {
        Note("Check", [&] { T::Check(); });
    }
    void Check(bool logOnly) const override
    {
        Note("Check with a flag", [&] { T::Check(logOnly); });
    }
    void GetXml(QXmlStreamWriter& writer) const override
    {
        Note("GetXml", [&] { T::GetXml(writer); });
    }
    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override
    {
        return Note("GetBinary", [&] { return T::GetBinary(stream, tag, withTag); });
    }
    void SetBinary(QDataStream& stream, int length) override
    {
        Note("SetBinary", [&] { T::SetBinary(stream, length); });
    }
    bool SetBinaryRepresentation(QByteArray& representation) override
    {
        return Note("SetBinaryRepresentation of an array",
                    [&] { return T::SetBinaryRepresentation(representation); });
    }
    bool SetBinaryRepresentation(QDataStream& stream) override
    {
        return Note("SetBinaryRepresentation", [&] { return T::SetBinaryRepresentation(stream); });
    }
    const QString& GetObjectName() const override
    {
        m_calls->insert("GetObjectName");
        return T::GetObjectName();
    }
    void ProcessXml(QXmlStreamReader& reader) override
    {
        Note("ProcessXml", [&] { T::ProcessXml(reader); });
    }
    QString GetXmlString() const override
    {
        return Note("GetXmlString", [&] { return T::GetXmlString(); });
    }
    void GetBinaryRepresentation(QDataStream& stream) const override
    {
        Note("GetBinaryRepresentation", [&] { T::GetBinaryRepresentation(stream); });
    }
    void GetCompressedBinaryRepresentation(QDataStream& stream, int level) const override
    {
        Note("GetCompressedBinaryRepresentation",
             [&] { T::GetCompressedBinaryRepresentation(stream, level); });
    }
    bool LoadXml(QFile* file) override
    {
        return Note("LoadXml", [&] { return T::LoadXml(file); });
    }
    void SetValidate(bool validate) const override
    {
        Note("SetValidate", [&] { T::SetValidate(validate); });
    }
    bool GetValidate() const override
    {
        return Note("GetValidate", [&] { return T::GetValidate(); });
    }
    void SetLogger(std::shared_ptr<REPORTGENERATOR::Logger> logger) const override
    {
        Note("SetLogger", [&] { T::SetLogger(std::move(logger)); });
    }

    /// What `operation` calls.
    Calls During(const std::function<void()>& operation)
    {
        m_calls->clear();
        operation();
        return *m_calls;
    }

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override
    {
        Note("ProcessXmlStartElement", [&] { T::ProcessXmlStartElement(reader); });
    }

private:
    template <class Call>
    auto Note(const char* name, Call&& call) const
    {
        m_calls->insert(name);
        return call();
    }

    std::unique_ptr<Calls> m_calls = std::make_unique<Calls>();
};

template <class T>
class BothPathsOverrides : public ::testing::Test
{
protected:
    BothPathsOverrides()
    {
        Support::Choices choices{QByteArray()};
        T& plain = m_object;
        Support::Fill(plain, choices);
        m_xml = m_object.GetXmlString();
        m_bytes = m_object.GetBinaryRepresentationAsQByteArray();
    }

    Noting<T> m_object;
    QString m_xml;
    QByteArray m_bytes;
};

using Classes =
    ::testing::Types<REPORTGENERATOR::ReportBase, REPORTGENERATOR::Area, REPORTGENERATOR::Coordinate,
                     REPORTGENERATOR::Frequency, REPORTGENERATOR::IFBandwidth>;
TYPED_TEST_SUITE(BothPathsOverrides, Classes);

TYPED_TEST(BothPathsOverrides, AreCalledForTheText)
{
    EXPECT_THAT(this->m_object.During([&] { this->m_object.GetXmlString(); }),
                IsSupersetOf({"GetXmlString", "GetValidate", "Check", "Check with a flag", "GetXml",
                              "SetValidate", "SetLogger", "HasData", "GetObjectName"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledForTheFile)
{
    const Support::TemporaryFolder folder;
    EXPECT_THAT(this->m_object.During([&] { this->m_object.SaveXml(folder.Path("a.xml")); }),
                IsSupersetOf({"GetXmlString", "GetXml"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledForThePlainRepresentation)
{
    EXPECT_THAT(this->m_object.During([&] { this->m_object.GetBinaryRepresentationAsQByteArray(); }),
                IsSupersetOf({"GetBinaryRepresentation", "GetValidate", "Check", "GetObjectName", "GetBinary",
                              "SetValidate", "SetLogger", "HasData"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledForTheCompressedRepresentation)
{
    EXPECT_THAT(
        this->m_object.During([&] { this->m_object.GetCompressedBinaryRepresentationAsQByteArray(-1); }),
        IsSupersetOf({"GetCompressedBinaryRepresentation", "GetValidate", "Check", "GetObjectName",
                      "GetBinary", "SetValidate", "SetLogger", "HasData"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledByReadingText)
{
    EXPECT_THAT(this->m_object.During([&] { this->m_object.SetXmlString(this->m_xml, true); }),
                IsSupersetOf({"GetObjectName", "Reset", "ProcessXml", "GetValidate", "Check"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledByReadingAFile)
{
    const Support::TemporaryFolder folder;
    const QString path = folder.Write("a.xml", this->m_xml.toUtf8());
    EXPECT_THAT(this->m_object.During([&] { this->m_object.LoadXml(path); }),
                IsSupersetOf({"LoadXml", "Reset", "GetObjectName", "ProcessXml", "GetValidate", "Check"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledByReadingRepresentations)
{
    QByteArray plain = this->m_bytes;
    EXPECT_THAT(this->m_object.During([&] { this->m_object.SetBinaryRepresentation(plain); }),
                IsSupersetOf({"SetBinaryRepresentation", "SetBinary", "SetValidate", "SetLogger"}));
    QByteArray compressed = this->m_object.GetCompressedBinaryRepresentationAsQByteArray(-1);
    EXPECT_THAT(this->m_object.During([&] { this->m_object.SetBinaryRepresentation(compressed); }),
                IsSupersetOf({"SetBinaryRepresentation", "SetBinary", "SetValidate", "SetLogger"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledByReadingABinaryFile)
{
    const Support::TemporaryFolder folder;
    QFile file(
        folder.Write("a.bin", Support::Written([&](QDataStream& stream) { stream << this->m_bytes; })));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_THAT(this->m_object.During([&] { this->m_object.LoadBinary(&file); }),
                IsSupersetOf({"Reset", "SetBinaryRepresentation of an array", "SetBinaryRepresentation",
                              "SetBinary", "GetValidate", "Check"}));
}

TYPED_TEST(BothPathsOverrides, AreCalledByMerging)
{
    Noting<TypeParam> other;
    TypeParam& plain = other;
    Support::Choices choices{QByteArray()};
    Support::Fill(plain, choices);
    EXPECT_THAT(this->m_object.During([&] { this->m_object.MergeRGObject(other); }),
                IsSupersetOf({"GetObjectName", "ProcessXml"}));
    EXPECT_THAT(other.During([&] { this->m_object.MergeRGObject(other); }),
                IsSupersetOf({"GetXmlString", "GetXml"}));
}

/// Never validates, whatever it is told.
class NeverValidating : public REPORTGENERATOR::Area
{
public:
    void SetValidate(bool /*validate*/) const override {}
    bool GetValidate() const override { return false; }
};

TEST(BothPathsSettings, OfAnOverrideAreThoseOfTheItemsThatAreRead)
{
    NeverValidating area;
    EXPECT_EQ(Support::ReadElements(area, Support::Coordinates(1, Support::Point("181", "2"))), 0);
    ASSERT_EQ(area.GetCoordinate().size(), 1);
    EXPECT_EQ(area.GetCoordinate().at(0).GetLongitude(), 181.0);
}

template <class T>
void ExpectPassedOnInPlace()
{
    T area;
    area.AppendCoordinate(Support::At(1.0, 2.0));
    const QVector<REPORTGENERATOR::Coordinate> sharing = std::as_const(area).GetCoordinate();
    sharing.at(0).SetValidate(false);
    Support::ReadElement(area, QStringLiteral("<Area Version=\"1.0\"><Name>Lake</Name></Area>"));
    EXPECT_TRUE(sharing.at(0).GetValidate());
}

TEST(BothPathsSettings, ArePassedOnByReadingToItemsThatACallersListShares)
{
    ExpectPassedOnInPlace<REPORTGENERATOR::Area>();
    ExpectPassedOnInPlace<Support::StreamPathOnly<REPORTGENERATOR::Area>>();
}

/// Those that read their children one by one.
template <class T>
class BothPathsChildOverrides : public BothPathsOverrides<T>
{
};

using Holders =
    ::testing::Types<REPORTGENERATOR::ReportBase, REPORTGENERATOR::Area, REPORTGENERATOR::Coordinate>;
TYPED_TEST_SUITE(BothPathsChildOverrides, Holders);

TYPED_TEST(BothPathsChildOverrides, AreCalledForEachChild)
{
    EXPECT_THAT(this->m_object.During([&] { this->m_object.SetXmlString(this->m_xml, true); }),
                IsSupersetOf({"ProcessXmlStartElement"}));
}

} // namespace
