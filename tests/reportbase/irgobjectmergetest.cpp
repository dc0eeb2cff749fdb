// How any object takes over what another one holds.

#include "support/expect.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/irgobject.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>

#include <typeinfo>

namespace {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using Support::NewLogger;
using Support::PlainObject;
using Support::Text;

/// An object with a format version of its own.
class VersionedObject : public PlainObject
{
public:
    explicit VersionedObject(const char* version) : m_version(QString::fromUtf8(version)) {}

    const QString& GetVersion() const override { return m_version; }

private:
    QString m_version;
};

} // namespace

TEST(IRGObject, MergeRefusesAnotherClassAndNamesBoth)
{
    const auto logger = NewLogger();
    const auto otherLogger = NewLogger();
    Double other;
    other.SetValue(1.0);
    other.SetLogger(otherLogger);
    Coordinate coordinate;
    coordinate.SetLogger(logger);

    EXPECT_FALSE(coordinate.MergeRGObject(other));
    const QString expected =
        Text("WARNING: Coordinate: Merging will be aborted, because a type mismatch occurred. ") +
        QString::fromLatin1(typeid(Double).name()) + Text(" != ") +
        QString::fromLatin1(typeid(Coordinate).name());
    EXPECT_LOG(logger, QStringList(expected));
    EXPECT_LOG(otherLogger, {});
    EXPECT_FALSE(coordinate.AnyData());
    EXPECT_FALSE(logger->HasErrors());
}

TEST(IRGObject, MergeRefusesADerivedClassAndABaseClassAlike)
{
    const auto logger = NewLogger();
    PlainObject plain;
    VersionedObject derived("");
    plain.children = {{Text("A"), Text("1")}};
    derived.children = {{Text("B"), Text("2")}};
    plain.SetLogger(logger);
    derived.SetLogger(logger);

    EXPECT_FALSE(plain.MergeRGObject(derived));
    EXPECT_FALSE(derived.MergeRGObject(plain));
    const QString plainName = QString::fromLatin1(typeid(PlainObject).name());
    const QString derivedName = QString::fromLatin1(typeid(VersionedObject).name());
    const QString start =
        Text("WARNING: AnyType: Merging will be aborted, because a type mismatch occurred. ");
    EXPECT_LOG(logger, QStringList({start + derivedName + Text(" != ") + plainName,
                                    start + plainName + Text(" != ") + derivedName}));
    EXPECT_EQ(plain.children.size(), 1);
    EXPECT_EQ(derived.children.size(), 1);
}

TEST(IRGObject, MergeRefusesWithoutLoggerToo)
{
    PlainObject plain;
    VersionedObject one("1");
    VersionedObject two("2");
    EXPECT_FALSE(plain.MergeRGObject(one));
    EXPECT_FALSE(one.MergeRGObject(two));
    EXPECT_FALSE(two.MergeRGObject(one));
}

TEST(IRGObject, MergeRefusesAnotherVersion)
{
    const auto logger = NewLogger();
    VersionedObject object("1.0");
    object.children = {{Text("A"), Text("1")}};
    object.SetLogger(logger);
    VersionedObject other("1.1");
    other.children = {{Text("A"), Text("2")}};

    EXPECT_FALSE(object.MergeRGObject(other));
    EXPECT_LOG(logger, {"WARNING: AnyType: Merging will be aborted, because a version mismatch occurred."});
    ASSERT_EQ(object.children.size(), 1);
    EXPECT_TEXT(object.children[0].text, "1");
    EXPECT_EQ(object.calls.reset, 0);
    EXPECT_EQ(other.calls.check, 0);
    EXPECT_EQ(other.calls.getXml, 0);
    EXPECT_FALSE(logger->HasErrors());
}

TEST(IRGObject, MergeComparesVersionsAsFloatNumbers)
{
    struct Row
    {
        const char* name;
        const char* left;
        const char* right;
        bool equal;
    };
    const Row rows[] = {
        {"spelled differently", "1.0", "1", true},
        {"leading zero and exponent", "01.50", "15e-1", true},
        {"both empty", "", "", true},
        {"empty is zero", "", "0", true},
        {"no number is zero", "abc", "", true},
        {"no number against one", "abc", "1", false},
        {"comma is no number", "1,5", "1.5", false},
        {"closer than a float can tell", "1.00000001", "1", true},
        {"whole numbers that a float can't tell apart", "16777217", "16777216", true},
        {"next float", "1.0000002", "1", false},
        {"sign", "-1", "1", false},
        {"as texts in the other order", "10.0", "2.0", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        VersionedObject left(row.left);
        VersionedObject right(row.right);
        EXPECT_EQ(left.MergeRGObject(right), row.equal);
        EXPECT_EQ(right.MergeRGObject(left), row.equal);
    }
}

TEST(IRGObject, MergeOfEqualVersionsReadsTheOtherObject)
{
    VersionedObject object("1.0");
    VersionedObject other("1");
    other.children = {{Text("A"), Text("2")}};
    EXPECT_TRUE(object.MergeRGObject(other));
    ASSERT_EQ(object.children.size(), 1);
    EXPECT_TEXT(object.children[0].text, "2");
}

TEST(IRGObject, MergeReadsTheOtherWithoutResetOrCheckOfItsOwn)
{
    const auto logger = NewLogger();
    const auto otherLogger = NewLogger();
    PlainObject object;
    object.children = {{Text("A"), Text("1")}};
    object.problem = Text("never asked");
    object.SetLogger(logger);
    PlainObject other;
    other.children = {{Text("B"), Text("2")}, {Text("C"), Text("3")}};
    other.SetLogger(otherLogger);

    EXPECT_TRUE(object.MergeRGObject(other));
    const QVector<PlainObject::Child> expected = {
        {Text("A"), Text("1")}, {Text("B"), Text("2")}, {Text("C"), Text("3")}};
    EXPECT_EQ(object.children, expected);
    EXPECT_EQ(object.calls.reset, 0);
    EXPECT_EQ(object.calls.check, 0);
    EXPECT_LOG(logger, {});
    EXPECT_LOG(otherLogger, {"INFO: AnyType: Generating xml string."});
    EXPECT_EQ(other.children.size(), 2);
}

TEST(IRGObject, MergeOverwritesPresentFieldsAndKeepsAbsentOnes)
{
    Double object;
    object.SetValue(1.0);
    object.SetMinimum(-5.0);
    object.SetUnit(Text("dB"));
    Double other;
    other.SetValue(2.0);
    other.SetMaximum(9.0);

    EXPECT_TRUE(object.MergeRGObject(other));
    EXPECT_EQ(object.GetValue(), 2.0);
    EXPECT_EQ(object.GetMinimum(), -5.0);
    EXPECT_EQ(object.GetMaximum(), 9.0);
    EXPECT_TEXT(object.GetUnit(), "dB");
}

TEST(IRGObject, MergeOfAnObjectThatWritesNothingSucceedsAndChangesNothing)
{
    const auto logger = NewLogger();
    PlainObject object;
    object.children = {{Text("A"), Text("1")}};
    object.SetLogger(logger);
    PlainObject other;
    other.hasData = false;

    EXPECT_TRUE(object.MergeRGObject(other));
    ASSERT_EQ(object.children.size(), 1);
    EXPECT_EQ(object.calls.reset, 0);
    EXPECT_LOG(logger, {});
}

TEST(IRGObject, MergeFailsSilentlyWhenTheOthersElementHasAnotherName)
{
    const auto logger = NewLogger();
    PlainObject object;
    object.children = {{Text("A"), Text("1")}};
    object.SetLogger(logger);
    PlainObject other;
    other.SetObjectName(Text("Other"));
    other.children = {{Text("A"), Text("2")}};

    EXPECT_FALSE(object.MergeRGObject(other));
    ASSERT_EQ(object.children.size(), 1);
    EXPECT_TEXT(object.children[0].text, "1");
    EXPECT_LOG(logger, {});
}

TEST(IRGObject, MergeFindsAnElementOfItsNameInsideTheOthers)
{
    PlainObject object;
    PlainObject other;
    other.SetObjectName(Text("Other"));
    other.children = {{Text("AnyType"), Text("text")}, {Text("A"), Text("2")}};
    object.children = {{Text("A"), Text("1")}};
    EXPECT_TRUE(object.MergeRGObject(other));
    ASSERT_EQ(object.children.size(), 1);
    EXPECT_TEXT(object.children[0].text, "1");
}

TEST(IRGObject, MergePassesOnTheCheckOfTheOther)
{
    const auto logger = NewLogger();
    const auto otherLogger = NewLogger();
    PlainObject object;
    object.children = {{Text("A"), Text("1")}};
    object.SetLogger(logger);
    PlainObject other;
    other.problem = Text("incomplete");
    other.SetLogger(otherLogger);

    EXPECT_RG_THROW(object.MergeRGObject(other), "RGException", "incomplete");
    EXPECT_LOG(logger, {});
    EXPECT_LOG(otherLogger,
               {"INFO: AnyType: Generating xml string.", "FATAL ERROR: RGException: incomplete"});
    EXPECT_EQ(object.children.size(), 1);

    other.SetValidate(false);
    EXPECT_TRUE(object.MergeRGObject(other));
}

TEST(IRGObject, MergeReportsTextThatIsNoXml)
{
    const auto logger = NewLogger();
    PlainObject object;
    object.SetLogger(logger);
    PlainObject other;
    other.children = {{Text("no name"), Text("1")}};

    QXmlStreamReader reader(Text("<AnyType><no name>1</no name></AnyType>"));
    while (!reader.atEnd())
        reader.readNext();
    ASSERT_TRUE(reader.hasError());
    EXPECT_RG_THROW(object.MergeRGObject(other), "RGException", reader.errorString());
    EXPECT_LOG(logger, QStringList(Text("FATAL ERROR: RGException: ") + reader.errorString()));
}

TEST(IRGObject, MergeWithItselfIsPossible)
{
    Double object;
    object.SetValue(3.0);
    object.SetUnit(Text("s"));
    EXPECT_TRUE(object.MergeRGObject(object));
    EXPECT_EQ(object.GetValue(), 3.0);
    EXPECT_TEXT(object.GetUnit(), "s");
}
