#ifndef TESTS_THREADS_OPERATIONS_H
#define TESTS_THREADS_OPERATIONS_H

// The const operations of the classes, each with what it tells as bytes. `OPERATION(HasData())` calls one of an
// object of the class `T`.

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/minmax.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QDateTime>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

namespace Threads {

template <class T>
struct Operation
{
    const char* name;
    std::function<QByteArray(const T&)> run;
};

template <class T>
using Operations = std::vector<Operation<T>>;

#define OPERATION(call)                                                                                      \
    {                                                                                                        \
#        call, [](const T& object) { return Told(object.call); }                                             \
    }
#define ACTION(call, ...)                                                                                    \
    {                                                                                                        \
#        call, []([[maybe_unused]] const T& object) -> QByteArray { __VA_ARGS__ }                            \
    }

inline QByteArray Told(const QByteArray& value)
{
    return value;
}

inline QByteArray Told(const QString& value)
{
    return value.isNull() ? QByteArray("null") : value.toUtf8();
}

inline QByteArray Told(const QDateTime& value)
{
    return QByteArray::number(value.isNull() ? -1 : value.toMSecsSinceEpoch());
}

inline QByteArray Told(const QVector<double>& values)
{
    QByteArray told;
    for (const double value : values)
        told += QByteArray::number(value) + ' ';
    return told;
}

inline QByteArray Told(const REPORTGENERATOR::MinMax& value)
{
    return QByteArray::number(value.GetMin()) + ' ' + QByteArray::number(value.GetMax());
}

template <class T, std::enable_if_t<std::is_arithmetic_v<T>, int> = 0>
QByteArray Told(T value)
{
    return QByteArray::number(static_cast<double>(value), 'g', 17);
}

template <class T, std::enable_if_t<std::is_enum_v<T>, int> = 0>
QByteArray Told(T value)
{
    return QByteArray::number(static_cast<int>(value));
}

/// What `write` writes to a stream.
template <class Write>
QByteArray Written(Write&& write)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setVersion(QDataStream::Qt_5_0);
    write(stream);
    return buffer.data();
}

/// Has no say about threads: it only counts.
class CountingLogger : public REPORTGENERATOR::Logger
{
public:
    CountingLogger() : Logger(REPORTGENERATOR::INFO) {}

    using Logger::Trace;
    void Trace(REPORTGENERATOR::LogLevel /*level*/, const QString& /*text*/, bool /*fatal*/) override
    {
        ++m_lines;
    }
    bool HasErrors() const override { return false; }
    void Reset(bool /*clearEntries*/) override {}

private:
    std::atomic<int> m_lines{0};
};

/// What every object can do.
template <class T>
Operations<T> BaseOperations()
{
    using REPORTGENERATOR::INFO;
    return
    {
        OPERATION(HasData()), OPERATION(GetObjectType()), OPERATION(GetObjectName()),
            OPERATION(GetObjectId()), OPERATION(GetVersion()), OPERATION(GetValidate()),
            OPERATION(GetXmlString()), OPERATION(GetBinaryRepresentationAsQByteArray()),
            OPERATION(GetCompressedBinaryRepresentationAsQByteArray(1)),
            ACTION(Check(), object.Check(); return "good";),
            ACTION(Check(true), object.Check(true); return "good";),
            ACTION(GetLogger(), return object.GetLogger() ? "logger" : "none";),
            ACTION(GetXml(writer), QByteArray xml; QXmlStreamWriter writer(&xml); object.GetXml(writer);
                   return xml;),
            ACTION(GetBinary(stream), return Written([&](QDataStream& s) { object.GetBinary(s, 7, true); });),
            ACTION(GetBinaryRepresentation(stream),
                   return Written([&](QDataStream& s) { object.GetBinaryRepresentation(s); });),
            ACTION(GetCompressedBinaryRepresentation(stream),
                   return Written([&](QDataStream& s) { object.GetCompressedBinaryRepresentation(s, 1); });),
            ACTION(SaveXml(path), return Told(object.SaveXml(QStringLiteral("/no/such/folder/report.xml")));),
            ACTION(IsValid(number), return Told(object.IRGObject::IsValid(1)) +
                                           Told(object.IRGObject::IsValid(1.0)) +
                                           Told(object.IRGObject::IsValid(QString()));),
            ACTION(SetInvalid(number), double value = 0.0; object.SetInvalid(value); return Told(value);),
            ACTION(skipCurrentElement(stream), QDataStream stream(QByteArray(4, 'x'));
                   return Told(object.skipCurrentElement(stream, 2, 0));),
            ACTION(Trace(text), object.Trace(INFO, QStringLiteral("text")); return {};),
            ACTION(Trace(exception), object.Trace(INFO, RGException(QStringLiteral("text"))); return {};),
            ACTION(TraceOrThrow(exception), RGException exception(QStringLiteral("text"));
                   object.TraceOrThrow(REPORTGENERATOR::ERROR, exception, false, false); return {};),
            ACTION(MergeRGObject(object), T other; other.SetValidate(false);
                   return Told(other.MergeRGObject(object)) + other.GetXmlString().toUtf8();),
    };
}

template <class T>
Operations<T> operator+(Operations<T> left, const Operations<T>& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

} // namespace Threads

#endif
