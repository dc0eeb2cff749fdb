#include "digest/reading.h"

#include "support/scratchfile.h"

#include <QtCore/QFile>
#include <QtCore/QIODevice>

namespace Digest {
namespace {

QByteArray Outcome(bool answer, const Specimen& specimen)
{
    return QByteArray(answer ? "true " : "false ") + Held(specimen);
}

} // namespace

QByteArray ReadXml(Specimen& specimen, const QString& xml, bool checkRoot)
{
    const bool answer = specimen.Object().SetXmlString(xml, checkRoot);
    return Outcome(answer, specimen);
}

QByteArray ReadRepresentation(Specimen& specimen, const QByteArray& bytes)
{
    QByteArray representation = bytes;
    const bool answer = specimen.Object().SetBinaryRepresentation(representation);
    return Outcome(answer, specimen);
}

QByteArray ReadRaw(Specimen& specimen, const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_4_6);
    specimen.ReadRaw(stream);
    return QByteArray::number(static_cast<int>(stream.status())) + Outcome(stream.atEnd(), specimen);
}

QByteArray ReadBinaryFile(Specimen& specimen, const QByteArray& content)
{
    Support::WriteScratch(content);
    QFile file(Support::ScratchPath());
    file.open(QIODevice::ReadOnly);
    const bool answer = specimen.Object().LoadBinary(&file);
    return Outcome(answer, specimen);
}

QByteArray Held(const Specimen& specimen)
{
    if (specimen.HasBinaryForms())
        return RawForm(specimen, QDataStream::BigEndian);
    const bool validates = specimen.Object().GetValidate();
    specimen.Object().SetValidate(false);
    const QByteArray text = specimen.Object().GetXmlString().toUtf8();
    specimen.Object().SetValidate(validates);
    return text;
}

QByteArray RawForm(const Specimen& specimen, QDataStream::ByteOrder byteOrder)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    stream.setByteOrder(byteOrder);
    specimen.WriteRaw(stream);
    return bytes;
}

} // namespace Digest
