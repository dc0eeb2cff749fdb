#ifndef TESTS_SUPPORT_DEVICEOPERATIONS_H
#define TESTS_SUPPORT_DEVICEOPERATIONS_H

// What the classes with a record read from devices and write to them, for tests with devices that are odd.
//
//     for (const DeviceOperation<Area>& reading : DeviceReadings<Area>(Lake()))
//         reading.run(area, device);

#include "support/records.h"

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <type_traits>
#include <vector>

namespace Support {

template <class T>
struct DeviceOperation
{
    const char* name;
    QByteArray input;                        ///< what is read
    std::function<bool(T&, QIODevice&)> run; ///< returns what the operation does, or true
    bool wantsFile = false;
};

template <class T>
using DeviceOperations = std::vector<DeviceOperation<T>>;

/// `run` with a stream of the library's version on the device.
template <class T, class Run>
std::function<bool(T&, QIODevice&)> OnStream(Run run)
{
    return [run](T& object, QIODevice& device) {
        QDataStream stream(&device);
        stream.setVersion(QDataStream::Qt_4_6);
        if constexpr (std::is_same_v<decltype(run(object, stream)), bool>)
            return run(object, stream);
        else
            run(object, stream);
        return true;
    };
}

/// Reads what `source` writes. `T` is the class of the source or derived from it.
template <class T, class Source>
DeviceOperations<T> DeviceReadings(const Source& source, const QByteArray& xml)
{
    const QByteArray plain = source.GetBinaryRepresentationAsQByteArray();
    const QByteArray body = BodyOf(source, 1, false);
    constexpr int LENGTH_SIZE = 4;
    return {
        {"LoadXml", xml,
         [](T& object, QIODevice& device) {
             return static_cast<REPORTGENERATOR::IRGObject&>(object).LoadXml(&dynamic_cast<QFile&>(device));
         },
         true},
        {"LoadBinary", Written([&plain](QDataStream& stream) { stream << plain; }),
         [](T& object, QIODevice& device) { return object.LoadBinary(&dynamic_cast<QFile&>(device)); }, true},
        {"ProcessXml", xml,
         [](T& object, QIODevice& device) {
             QXmlStreamReader reader(&device);
             const bool isThere = reader.readNextStartElement();
             if (isThere)
                 object.ProcessXml(reader);
             return isThere;
         }},
        {"SetBinaryRepresentation", plain,
         OnStream<T>([](T& object, QDataStream& stream) { return object.SetBinaryRepresentation(stream); })},
        {"SetBinaryRepresentation(compressed)", source.GetCompressedBinaryRepresentationAsQByteArray(1),
         OnStream<T>([](T& object, QDataStream& stream) { return object.SetBinaryRepresentation(stream); })},
        {"SetBinary", body.mid(LENGTH_SIZE), OnStream<T>([body](T& object, QDataStream& stream) {
             object.SetBinary(stream, static_cast<int>(body.size()) - LENGTH_SIZE);
         })},
        {"SetVersionSpecificBinaryWithoutValidation", RawFormOf(source),
         OnStream<T>([](T& object, QDataStream& stream) {
             object.SetVersionSpecificBinaryWithoutValidation(stream);
         })},
    };
}

template <class T>
DeviceOperations<T> DeviceWritings()
{
    return {
        {"GetXml",
         {},
         [](T& object, QIODevice& device) {
             QXmlStreamWriter writer(&device);
             object.GetXml(writer);
             return true;
         }},
        {"GetBinary", {}, OnStream<T>([](T& object, QDataStream& stream) {
             return object.GetBinary(stream, 7, true);
         })},
        {"GetBinaryRepresentation", {}, OnStream<T>([](T& object, QDataStream& stream) {
             object.GetBinaryRepresentation(stream);
         })},
        {"GetCompressedBinaryRepresentation", {}, OnStream<T>([](T& object, QDataStream& stream) {
             object.GetCompressedBinaryRepresentation(stream, 1);
         })},
        {"GetVersionSpecificBinaryWithoutValidation", {}, OnStream<T>([](T& object, QDataStream& stream) {
             object.GetVersionSpecificBinaryWithoutValidation(stream);
         })},
    };
}

} // namespace Support

#endif
