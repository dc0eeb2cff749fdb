#ifndef REPORTGENERATOR_ENVELOPE_WHOLEREADING_H
#define REPORTGENERATOR_ENVELOPE_WHOLEREADING_H

#include <reportgenerator/reportbase/codec/byterange.h>
#include <reportgenerator/reportbase/envelope/objectaccess.h>

#include <QtCore/QByteArray>

namespace REPORTGENERATOR {

// For programs that look at files: reading on the fast path alone, which tells whether it has read the bytes whole. The
// functions are found through the object; nothing is exported for them.
//
// True says more than that the object was read: every byte belongs to it. Each element and attribute is known, stands
// where the library writes it and comes once, all lengths fit together, and numbers, switches and texts are read as they
// stand there. For whatever else the object is as it was, and the stream path tells what it is.

/// From the text of the object's element in UTF-8, with nothing around it but blanks.
inline bool ReadWholeXml(IRGObject& object, const QByteArray& element)
{
    const FastPath* const fastPath = ObjectAccess::FastPathOf(object);
    return fastPath && fastPath->readXmlBytes(object, element);
}

/// From a root element: tag, length and as many bytes.
inline bool ReadWholeBody(IRGObject& object, const QByteArray& rootElement)
{
    const FastPath* const fastPath = ObjectAccess::FastPathOf(object);
    ByteRange body = {rootElement.constData(), rootElement.constData() + rootElement.size()};
    qint32 tag = 0;
    qint32 length = 0;
    return fastPath && body.TakeWord(tag) && body.TakeWord(length) && length == body.Left() &&
           fastPath->readBody(object, body.next, body.Left());
}

} // namespace REPORTGENERATOR

#endif
