#ifndef TESTS_DIGEST_READING_H
#define TESTS_DIGEST_READING_H

// Reading into a specimen. What it came to is returned as bytes: the answer, and the object's raw form or text; an
// exception passes.

#include "digest/specimen.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Digest {

QByteArray ReadXml(Specimen& specimen, const QString& xml, bool checkRoot);
QByteArray ReadRepresentation(Specimen& specimen, const QByteArray& bytes);
QByteArray ReadRaw(Specimen& specimen, const QByteArray& bytes);
QByteArray ReadBinaryFile(Specimen& specimen, const QByteArray& content);

/// The raw form, or the text where there is none, without validation: what the object holds.
QByteArray Held(const Specimen& specimen);

QByteArray RawForm(const Specimen& specimen, QDataStream::ByteOrder byteOrder);

} // namespace Digest

#endif
