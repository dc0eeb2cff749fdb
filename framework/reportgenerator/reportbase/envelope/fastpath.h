#ifndef REPORTGENERATOR_ENVELOPE_FASTPATH_H
#define REPORTGENERATOR_ENVELOPE_FASTPATH_H

#include <reportgenerator/reportbase/codec/buffer.h>

#include <typeinfo>

namespace REPORTGENERATOR {

class IRGObject;

/// The way of a class between its objects and one buffer, past Qt's stream classes. Only for objects of
/// exactly this class: what a derived class overrides would not be asked.
///
/// Writing is for objects that have passed their settings on, and have been checked if they validate. Each
/// function returns false, with nothing written, logged or changed but what the other way would do anyway,
/// where something is odd: the caller then goes the other way.
struct FastPath
{
    const std::type_info* type;

    /// Passes validate flag and logger on to the members.
    void (*passSettings)(const IRGObject& object);

    /// The object's element as `GetXmlString` gives it.
    bool (*writeXml)(const IRGObject& object, QString& xml);

    /// The same as UTF-8.
    bool (*writeXmlBytes)(const IRGObject& object, QByteArray& xml);

    /// Puts the object's body behind what is in the buffer.
    bool (*writeBody)(const IRGObject& object, qint32 tag, bool withTag, Buffer<QByteArray>& out);

    /// Reads the object from a text that holds its element and nothing else, as `SetXmlString` does when it
    /// has found the element, with the check at its end.
    bool (*readXml)(IRGObject& object, const QString& xml);

    /// The same from UTF-8.
    bool (*readXmlBytes)(IRGObject& object, const QByteArray& xml);

    /// Reads the elements of a body of exactly so many bytes, as `SetBinary` does.
    bool (*readBody)(IRGObject& object, const char* body, qint64 size);
};

} // namespace REPORTGENERATOR

#endif
