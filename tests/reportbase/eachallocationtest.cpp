// Every operation of every class when memory runs out. Copies stay as they were, the object is of use afterwards, and
// operations that change nothing or one field have changed nothing.

#include "support/eachallocation.h"
#include "support/deviceoperations.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/plainclasses.h"
#include "support/recordclasses.h"

#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <memory>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::VersionConverterProxy;
using Support::At;
using Support::EachAllocation;
using Support::FailOne;
using Support::Failure;
using Support::QtObject;
using Support::StreamPathOnly;
using Support::TemporaryFolder;
using Support::Text;

// --- Operations -------------------------------------------------------------------------------------------

enum class Promise : int
{
    Usable,   ///< the object can be used
    Unchanged ///< the object is as it was when the operation throws
};

template <class T>
struct Operation
{
    const char* name;
    std::function<void(T&)> run;
    Promise promise = Promise::Unchanged;
    QtObject objects = QtObject::None; ///< that it makes
};

template <class T>
using Operations = std::vector<Operation<T>>;

template <class T>
void Add(Operations<T>& to, const Operations<T>& more)
{
    to.insert(to.end(), more.begin(), more.end());
}

template <class Write>
void WriteToStream(Write&& write)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setVersion(QDataStream::Qt_4_6);
    write(stream);
}

template <class T>
Operations<T> XmlOperations(const QString& xml, const QString& file, const QString& newFile)
{
    return {
        {"SetXmlString", [xml](T& object) { object.SetXmlString(xml, true); }, Promise::Usable,
         QtObject::Reader},
        {"SetXmlString(malformed)",
         [xml](T& object) { object.SetXmlString(xml.left(xml.size() - 3), false); }, Promise::Usable,
         QtObject::Reader},
        {"SetXmlString(foreign)", [](T& object) { object.SetXmlString(Text("<Foreign/>"), false); }},
        {"LoadXml", [file](T& object) { static_cast<IRGObject&>(object).LoadXml(file); }, Promise::Usable,
         QtObject::Reader},
        {"GetXmlString", [](T& object) { object.GetXmlString(); }, Promise::Unchanged, QtObject::Writer},
        {"SaveXml", [newFile](T& object) { object.SaveXml(newFile); }, Promise::Unchanged, QtObject::Writer},
        {"GetXml",
         [](T& object) {
             QByteArray written;
             QXmlStreamWriter writer(&written);
             object.GetXml(writer);
         },
         Promise::Unchanged, QtObject::Writer},
        {"MergeRGObject", [](T& object) { object.MergeRGObject(T(object)); }, Promise::Usable,
         QtObject::Both},
    };
}

template <class T>
Operations<T> OperationsOfAll()
{
    using REPORTGENERATOR::INFO;
    return {
        {"Reset", [](T& object) { object.Reset(); }, Promise::Usable},
        {"InjectVersionConverter",
         [](T& object) { object.InjectVersionConverter(std::make_shared<VersionConverterProxy>()); }},
        {"SetLogger", [](T& object) { object.SetLogger(Support::NewLogger()); }},
        {"ResetLogger", [](T& object) { object.ResetLogger(); }},
        {"SetValidate", [](T& object) { object.SetValidate(!object.GetValidate()); }},
        {"HasData", [](T& object) { object.HasData(); }},
        {"GetVersion", [](T& object) { object.GetVersion(); }},
        {"Check", [](T& object) { static_cast<IRGObject&>(object).Check(); }},
        {"Check(true)", [](T& object) { static_cast<IRGObject&>(object).Check(true); }},
        {"Trace", [](T& object) { static_cast<IRGObject&>(object).Trace(INFO, Text("text")); }},
        {"copied", [](T& object) { const T copy(object); }},
        {"assigned", [](T& object) { object = T(); }},
        {"assigned to another",
         [](T& object) {
             T other;
             other = object;
         }},
    };
}

template <class T>
Operations<T> BinaryWritings()
{
    return {
        {"GetBinary",
         [](T& object) { WriteToStream([&](QDataStream& stream) { object.GetBinary(stream, 7, true); }); }},
        {"GetVersionSpecificBinaryWithoutValidation",
         [](T& object) {
             WriteToStream(
                 [&](QDataStream& stream) { object.GetVersionSpecificBinaryWithoutValidation(stream); });
         }},
        {"GetBinaryRepresentation",
         [](T& object) {
             WriteToStream([&](QDataStream& stream) { object.GetBinaryRepresentation(stream); });
         }},
        {"GetBinaryRepresentationAsQByteArray",
         [](T& object) { object.GetBinaryRepresentationAsQByteArray(); }},
        {"GetCompressedBinaryRepresentation",
         [](T& object) {
             WriteToStream([&](QDataStream& stream) { object.GetCompressedBinaryRepresentation(stream, 1); });
         }},
        {"GetCompressedBinaryRepresentationAsQByteArray",
         [](T& object) { object.GetCompressedBinaryRepresentationAsQByteArray(1); }},
    };
}

/// Of what `source` writes, plain and compressed, from byte arrays, streams and files.
template <class T, class Source>
Operations<T> BinaryReadings(const Source& source, const QString& xml, const QString& file)
{
    Operations<T> operations;
    for (const auto& reading : Support::DeviceReadings<T>(source, xml.toUtf8())) {
        if (!reading.wantsFile)
            operations.push_back({reading.name,
                                  [reading](T& object) {
                                      QBuffer buffer;
                                      buffer.setData(reading.input);
                                      buffer.open(QIODevice::ReadOnly);
                                      reading.run(object, buffer);
                                  },
                                  Promise::Usable, QtObject::Reader});
    }
    for (const QByteArray& bytes : {source.GetBinaryRepresentationAsQByteArray(),
                                    source.GetCompressedBinaryRepresentationAsQByteArray(1)})
        operations.push_back({"SetBinaryRepresentation(QByteArray)",
                              [bytes](T& object) {
                                  QByteArray copy = bytes;
                                  static_cast<IRGObject&>(object).SetBinaryRepresentation(copy);
                              },
                              Promise::Usable});
    operations.push_back({"LoadBinary",
                          [file](T& object) {
                              QFile opened(file);
                              opened.open(QIODevice::ReadOnly);
                              object.LoadBinary(&opened);
                          },
                          Promise::Usable});
    return operations;
}

#define CALL(call)                                                                                           \
    {                                                                                                        \
#        call, [](T & object) { object.call; }                                                               \
    }

template <class T>
Operations<T> OwnOperations(const IRGObject* /*classOf*/)
{
    return {};
}

template <class T>
Operations<T> OwnOperations(const Coordinate* /*classOf*/)
{
    return {CALL(SetLongitude(7.0)), CALL(SetLongitude(200.0)), CALL(SetLatitude(7.0)),
            CALL(ResetLongitude()), CALL(ResetLatitude())};
}

template <class T>
Operations<T> OperationsOfBounded()
{
    return {CALL(SetValue(7.0)), CALL(SetMin(7.0)), CALL(SetMax(7.0)),
            CALL(ResetValue()),  CALL(ResetMin()),  CALL(ResetMax())};
}

template <class T>
Operations<T> OwnOperations(const Frequency* /*classOf*/)
{
    Operations<T> operations = OperationsOfBounded<T>();
    Add<T>(operations, {CALL(SetUse(false)), CALL(ResetUse())});
    return operations;
}

template <class T>
Operations<T> OwnOperations(const IFBandwidth* /*classOf*/)
{
    return OperationsOfBounded<T>();
}

template <class T>
Operations<T> OwnOperations(const Area* /*classOf*/)
{
    return {
        CALL(SetName(Text("Another"))),
        CALL(SetName(QString())),
        CALL(SetScriptID(Text("Another"))),
        CALL(SetCoordinate({At(5.0, 6.0)})),
        CALL(AppendCoordinate(At(5.0, 6.0))),
        CALL(AppendCoordinate(Coordinate())),
        CALL(GetCoordinate()),
        CALL(ResetName()),
        CALL(ResetCoordinate()),
        CALL(ResetScriptID()),
    };
}

template <class T>
Operations<T> OwnOperations(const ReportBase* /*classOf*/)
{
    return {
        CALL(SetFrequency(Frequency())),
        CALL(SetIFBandwidth(IFBandwidth())),
        CALL(SetArea(Support::Lake())),
        CALL(GetFrequency()),
        CALL(GetIFBandwidth()),
        CALL(GetArea()),
        CALL(ResetFrequency()),
        CALL(ResetIFBandwidth()),
        CALL(ResetArea()),
    };
}

template <class T>
Operations<T> OwnOperations(const Double* /*classOf*/)
{
    return {CALL(SetName(Text("Another"))), CALL(SetUnit(Text("V"))), CALL(SetValue(7.0)),
            CALL(GetValueString()), CALL(SetDefaultInvalidValue(-1.0))};
}

template <class T>
Operations<T> OwnOperations(const ChannelSpacing* /*classOf*/)
{
    return {CALL(SetVisual(Text("Another"))), CALL(SetValues({1.0, 2.0})), CALL(SetSameDistance(true))};
}

#undef CALL

// --- Trials -----------------------------------------------------------------------------------------------

/// What the operations are tried on.
template <class T>
struct Subject
{
    std::function<std::unique_ptr<T>()> make;
    std::function<QByteArray(const T&)> look; ///< tells all that it holds
    std::function<void(T&)> expectUsable;
};

template <class T>
void TryAll(const Subject<T>& subject, const Operations<T>& operations)
{
    EachAllocation each;
    for (const Operation<T>& operation : operations) {
        const auto trial = [&](int number) {
            const auto object = subject.make();
            const QByteArray before = subject.look(*object);
            const Failure failure = FailOne(number, [&] {
                try {
                    operation.run(*object);
                } catch (const RGException&) {
                }
            });
            if (failure.threw && operation.promise == Promise::Unchanged) {
                EXPECT_EQ(subject.look(*object), before);
            }
            subject.expectUsable(*object);
            return failure;
        };
        each.Try(operation.name, trial, operation.objects);
    }
    each.Report();
}

/// An object of the class `T`, of the class `Base` or derived from it, that shares what it holds with a copy.
template <class Base, class T>
void TryRecordClass()
{
    const QString xml = Support::Used<Base>().GetXmlString();
    const Base source = Support::Used<Base>();
    const QByteArray filled = Support::RawFormOf(source);
    const QString one = Support::XmlOfOne<Base>();
    const TemporaryFolder folder;
    const QString xmlFile = folder.Write("in.xml", xml.toUtf8());
    const QString binaryFile = folder.Write("in.bin", Support::Written([&](QDataStream& stream) {
                                                stream << source.GetBinaryRepresentationAsQByteArray();
                                            }));
    Subject<T> subject;
    subject.make = [&] { return std::make_unique<T>(source); };
    subject.look = [](const T& object) { return Support::RawFormOf(object); };
    subject.expectUsable = [&](T& object) {
        EXPECT_EQ(Support::RawFormOf(source), filled);
        object.ResetLogger();
        object.SetValidate(true);
        object.Reset();
        Support::RecordClass<Base>::Fill(object, 1.0);
        EXPECT_EQ(object.GetXmlString(), one);
    };
    Operations<T> operations = XmlOperations<T>(xml, xmlFile, folder.Path("out.xml"));
    Add(operations, OperationsOfAll<T>());
    Add(operations, BinaryWritings<T>());
    Add(operations, BinaryReadings<T>(source, xml, binaryFile));
    Add(operations, OwnOperations<T>(static_cast<const Base*>(nullptr)));
    TryAll(subject, operations);
}

template <class T>
class EachAllocationOfRecords : public ::testing::Test
{
};

TYPED_TEST_SUITE(EachAllocationOfRecords, Support::RecordClasses, Support::RecordClassNames);

TYPED_TEST(EachAllocationOfRecords, MayFailOnTheFastPath)
{
    if (!EachAllocation::IsPossible())
        GTEST_SKIP() << EachAllocation::IMPOSSIBLE;
    TryRecordClass<TypeParam, TypeParam>();
}

TYPED_TEST(EachAllocationOfRecords, MayFailOnTheStreamPath)
{
    if (!EachAllocation::IsPossible())
        GTEST_SKIP() << EachAllocation::IMPOSSIBLE;
    TryRecordClass<TypeParam, StreamPathOnly<TypeParam>>();
}

template <class T>
class EachAllocationOfPlainClasses : public ::testing::Test
{
};

using PlainClasses =
    ::testing::Types<REPORTGENERATOR::ValueMinMax, REPORTGENERATOR::FrequencyRangeOld,
                     REPORTGENERATOR::FrequencyInformation, REPORTGENERATOR::FrequencyListValue,
                     REPORTGENERATOR::Ellipse, ChannelSpacing, REPORTGENERATOR::ScanParameter,
                     REPORTGENERATOR::MeasurementTime, Double>;
TYPED_TEST_SUITE(EachAllocationOfPlainClasses, PlainClasses, Support::PlainClassNames);

TYPED_TEST(EachAllocationOfPlainClasses, MayFail)
{
    if (!EachAllocation::IsPossible())
        GTEST_SKIP() << EachAllocation::IMPOSSIBLE;
    using Sample = Support::Sample<TypeParam>;
    const QString xml = Text(Sample::XML);
    const TypeParam filled = Sample::Filled();
    const TemporaryFolder folder;
    Subject<TypeParam> subject;
    subject.make = [&] { return std::make_unique<TypeParam>(filled); };
    subject.look = [](const TypeParam& object) { return object.GetXmlString().toUtf8(); };
    subject.expectUsable = [&](TypeParam& object) {
        object = filled;
        EXPECT_EQ(object.GetXmlString(), xml);
    };
    Operations<TypeParam> operations =
        XmlOperations<TypeParam>(xml, folder.Write("in.xml", xml.toUtf8()), folder.Path("out.xml"));
    Add(operations, OperationsOfAll<TypeParam>());
    Add(operations, OwnOperations<TypeParam>(static_cast<const TypeParam*>(nullptr)));
    TryAll(subject, operations);
}

/// Otherwise nothing has to be allowed for any more.
TEST(LossesOfQt, AreThoseOfReadersAndWritersThatCannotBeMade)
{
    if (!EachAllocation::IsPossible())
        GTEST_SKIP() << EachAllocation::IMPOSSIBLE;
    EXPECT_FALSE(Support::LossesOf(QtObject::Reader).empty());
    EXPECT_FALSE(Support::LossesOf(QtObject::Writer).empty());
}

} // namespace
