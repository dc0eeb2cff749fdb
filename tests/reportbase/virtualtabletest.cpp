// Programs built with another compiler version or against an older header call the virtual operations by
// their place in the virtual table. On the Itanium C++ ABI (GCC, Clang, MinGW) the table holds them in the
// order of their declaration, the destructor as two entries. These tests call through the entries by number,
// without naming the operations, and look at what was reached.

#include "support/expect.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <set>
#include <type_traits>
#include <utility>

#ifndef _MSC_VER

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::IXmlConverter;
using REPORTGENERATOR::ListLogger;
using REPORTGENERATOR::Logger;
using REPORTGENERATOR::LogLevel;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::VersionConverterProxy;
using Support::Text;

/// How the ABI represents a pointer to a virtual member function.
struct MemberPointer
{
    std::ptrdiff_t pointer;
    std::ptrdiff_t adjustment;
};

#    if defined(__arm__) || defined(__aarch64__)
constexpr std::ptrdiff_t POINTER_MARK = 0;
constexpr std::ptrdiff_t ADJUSTMENT_MARK = 1;
#    else
constexpr std::ptrdiff_t POINTER_MARK = 1;
constexpr std::ptrdiff_t ADJUSTMENT_MARK = 0;
#    endif

constexpr auto ENTRY_SIZE = static_cast<std::ptrdiff_t>(sizeof(void*));

/// A pointer to the member function that stands in an entry of the virtual table, whichever that is.
template <typename MemberFunction>
MemberFunction FromEntry(int entry)
{
    const MemberPointer representation = {POINTER_MARK + entry * ENTRY_SIZE, ADJUSTMENT_MARK};
    MemberFunction function = nullptr;
    static_assert(sizeof function == sizeof representation);
    std::memcpy(&function, &representation, sizeof function);
    return function;
}

/// The entry through which a pointer to a member function calls; -1 when it calls no virtual one.
template <typename MemberFunction>
int EntryOf(MemberFunction function)
{
    MemberPointer representation = {};
    static_assert(sizeof function == sizeof representation);
    std::memcpy(&representation, &function, sizeof representation);
    if ((representation.pointer & POINTER_MARK) != POINTER_MARK ||
        (representation.adjustment & ADJUSTMENT_MARK) != ADJUSTMENT_MARK)
        return -1;
    return static_cast<int>((representation.pointer - POINTER_MARK) / ENTRY_SIZE);
}

/// The entry of a slot of `IRGObject`: slot 0, the destructor, takes entries 0 and 1.
constexpr int EntryOfSlot(int slot)
{
    return slot + 1;
}

constexpr int NOTHING_CALLED = -1;
constexpr int DESTRUCTOR = 0;
constexpr int OWN_OPERATION = 1000;

int g_destroyed = 0;
int g_deleted = 0;

/// Overrides every virtual operation of the base and notes the slot through which it was called.
class SlotRecorder : public IRGObject
{
public:
    SlotRecorder() = default;
    SlotRecorder(const SlotRecorder&) = delete;
    SlotRecorder& operator=(const SlotRecorder&) = delete;
    ~SlotRecorder() override { ++g_destroyed; }

    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void* memory)
    {
        ++g_deleted;
        ::operator delete(memory);
    }

    bool HasData() const override { return Note<bool>(1); }
    void Reset() override { Note<int>(2); }
    void Check(bool) const override { Note<int>(3); }
    void Check() const override { Note<int>(4); }
    bool IsValid(float) const override { return Note<bool>(5); }
    bool IsValid(bool) const override { return Note<bool>(6); }
    bool IsValid(unsigned int) const override { return Note<bool>(7); }
    bool IsValid(long long) const override { return Note<bool>(8); }
    bool IsValid(const QDateTime&) const override { return Note<bool>(9); }
    bool IsValid(const QString&) const override { return Note<bool>(10); }
    bool IsValid(double) const override { return Note<bool>(11); }
    bool IsValid(int) const override { return Note<bool>(12); }
    void SetInvalid(float&) const override { Note<int>(13); }
    void SetInvalid(unsigned int&) const override { Note<int>(14); }
    void SetInvalid(long long&) const override { Note<int>(15); }
    void SetInvalid(QString&) const override { Note<int>(16); }
    void SetInvalid(double&) const override { Note<int>(17); }
    void SetInvalid(int&) const override { Note<int>(18); }
    void GetXml(QXmlStreamWriter&) const override { Note<int>(19); }
    bool GetBinary(QDataStream&, int, bool) const override { return Note<bool>(20); }
    void SetBinary(QDataStream&, int) override { Note<int>(21); }
    bool SetXmlString(const QString&, bool) override { return Note<bool>(22); }
    bool SetBinaryRepresentation(QByteArray&) override { return Note<bool>(23); }
    bool SetBinaryRepresentation(QDataStream&) override { return Note<bool>(24); }
    bool MergeRGObject(const IRGObject&) override { return Note<bool>(25); }
    ObjectTypes GetObjectType() const override { return Note<ObjectTypes>(26); }
    const QString& GetObjectName() const override { return NoteText(27); }
    void ProcessXml(QXmlStreamReader&) override { Note<int>(28); }
    QString GetXmlString() const override { return Note<QString>(29); }
    void GetBinaryRepresentation(QDataStream&) const override { Note<int>(30); }
    QByteArray GetBinaryRepresentationAsQByteArray() const override { return Note<QByteArray>(31); }
    void GetCompressedBinaryRepresentation(QDataStream&, int) const override { Note<int>(32); }
    QByteArray GetCompressedBinaryRepresentationAsQByteArray(int) const override
    {
        return Note<QByteArray>(33);
    }
    bool LoadXml(const QString&) override { return Note<bool>(34); }
    bool LoadXml(QFile*) override { return Note<bool>(35); }
    bool LoadBinary(QFile*) override { return Note<bool>(36); }
    bool SaveXml(const QString&) const override { return Note<bool>(37); }
    void SetValidate(bool) const override { Note<int>(38); }
    bool GetValidate() const override { return Note<bool>(39); }
    void SetLogger(std::shared_ptr<Logger>) const override { Note<int>(40); }
    void ResetLogger() const override { Note<int>(41); }
    const QString& GetVersion() const override { return NoteText(42); }
    void SetObjectType(ObjectTypes) override { Note<int>(43); }
    void SetObjectName(const QString&) override { Note<int>(44); }
    void ProcessXmlStartElement(QXmlStreamReader&) override { Note<int>(45); }

    virtual void OwnOperation() { Note<int>(OWN_OPERATION); }

    int TakeCalled() const
    {
        const int called = m_called;
        m_called = NOTHING_CALLED;
        return called;
    }

private:
    template <typename Result>
    Result Note(int slot) const
    {
        m_called = slot;
        return Result();
    }

    const QString& NoteText(int slot) const
    {
        m_called = slot;
        return EMPTY_VERSION;
    }

    mutable int m_called = NOTHING_CALLED;
};

/// Makes the protected operations nameable.
class Opened : public SlotRecorder
{
public:
    using IRGObject::ProcessXmlStartElement;
    using IRGObject::SetObjectName;
    using IRGObject::SetObjectType;
};

// The operation as declared stands in the entry.
#    define EXPECT_DECLARED(slot, Signature, name)                                                           \
        EXPECT_EQ(EntryOf(static_cast<Signature>(&IRGObject::name)), EntryOfSlot(slot))                      \
            << #name " " #Signature

/// Calling through the entry of a slot reaches the override of the operation.
template <typename Signature, typename... Arguments>
void ExpectReached(SlotRecorder& recorder, int slot, Arguments&&... arguments)
{
    IRGObject& base = recorder;
    (base.*FromEntry<Signature>(EntryOfSlot(slot)))(std::forward<Arguments>(arguments)...);
    EXPECT_EQ(recorder.TakeCalled(), slot);
}

} // namespace

TEST(VirtualTable, DeclaresTheOperationsOfIRGObjectInSlotOrder)
{
    EXPECT_DECLARED(1, bool(IRGObject::*)() const, HasData);
    EXPECT_DECLARED(2, void(IRGObject::*)(), Reset);
    EXPECT_DECLARED(3, void(IRGObject::*)(bool) const, Check);
    EXPECT_DECLARED(4, void(IRGObject::*)() const, Check);
    EXPECT_DECLARED(5, bool(IRGObject::*)(float) const, IsValid);
    EXPECT_DECLARED(6, bool(IRGObject::*)(bool) const, IsValid);
    EXPECT_DECLARED(7, bool(IRGObject::*)(unsigned int) const, IsValid);
    EXPECT_DECLARED(8, bool(IRGObject::*)(long long) const, IsValid);
    EXPECT_DECLARED(9, bool(IRGObject::*)(const QDateTime&) const, IsValid);
    EXPECT_DECLARED(10, bool(IRGObject::*)(const QString&) const, IsValid);
    EXPECT_DECLARED(11, bool(IRGObject::*)(double) const, IsValid);
    EXPECT_DECLARED(12, bool(IRGObject::*)(int) const, IsValid);
    EXPECT_DECLARED(13, void(IRGObject::*)(float&) const, SetInvalid);
    EXPECT_DECLARED(14, void(IRGObject::*)(unsigned int&) const, SetInvalid);
    EXPECT_DECLARED(15, void(IRGObject::*)(long long&) const, SetInvalid);
    EXPECT_DECLARED(16, void(IRGObject::*)(QString&) const, SetInvalid);
    EXPECT_DECLARED(17, void(IRGObject::*)(double&) const, SetInvalid);
    EXPECT_DECLARED(18, void(IRGObject::*)(int&) const, SetInvalid);
    EXPECT_DECLARED(19, void(IRGObject::*)(QXmlStreamWriter&) const, GetXml);
    EXPECT_DECLARED(20, bool(IRGObject::*)(QDataStream&, int, bool) const, GetBinary);
    EXPECT_DECLARED(21, void(IRGObject::*)(QDataStream&, int), SetBinary);
    EXPECT_DECLARED(22, bool(IRGObject::*)(const QString&, bool), SetXmlString);
    EXPECT_DECLARED(23, bool(IRGObject::*)(QByteArray&), SetBinaryRepresentation);
    EXPECT_DECLARED(24, bool(IRGObject::*)(QDataStream&), SetBinaryRepresentation);
    EXPECT_DECLARED(25, bool(IRGObject::*)(const IRGObject&), MergeRGObject);
    EXPECT_DECLARED(26, ObjectTypes(IRGObject::*)() const, GetObjectType);
    EXPECT_DECLARED(27, const QString& (IRGObject::*)() const, GetObjectName);
    EXPECT_DECLARED(28, void(IRGObject::*)(QXmlStreamReader&), ProcessXml);
    EXPECT_DECLARED(29, QString(IRGObject::*)() const, GetXmlString);
    EXPECT_DECLARED(30, void(IRGObject::*)(QDataStream&) const, GetBinaryRepresentation);
    EXPECT_DECLARED(31, QByteArray(IRGObject::*)() const, GetBinaryRepresentationAsQByteArray);
    EXPECT_DECLARED(32, void(IRGObject::*)(QDataStream&, int) const, GetCompressedBinaryRepresentation);
    EXPECT_DECLARED(33, QByteArray(IRGObject::*)(int) const, GetCompressedBinaryRepresentationAsQByteArray);
    EXPECT_DECLARED(34, bool(IRGObject::*)(const QString&), LoadXml);
    EXPECT_DECLARED(35, bool(IRGObject::*)(QFile*), LoadXml);
    EXPECT_DECLARED(36, bool(IRGObject::*)(QFile*), LoadBinary);
    EXPECT_DECLARED(37, bool(IRGObject::*)(const QString&) const, SaveXml);
    EXPECT_DECLARED(38, void(IRGObject::*)(bool) const, SetValidate);
    EXPECT_DECLARED(39, bool(IRGObject::*)() const, GetValidate);
    EXPECT_DECLARED(40, void(IRGObject::*)(std::shared_ptr<Logger>) const, SetLogger);
    EXPECT_DECLARED(41, void(IRGObject::*)() const, ResetLogger);
    EXPECT_DECLARED(42, const QString& (IRGObject::*)() const, GetVersion);
    EXPECT_EQ(EntryOf(&Opened::SetObjectType), EntryOfSlot(43));
    EXPECT_EQ(EntryOf(&Opened::SetObjectName), EntryOfSlot(44));
    EXPECT_EQ(EntryOf(&Opened::ProcessXmlStartElement), EntryOfSlot(45));
}

TEST(VirtualTable, EntriesOfIRGObjectReachTheOperationsInSlotOrder)
{
    const SlotRecorder constRecorder;
    SlotRecorder recorder;

    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::ReadWrite);
    QString text;
    QXmlStreamWriter writer(&text);
    QXmlStreamReader reader(text);
    const QDateTime time;
    float single = 0;
    unsigned int unsignedNumber = 0;
    long long wide = 0;
    double real = 0;
    int number = 0;

    ExpectReached<bool (IRGObject::*)() const>(recorder, 1);
    ExpectReached<void (IRGObject::*)()>(recorder, 2);
    ExpectReached<void (IRGObject::*)(bool) const>(recorder, 3, true);
    ExpectReached<void (IRGObject::*)() const>(recorder, 4);
    ExpectReached<bool (IRGObject::*)(float) const>(recorder, 5, single);
    ExpectReached<bool (IRGObject::*)(bool) const>(recorder, 6, true);
    ExpectReached<bool (IRGObject::*)(unsigned int) const>(recorder, 7, unsignedNumber);
    ExpectReached<bool (IRGObject::*)(long long) const>(recorder, 8, wide);
    ExpectReached<bool (IRGObject::*)(const QDateTime&) const>(recorder, 9, time);
    ExpectReached<bool (IRGObject::*)(const QString&) const>(recorder, 10, text);
    ExpectReached<bool (IRGObject::*)(double) const>(recorder, 11, real);
    ExpectReached<bool (IRGObject::*)(int) const>(recorder, 12, number);
    ExpectReached<void (IRGObject::*)(float&) const>(recorder, 13, single);
    ExpectReached<void (IRGObject::*)(unsigned int&) const>(recorder, 14, unsignedNumber);
    ExpectReached<void (IRGObject::*)(long long&) const>(recorder, 15, wide);
    ExpectReached<void (IRGObject::*)(QString&) const>(recorder, 16, text);
    ExpectReached<void (IRGObject::*)(double&) const>(recorder, 17, real);
    ExpectReached<void (IRGObject::*)(int&) const>(recorder, 18, number);
    ExpectReached<void (IRGObject::*)(QXmlStreamWriter&) const>(recorder, 19, writer);
    ExpectReached<bool (IRGObject::*)(QDataStream&, int, bool) const>(recorder, 20, stream, 1, true);
    ExpectReached<void (IRGObject::*)(QDataStream&, int)>(recorder, 21, stream, 0);
    ExpectReached<bool (IRGObject::*)(const QString&, bool)>(recorder, 22, text, true);
    ExpectReached<bool (IRGObject::*)(QByteArray&)>(recorder, 23, bytes);
    ExpectReached<bool (IRGObject::*)(QDataStream&)>(recorder, 24, stream);
    ExpectReached<bool (IRGObject::*)(const IRGObject&)>(recorder, 25, constRecorder);
    ExpectReached<ObjectTypes (IRGObject::*)() const>(recorder, 26);
    ExpectReached<const QString& (IRGObject::*)() const>(recorder, 27);
    ExpectReached<void (IRGObject::*)(QXmlStreamReader&)>(recorder, 28, reader);
    ExpectReached<QString (IRGObject::*)() const>(recorder, 29);
    ExpectReached<void (IRGObject::*)(QDataStream&) const>(recorder, 30, stream);
    ExpectReached<QByteArray (IRGObject::*)() const>(recorder, 31);
    ExpectReached<void (IRGObject::*)(QDataStream&, int) const>(recorder, 32, stream, -1);
    ExpectReached<QByteArray (IRGObject::*)(int) const>(recorder, 33, -1);
    ExpectReached<bool (IRGObject::*)(const QString&)>(recorder, 34, text);
    ExpectReached<bool (IRGObject::*)(QFile*)>(recorder, 35, nullptr);
    ExpectReached<bool (IRGObject::*)(QFile*)>(recorder, 36, nullptr);
    ExpectReached<bool (IRGObject::*)(const QString&) const>(recorder, 37, text);
    ExpectReached<void (IRGObject::*)(bool) const>(recorder, 38, true);
    ExpectReached<bool (IRGObject::*)() const>(recorder, 39);
    ExpectReached<void (IRGObject::*)(std::shared_ptr<Logger>) const>(recorder, 40, nullptr);
    ExpectReached<void (IRGObject::*)() const>(recorder, 41);
    ExpectReached<const QString& (IRGObject::*)() const>(recorder, 42);
    ExpectReached<void (IRGObject::*)(ObjectTypes)>(recorder, 43, REPORTGENERATOR::AnyType);
    ExpectReached<void (IRGObject::*)(const QString&)>(recorder, 44, text);
    ExpectReached<void (IRGObject::*)(QXmlStreamReader&)>(recorder, 45, reader);
}

TEST(VirtualTable, OperationsThatAClassAddsFollowTheFortySixOfIRGObject)
{
    SlotRecorder recorder;
    EXPECT_EQ(EntryOf(&SlotRecorder::OwnOperation), EntryOfSlot(46));
    (recorder.*FromEntry<void (SlotRecorder::*)()>(EntryOfSlot(46)))();
    EXPECT_EQ(recorder.TakeCalled(), OWN_OPERATION);
}

TEST(VirtualTable, DestructorOfIRGObjectTakesTheFirstTwoEntries)
{
    g_destroyed = 0;
    g_deleted = 0;

    // Entry 0 destroys the object and leaves its memory to the caller.
    alignas(SlotRecorder) unsigned char memory[sizeof(SlotRecorder)];
    IRGObject* inPlace = ::new (memory) SlotRecorder;
    (inPlace->*FromEntry<void (IRGObject::*)()>(DESTRUCTOR))();
    EXPECT_EQ(g_destroyed, 1);
    EXPECT_EQ(g_deleted, 0);

    // Entry 1 frees the memory as well.
    IRGObject* onHeap = new SlotRecorder;
    (onHeap->*FromEntry<void (IRGObject::*)()>(DESTRUCTOR + 1))();
    EXPECT_EQ(g_destroyed, 2);
    EXPECT_EQ(g_deleted, 1);
}

// --- Which operations the library's classes override -------------------------------------------------------

#    ifdef __ELF__

// Elsewhere a program's own copy of a base operation has another address than the library's.

namespace {

/// The operations that a class may override; all others must be those of the base.
struct ClassRow
{
    const char* name;
    const IRGObject* object;
    std::set<int> mayOverride;
};

constexpr int SLOT_COUNT = 46;

/// What stands in the entry of the object's virtual table.
const void* Entry(const IRGObject& object, int entry)
{
    const char* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&object), sizeof table);
    const void* function = nullptr;
    std::memcpy(&function, table + entry * ENTRY_SIZE, sizeof function);
    return function;
}

/// Overrides what is pure, and nothing else.
class LeastObject : public IRGObject
{
public:
    using IRGObject::Check;
    bool HasData() const override { return false; }
    void Reset() override {}
    void Check() const override {}
    void GetXml(QXmlStreamWriter&) const override {}
};

} // namespace

TEST(VirtualTable, ClassesOverrideNoOtherOperationsThanTheyShould)
{
    const LeastObject least;
    const REPORTGENERATOR::ReportBase report;
    const REPORTGENERATOR::Frequency frequency;
    const REPORTGENERATOR::IFBandwidth bandwidth;
    const REPORTGENERATOR::Coordinate coordinate;
    const REPORTGENERATOR::Area area;
    const REPORTGENERATOR::Double number;
    const VersionConverterProxy proxy;

    const std::set<int> ofBoundedValues = {0, 1, 2, 3, 4, 19, 20, 21, 28, 38, 40, 43};
    std::set<int> ofHolders = ofBoundedValues;
    ofHolders.insert(45);
    std::set<int> ofArea = ofHolders;
    ofArea.insert(42);

    const ClassRow rows[] = {
        {"ReportBase", &report, ofHolders},
        {"Frequency", &frequency, ofBoundedValues},
        {"IFBandwidth", &bandwidth, ofBoundedValues},
        {"Coordinate", &coordinate, ofHolders},
        {"Area", &area, ofArea},
        {"Double", &number, {0, 1, 2, 4, 11, 19, 28, 45}},
        {"VersionConverterProxy", &proxy, {0, 1, 2, 4, 19, 22, 29, 35}},
    };
    for (const ClassRow& row : rows) {
        for (int slot = 1; slot < SLOT_COUNT; ++slot) {
            if (row.mayOverride.count(slot) != 0)
                continue;
            EXPECT_EQ(Entry(*row.object, EntryOfSlot(slot)), Entry(least, EntryOfSlot(slot)))
                << row.name << " overrides slot " << slot;
        }
    }
}

TEST(VirtualTable, ClassesOverrideWhatMakesTheirOwnBehaviour)
{
    const LeastObject least;
    const REPORTGENERATOR::ReportBase report;
    const REPORTGENERATOR::Area area;
    const REPORTGENERATOR::Double number;
    const VersionConverterProxy proxy;

    const ClassRow rows[] = {
        {"ReportBase", &report, {1, 2, 3, 4, 19, 20, 21, 28, 38, 40, 43, 45}},
        {"Area", &area, {1, 2, 3, 4, 19, 20, 21, 28, 38, 40, 42, 43, 45}},
        {"Double", &number, {1, 2, 4, 11, 19, 28, 45}},
        {"VersionConverterProxy", &proxy, {1, 2, 4, 19, 22, 29, 35}},
    };
    for (const ClassRow& row : rows) {
        for (const int slot : row.mayOverride)
            EXPECT_NE(Entry(*row.object, EntryOfSlot(slot)), Entry(least, EntryOfSlot(slot)))
                << row.name << " does not override slot " << slot;
    }
}

#    endif // __ELF__

// --- Loggers -----------------------------------------------------------------------------------------------

namespace {

class LoggerRecorder : public Logger
{
public:
    LoggerRecorder() : Logger(REPORTGENERATOR::INFO) {}
    ~LoggerRecorder() override { ++g_destroyed; }

    void Trace(LogLevel, const ReportException&, bool) override { called = 0; }
    void Trace(LogLevel, const QString&, bool) override { called = 1; }
    bool HasErrors() const override
    {
        called = 2;
        return false;
    }
    void Reset(bool) override { called = 3; }

    virtual void OwnOperation() { called = OWN_OPERATION; }

    mutable int called = NOTHING_CALLED;
};

class ListLoggerRecorder : public ListLogger
{
public:
    ListLoggerRecorder() : ListLogger(REPORTGENERATOR::INFO) {}

    QStringList& GetLogEntryList() override
    {
        called = 5;
        return ListLogger::GetLogEntryList();
    }

    virtual void OwnOperation() { called = OWN_OPERATION; }

    int called = NOTHING_CALLED;
};

} // namespace

TEST(VirtualTable, EntriesOfLoggerReachTheOperationsInSlotOrder)
{
    g_destroyed = 0;
    {
        LoggerRecorder recorder;
        Logger& base = recorder;
        const RGException exception(Text("text"));

        (base.*FromEntry<void (Logger::*)(LogLevel, const ReportException&, bool)>(0))(REPORTGENERATOR::INFO,
                                                                                       exception, false);
        EXPECT_EQ(recorder.called, 0);
        (base.*FromEntry<void (Logger::*)(LogLevel, const QString&, bool)>(1))(REPORTGENERATOR::INFO,
                                                                               Text("text"), false);
        EXPECT_EQ(recorder.called, 1);
        (base.*FromEntry<bool (Logger::*)() const>(2))();
        EXPECT_EQ(recorder.called, 2);
        (base.*FromEntry<void (Logger::*)(bool)>(3))(false);
        EXPECT_EQ(recorder.called, 3);

        // Slot 4 is the destructor with entries 4 and 5.
        EXPECT_EQ(EntryOf(&LoggerRecorder::OwnOperation), 6);
        (recorder.*FromEntry<void (LoggerRecorder::*)()>(6))();
        EXPECT_EQ(recorder.called, OWN_OPERATION);
        EXPECT_EQ(g_destroyed, 0);
    }

    g_destroyed = 0;
    Logger* onHeap = new LoggerRecorder;
    (onHeap->*FromEntry<void (Logger::*)()>(5))();
    EXPECT_EQ(g_destroyed, 1);
}

TEST(VirtualTable, ListLoggerAppendsItsListBehindTheDestructor)
{
    ListLoggerRecorder recorder;
    ListLogger& base = recorder;
    EXPECT_EQ(EntryOf(&ListLogger::GetLogEntryList), 6);
    QStringList& list = (base.*FromEntry<QStringList& (ListLogger::*)()>(6))();
    EXPECT_EQ(recorder.called, 5);
    EXPECT_EQ(&list, &recorder.ListLogger::GetLogEntryList());

    EXPECT_EQ(EntryOf(&ListLoggerRecorder::OwnOperation), 7);
    (recorder.*FromEntry<void (ListLoggerRecorder::*)()>(7))();
    EXPECT_EQ(recorder.called, OWN_OPERATION);
}

TEST(VirtualTable, EntriesOfListLoggerDoWhatItsOperationsDo)
{
    ListLogger logger(REPORTGENERATOR::INFO);
    Logger& base = logger;
    const RGException exception(Text("first"));
    (base.*FromEntry<void (Logger::*)(LogLevel, const ReportException&, bool)>(0))(REPORTGENERATOR::ERROR,
                                                                                   exception, true);
    (base.*FromEntry<void (Logger::*)(LogLevel, const QString&, bool)>(1))(REPORTGENERATOR::WARNING,
                                                                           Text("second"), false);
    EXPECT_LOG(logger, {"FATAL ERROR: RGException: first", "WARNING: second"});
    EXPECT_TRUE((base.*FromEntry<bool (Logger::*)() const>(2))());
    (base.*FromEntry<void (Logger::*)(bool)>(3))(true);
    EXPECT_FALSE(logger.HasErrors());
    EXPECT_LOG(logger, {});
}

// --- Exceptions --------------------------------------------------------------------------------------------

namespace {

/// Overrides the operations of an exception and adds one.
template <typename Exception>
class ExceptionRecorder : public Exception
{
public:
    using Exception::Exception;
    ~ExceptionRecorder() override { ++g_destroyed; }

    const QString& GetErrorText() const override
    {
        called = 1;
        return Exception::GetErrorText();
    }
    const QString& GetErrorName() const override
    {
        called = 2;
        return Exception::GetErrorName();
    }
    virtual void OwnOperation() { called = OWN_OPERATION; }

    mutable int called = NOTHING_CALLED;
};

template <typename Exception>
void ExpectExceptionSlots(ExceptionRecorder<Exception>& recorder)
{
    // Slot 0 is the destructor with entries 0 and 1.
    ReportException& base = recorder;
    (base.*FromEntry<const QString& (ReportException::*)() const>(2))();
    EXPECT_EQ(recorder.called, 1);
    (base.*FromEntry<const QString& (ReportException::*)() const>(3))();
    EXPECT_EQ(recorder.called, 2);

    using Recorder = ExceptionRecorder<Exception>;
    EXPECT_EQ(EntryOf(&Recorder::OwnOperation), 4);
    (recorder.*FromEntry<void (Recorder::*)()>(4))();
    EXPECT_EQ(recorder.called, OWN_OPERATION);
}

} // namespace

TEST(VirtualTable, EntriesOfExceptionsReachTextAndName)
{
    ExceptionRecorder<ReportException> report;
    ExpectExceptionSlots(report);
    ExceptionRecorder<RGException> plain(Text("text"));
    ExpectExceptionSlots(plain);
    ExceptionRecorder<OutOfRangeException> derived(Text("text"));
    ExpectExceptionSlots(derived);
}

TEST(VirtualTable, DestructorOfExceptionsTakesTheFirstTwoEntries)
{
    using Recorder = ExceptionRecorder<RGException>;
    g_destroyed = 0;
    alignas(Recorder) unsigned char memory[sizeof(Recorder)];
    ReportException* inPlace = ::new (memory) Recorder(Text("text"));
    (inPlace->*FromEntry<void (ReportException::*)()>(0))();
    EXPECT_EQ(g_destroyed, 1);

    ReportException* onHeap = new Recorder(Text("text"));
    (onHeap->*FromEntry<void (ReportException::*)()>(1))();
    EXPECT_EQ(g_destroyed, 2);
}

// --- Converters --------------------------------------------------------------------------------------------

namespace {

class ConverterRecorder : public IXmlConverter
{
public:
    bool Upgrade(const IRGObject*, IRGObject*) override
    {
        called = 1;
        return true;
    }
    bool Downgrade(const IRGObject*, IRGObject*) override
    {
        called = 2;
        return true;
    }
    virtual void OwnOperation() { called = OWN_OPERATION; }

    int called = NOTHING_CALLED;
};

} // namespace

TEST(VirtualTable, EntriesOfIXmlConverterAreUpgradeAndDowngradeAndNoDestructor)
{
    static_assert(std::is_polymorphic_v<IXmlConverter>);
    static_assert(!std::has_virtual_destructor_v<IXmlConverter>);

    using Operation = bool (IXmlConverter::*)(const IRGObject*, IRGObject*);
    ConverterRecorder recorder;
    IXmlConverter& base = recorder;
    EXPECT_TRUE((base.*FromEntry<Operation>(0))(nullptr, nullptr));
    EXPECT_EQ(recorder.called, 1);
    EXPECT_TRUE((base.*FromEntry<Operation>(1))(nullptr, nullptr));
    EXPECT_EQ(recorder.called, 2);

    EXPECT_EQ(EntryOf(&ConverterRecorder::OwnOperation), 2);
    (recorder.*FromEntry<void (ConverterRecorder::*)()>(2))();
    EXPECT_EQ(recorder.called, OWN_OPERATION);
}

TEST(VirtualTable, ProxyIsFirstAConverterAndSecondAnObject)
{
    VersionConverterProxy proxy;
    const auto* start = reinterpret_cast<const char*>(&proxy);
    const auto* converter = reinterpret_cast<const char*>(static_cast<IXmlConverter*>(&proxy));
    const auto* object = reinterpret_cast<const char*>(static_cast<IRGObject*>(&proxy));
    EXPECT_EQ(converter, start);
    EXPECT_GT(object, start);

    // Both tables work, each through its own part.
    IXmlConverter& asConverter = proxy;
    using Operation = bool (IXmlConverter::*)(const IRGObject*, IRGObject*);
    EXPECT_FALSE((asConverter.*FromEntry<Operation>(0))(nullptr, nullptr));
    EXPECT_FALSE((asConverter.*FromEntry<Operation>(1))(nullptr, nullptr));
    IRGObject& asObject = proxy;
    EXPECT_FALSE((asObject.*FromEntry<bool (IRGObject::*)() const>(EntryOfSlot(1)))());
    EXPECT_TEXT((asObject.*FromEntry<const QString& (IRGObject::*)() const>(EntryOfSlot(27)))(), "AnyType");
}

#endif // _MSC_VER
